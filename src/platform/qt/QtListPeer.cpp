// A list on the screen: two of Qt's views, of which the mode chooses one, over the same rows.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QFontMetrics>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <QStackedLayout>
#include <QStackedWidget>
#include <algorithm>

#include <platform/qt/QtListAccess.h>
#include <platform/qt/QtListModel.h>
#include <platform/qt/QtListPeer.h>
#include <platform/qt/QtListViews.h>

namespace orvo {

namespace {

// Room for a line of the desktop's font, and around the icons for some of its characters.
ListMetrics MetricsOfFont(const QFontMetrics& font) {
    constexpr int kLabelCharacters = 16;
    constexpr int kLabelLines = 2;
    constexpr int kMargin = 4;
    constexpr int kRowMargin = 8;
    ListMetrics metrics;
    metrics.rowHeight = std::max(metrics.rowHeight, font.height() + kRowMargin);
    metrics.headingHeight = metrics.rowHeight + kMargin;
    metrics.iconGap = 2 * kMargin;
    metrics.largeIconSize = 64;
    metrics.smallIconSize = 32;
    const int labelWidth = kLabelCharacters * font.averageCharWidth();
    CSize& large = metrics.largeIconCell;
    large.cx = std::max(metrics.largeIconSize, labelWidth) + 2 * metrics.iconGap;
    metrics.largeIconOffset = {(large.cx - metrics.largeIconSize) / 2, kRowMargin};
    metrics.largeIconLabelTop = metrics.largeIconOffset.y + metrics.largeIconSize + kMargin;
    large.cy = metrics.largeIconLabelTop + kLabelLines * font.lineSpacing() + kRowMargin;
    CSize& small = metrics.smallIconCell;
    small.cx = metrics.smallIconSize + 2 * labelWidth;
    small.cy = std::max(metrics.rowHeight, metrics.smallIconSize + kRowMargin);
    metrics.smallIconOffset = {kRowMargin, (small.cy - metrics.smallIconSize) / 2};
    return metrics;
}

// The list's heading is Qt's own, which places and paints it.
class QtHeadingPeer : public QtPeer<WindowPeer> {
public:
    explicit QtHeadingPeer(QHeaderView& header) : QtPeer<WindowPeer>(header, nullptr) {}

    void SetPlace(const CRect&) override {}
};

}  // namespace

class QtListPeer::Frame : public QStackedWidget {
public:
    Frame(QtInputState& input, QWidget* parent)
        : QStackedWidget(parent), m_link(new QtWindowLink(*this, input, kStyle)) {
        setLayoutDirection(Qt::LeftToRight);
        layout()->setSizeConstraint(QLayout::SetNoConstraint);
        m_link->Watch(*this);
    }

    QtWindowLink* Link() const { return m_link; }

private:
    static constexpr auto kStyle = QtWindowLink::Style::Messages;

    QtWindowLink* m_link;
};

QtListPeer::QtListPeer(QtInputState& input, const PeerPlace& place)
    : QtListPeer(*new Frame(input, ParentWidget(place)), place) {}

QtListPeer::QtListPeer(Frame& frame, const PeerPlace& place) : QtList(frame, frame.Link()) {
    SetUp(place, MetricsOfFont(QFontMetrics(QApplication::font())));
    m_model = new QtListModel(*this, &frame);
    m_report = new QtReportView(*frame.Link(), *m_model, Metrics().headingHeight);
    m_icons = new QtIconView(*frame.Link(), *m_model);
    m_icons->setSelectionModel(m_report->selectionModel());
    m_teller = new QtListTeller(*this, m_model);
    for (auto* view :
         {static_cast<QAbstractItemView*>(m_report), static_cast<QAbstractItemView*>(m_icons)}) {
        if ((place.style & WS_BORDER) != 0) view->setFrameShape(QFrame::StyledPanel);
        view->installEventFilter(m_teller);
    }
    frame.addWidget(m_report);
    frame.addWidget(m_icons);
    ShowView();
    ShowColumns();
    ConnectHeader();
    SetUpWidget(*this, place);
}

QtListPeer::~QtListPeer() {
    if (!m_model) return;
    if (m_report) QObject::disconnect(m_report->header(), nullptr, m_model, nullptr);
    m_model->LosePeer();
    delete m_teller;
}

void QtListPeer::ConnectHeader() {
    QHeaderView* header = m_report->header();
    QObject::connect(header, &QHeaderView::sectionResized, m_model.data(),
                     [this](int column, int, int width) {
                         if (m_isShowingColumns) return;
                         ListColumn content = Column(column);
                         content.width = width;
                         RowListPeer::SetColumn(column, content);
                     });
    QObject::connect(header, &QHeaderView::sectionMoved, m_model.data(), [this] {
        if (!m_isShowingColumns) TakeShownOrder();
    });
    QObject::connect(header, &QHeaderView::sectionClicked, m_model.data(), [this](int column) {
        // Qt has turned the mark by itself.
        m_report->Heading().ShowSortMark();
        if (Client() && column < ColumnCount()) Client()->HeadingClicked(column);
    });
}

QAbstractItemView* QtListPeer::View() const {
    if (IsReport()) return m_report;
    return m_icons;
}

void QtListPeer::ShowView() {
    if (!View()) return;
    static_cast<Frame*>(Widget())->setCurrentWidget(View());
    // Before it is shown, Qt doesn't give the other view its place.
    View()->setGeometry(Widget()->contentsRect());
    LayOutHidden(*Widget());
    if (!IsReport()) m_icons->LayOut();
}

void QtListPeer::ShowColumns() {
    if (!m_report) return;
    m_isShowingColumns = true;
    QHeaderView& header = *m_report->header();
    for (int column = 0; column < header.count(); ++column) {
        header.resizeSection(column, Column(column).width);
    }
    int place = 0;
    for (const int column : ColumnOrder()) {
        header.moveSection(header.visualIndex(column), place++);
    }
    m_report->Heading().ShowSortMark();
    emit m_model->headerDataChanged(Qt::Horizontal, 0, header.count() - 1);
    m_isShowingColumns = false;
}

void QtListPeer::TakeShownOrder() {
    std::vector<int> order = ColumnOrder();
    int place = 0;
    for (int& column : order) column = m_report->header()->logicalIndex(place++);
    RowListPeer::SetColumnOrder(order);
}

void QtListPeer::ShowFocus() {
    if (!m_report || m_isBatch) return;
    QItemSelectionModel& selection = *m_report->selectionModel();
    const QModelIndex focus = FocusRow() < 0 ? QModelIndex() : m_model->index(FocusRow(), 0);
    if (selection.currentIndex() != focus) {
        selection.setCurrentIndex(focus, QItemSelectionModel::NoUpdate);
    }
}

int QtListPeer::InsertRow(int row, ListRow content) {
    if (row < 0 || !m_model) return -1;
    const int place = std::min(row, RowCount());
    m_batchHasRows = true;
    if (TellsQt()) m_model->beginInsertRows({}, place, place);
    RowListPeer::InsertRow(place, std::move(content));
    if (TellsQt()) m_model->endInsertRows();
    return place;
}

bool QtListPeer::DeleteRow(int row) {
    if (row < 0 || row >= RowCount() || !m_model) return false;
    m_batchHasRows = true;
    if (TellsQt()) m_model->beginRemoveRows({}, row, row);
    RowListPeer::DeleteRow(row);
    if (TellsQt()) m_model->endRemoveRows();
    ShowFocus();
    return true;
}

void QtListPeer::DeleteAllRows() {
    if (!m_model) return;
    m_batchHasRows = true;
    if (TellsQt()) m_model->beginResetModel();
    RowListPeer::DeleteAllRows();
    if (!TellsQt()) return;
    m_model->endResetModel();
    ShowColumns();
}

// All rows are alike to Qt: those that come or go do so at the end.
void QtListPeer::ExchangeRows(const std::vector<int>& going, std::vector<ComingRow> coming) {
    if (!m_model) return;
    const RowExchange exchange(RowCount(), going, coming);
    const int growth = exchange.CountAfter() - exchange.Count();
    m_batchHasRows = m_batchHasRows || growth != 0;
    if (TellsQt() && growth > 0) {
        m_model->beginInsertRows({}, exchange.Count(), exchange.CountAfter() - 1);
    } else if (TellsQt() && growth < 0) {
        m_model->beginRemoveRows({}, exchange.CountAfter(), exchange.Count() - 1);
    }
    const int top = Exchange(exchange);
    if (TellsQt() && growth > 0) m_model->endInsertRows();
    if (TellsQt() && growth < 0) m_model->endRemoveRows();
    ShowFocus();
    ScrollToRow(top);
    if (m_teller && View()) m_teller->RowsMoved(*View());
}

// All rows are alike to Qt, so that no layout changes.
void QtListPeer::Reorder(const std::vector<std::uint32_t>& order) {
    RowListPeer::Reorder(order);
    ShowFocus();
    if (m_teller && View()) m_teller->RowsMoved(*View());
}

void QtListPeer::InvalidateRows(int first, int last) {
    RowListPeer::InvalidateRows(first, last);
    if (m_teller) m_teller->Later();
}

bool QtListPeer::TellsQt() const {
    return m_model && !m_isBatch;
}

void QtListPeer::SetRedraw(bool on) {
    if (on && m_isBatch) {
        TellBatch();
    } else if (!on && !m_isBatch) {
        m_batchTop = TopLine();
        m_batchHasRows = false;
        m_isBatch = true;
    }
    QtPeer<RowListPeer>::SetRedraw(on);
}

void QtListPeer::TellBatch() {
    m_isBatch = false;
    if (!m_model) return;
    if (m_batchHasRows) {
        m_model->beginResetModel();
        m_model->endResetModel();
        ShowColumns();
    }
    ShowFocus();
    ScrollToLine(m_batchTop);
    InvalidateAll();
}

// Drawing that is switched on again paints all of the list.
void QtListPeer::Invalidate(const CRect& area) {
    if (!m_isBatch) QtPeer<RowListPeer>::Invalidate(area);
}

bool QtListPeer::SetFocusRow(int row) {
    const bool isSet = RowListPeer::SetFocusRow(row);
    ShowFocus();
    return isSet;
}

int QtListPeer::InsertColumn(int column, const ListColumn& content) {
    if (column < 0 || !m_model) return -1;
    const int place = std::min(column, ColumnCount());
    // The model shows a column also where there is none.
    const bool isNew = ColumnCount() > 0;
    if (isNew) m_model->beginInsertColumns({}, place, place);
    RowListPeer::InsertColumn(place, content);
    if (isNew) m_model->endInsertColumns();
    ShowColumns();
    return place;
}

bool QtListPeer::DeleteColumn(int column) {
    if (column < 0 || column >= ColumnCount() || !m_model) return false;
    const bool isLast = ColumnCount() == 1;
    if (!isLast) m_model->beginRemoveColumns({}, column, column);
    RowListPeer::DeleteColumn(column);
    if (!isLast) m_model->endRemoveColumns();
    ShowColumns();
    return true;
}

bool QtListPeer::SetColumn(int column, const ListColumn& content) {
    if (!RowListPeer::SetColumn(column, content)) return false;
    ShowColumns();
    return true;
}

bool QtListPeer::SetColumnOrder(const std::vector<int>& order) {
    if (!RowListPeer::SetColumnOrder(order)) return false;
    ShowColumns();
    return true;
}

void QtListPeer::SetMode(ListMode mode) {
    RowListPeer::SetMode(mode);
    ShowView();
}

void QtListPeer::SetImages(ImageUse use, HIMAGELIST images) {
    RowListPeer::SetImages(use, images);
    if (use == ImageUse::Heading) ShowColumns();
}

void QtListPeer::SetCardSize(CSize size) {
    RowListPeer::SetCardSize(size);
    ShowView();
}

void QtListPeer::SetCardFlow(CardFlow flow) {
    const int top = TopRow();
    RowListPeer::SetCardFlow(flow);
    ShowView();
    if (View()) ScrollToLine(top / RowsPerLine());
}

bool QtListPeer::SetIconPosition(int row, CPoint position) {
    const bool isSet = RowListPeer::SetIconPosition(row, position);
    if (m_icons) m_icons->LayOut();
    return isSet;
}

void QtListPeer::TakeFocus() {
    if (View()) View()->setFocus();
}

CString QtListPeer::ShownTip(CPoint point) const {
    const int row = HitTest(point).row;
    return Client() && row >= 0 ? Client()->InfoTip(row) : CString();
}

CString QtListPeer::CutText(CPoint point) const {
    const int row = HitTest(point).row;
    CRect bounds;
    if (!Client() || !RowRect(row, RowPart::Bounds, bounds)) return {};
    return CutTextAt(*Client(), row, bounds, point);
}

CRect QtListPeer::PlaceInView(int row) const {
    CRect place;
    if (!RowRect(row, RowPart::Bounds, place)) return {};
    place.OffsetRect(CPoint{} - RowsArea().TopLeft());
    return place;
}

int QtListPeer::RowInView(CPoint point) const {
    return HitTest(point + RowsArea().TopLeft()).row;
}

CRect QtListPeer::RowsArea() const {
    if (!View()) return {};
    const QWidget& viewport = *View()->viewport();
    return FromQt(QRect(viewport.mapTo(Widget(), QPoint()), viewport.size()));
}

QScrollBar& QtListPeer::LineBar() const {
    return IsReport() ? *m_report->verticalScrollBar() : m_icons->LineBar();
}

int QtListPeer::TopLine() const {
    if (m_isBatch) return m_batchTop;
    return View() ? LineBar().value() : 0;
}

void QtListPeer::ScrollToLine(int line) {
    if (!View()) return;
    if (m_isBatch) {
        m_batchTop = line;
        return;
    }
    QScrollBar& bar = LineBar();
    // New rows may not have come into Qt's layout yet.
    if (line > bar.maximum()) LayOutRows();
    bar.setValue(line);
}

void QtListPeer::LayOutRows() {
    if (IsReport()) {
        m_report->LayOut();
    } else {
        m_icons->LayOut();
    }
}

int QtListPeer::LeftOffset() const {
    return IsReport() && m_report ? m_report->header()->offset() : 0;
}

QWidget* QtListPeer::PaintedWidget() const {
    return View() ? View()->viewport() : nullptr;
}

std::unique_ptr<WindowPeer> QtListPeer::MakeHeadingPeer() {
    if (!m_report) return nullptr;
    return std::make_unique<QtHeadingPeer>(*m_report->header());
}

}  // namespace orvo
