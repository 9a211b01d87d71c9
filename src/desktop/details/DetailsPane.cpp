// The pane that shows all that is known of the entry that is selected.
// SPDX-License-Identifier: MIT
#include <QPainter>
#include <QPalette>
#include <QTextDocument>
#include <utility>

#include <desktop/details/DetailsPane.h>
#include <desktop/details/PhotoImage.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr int kFaceSide = 72;  // pixels, of a screen without scaling
constexpr int kLeastWidth = 180;

// Of the window, in which the pane stands beside the views, and in which it shows at all.
constexpr int kLeastWidthBeside = 760;
constexpr int kLeastWidthShown = 480;

}  // namespace

void DetailsPane::PutInto(QMainWindow& window, Follow follow) {
    m_window = &window;
    m_dock = new QDockWidget(Text("Details"), &window);
    m_dock->setObjectName("details");
    m_dock->setAllowedAreas(Qt::RightDockWidgetArea | Qt::BottomDockWidgetArea |
                            Qt::LeftDockWidgetArea);
    m_dock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    m_column = new QSplitter(Qt::Vertical, m_dock);
    m_column->setChildrenCollapsible(false);
    m_browser = new QTextBrowser(m_column);
    m_browser->setAccessibleName(Text("Details"));
    m_browser->setOpenLinks(false);
    m_browser->setUndoRedoEnabled(false);
    m_browser->setMinimumWidth(kLeastWidth);
    m_browser->setFrameShape(QFrame::NoFrame);
    QObject::connect(m_browser, &QTextBrowser::anchorClicked, m_browser,
                     [follow = std::move(follow)](const QUrl& link) { follow(link); });
    m_dock->setWidget(m_column);
    window.addDockWidget(Qt::RightDockWidgetArea, m_dock);
    QObject::connect(m_dock, &QDockWidget::visibilityChanged, m_dock, [this](bool isShown) {
        if (isShown) MoveAsWidthAsks();
        if (isShown && m_shown) m_shown();
    });
    m_dock->hide();
}

void DetailsPane::Add(QWidget* panel) {
    panel->hide();
    m_column->addWidget(panel);
}

void DetailsPane::PutBelow(bool isBelow) {
    m_window->addDockWidget(isBelow ? Qt::BottomDockWidgetArea : Qt::RightDockWidgetArea, m_dock);
    m_dock->show();
}

void DetailsPane::FitInto(int width) {
    const bool wasTooNarrow = m_width != 0 && m_width < kLeastWidthShown;
    const bool isTooNarrow = width < kLeastWidthShown;
    m_width = width;
    if (isTooNarrow && !wasTooNarrow && !m_dock->isHidden()) {
        m_isPutAway = true;
        m_dock->hide();
    } else if (!isTooNarrow && std::exchange(m_isPutAway, false)) {
        m_dock->show();
    }
    MoveAsWidthAsks();
}

void DetailsPane::MoveAsWidthAsks() {
    const bool isNarrow = m_width != 0 && m_width < kLeastWidthBeside;
    if (isNarrow && !m_dock->isHidden() && !IsBelow()) {
        m_isMovedBelow = true;
        PutBelow(true);
    } else if (!isNarrow && std::exchange(m_isMovedBelow, false)) {
        const bool wasHidden = m_dock->isHidden();
        PutBelow(false);
        m_dock->setHidden(wasHidden);
    }
}

bool DetailsPane::IsBelow() const {
    return m_window->dockWidgetArea(m_dock) == Qt::BottomDockWidgetArea;
}

QColor DetailsPane::Quiet() const {
    const QColor text = m_browser->palette().color(QPalette::Text);
    const QColor ground = m_browser->palette().color(QPalette::Base);
    const auto between = [](int near, int far) { return (2 * near + far) / 3; };
    return {between(text.red(), ground.red()), between(text.green(), ground.green()),
            between(text.blue(), ground.blue())};
}

void DetailsPane::Show(const PageOfPerson& page) {
    const qreal scale = m_browser->devicePixelRatioF();
    const int side = qRound(kFaceSide * scale);
    QImage photo;
    if (page.person.photo && !page.person.photo->bytes.empty()) {
        photo = SquareOf(PhotoImage(page.person.photo->bytes, 2 * side), side);
    }
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    if (page.face) {
        QPainter painter(&picture);
        PaintFace(painter, QRectF(picture.rect()), *page.face, photo);
    }
    picture.setDevicePixelRatio(scale);
    const QString html = HtmlOf(page, !photo.isNull(), Quiet());
    // What is scrolled or selected stays where nothing has changed.
    if (html == m_html && picture == m_picture) return;
    m_html = html;
    m_picture = picture;
    m_browser->clear();
    m_browser->document()->addResource(QTextDocument::ImageResource, QUrl("photo"), picture);
    m_browser->setHtml(html);
}

void DetailsPane::Show(const QString& line) {
    m_html.clear();
    m_browser->setHtml(HtmlOf(line, Quiet()));
}

}  // namespace orvo::desktop
