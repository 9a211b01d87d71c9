// A list on the screen: two of Qt's views, of which the mode chooses one, over the same rows.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <memory>
#include <optional>

#include <platform/qt/QtList.h>
#include <platform/qt/QtRowParts.h>

class QScrollBar;

namespace orvo {

class QtIconView;
class QtListModel;
class QtListTeller;
class QtReportView;

// Rows, selection and focus are RowListPeer's; Qt knows only how many rows there are and which has
// the focus. How far the list is scrolled is Qt's. While drawing is off Qt hears of no row: what
// has changed is reported in one piece when it is on again.
class QtListPeer : public QtList {
public:
    QtListPeer(QtInputState& input, const PeerPlace& place);
    ~QtListPeer() override;

    int InsertRow(int row, ListRow content) override;
    bool DeleteRow(int row) override;
    void DeleteAllRows() override;
    void ExchangeRows(const std::vector<int>& going, std::vector<ComingRow> coming) override;
    void Reorder(const std::vector<std::uint32_t>& order) override;
    void InvalidateRows(int first, int last) override;
    bool SetFocusRow(int row) override;
    int InsertColumn(int column, const ListColumn& content) override;
    bool DeleteColumn(int column) override;
    bool SetColumn(int column, const ListColumn& content) override;
    bool SetColumnOrder(const std::vector<int>& order) override;
    void SetMode(ListMode mode) override;
    void SetImages(ImageUse use, HIMAGELIST images) override;
    void SetCardSize(CSize size) override;
    void SetCardFlow(CardFlow flow) override;
    bool SetIconPosition(int row, CPoint position) override;
    void TakeFocus() override;
    void SetRedraw(bool on) override;
    void Invalidate(const CRect& area) override;
    std::unique_ptr<WindowPeer> MakeHeadingPeer() override;

    int RowHeight() const override { return Metrics().rowHeight; }
    CString ShownTip(CPoint point) const override;
    CString CutText(CPoint point) const override;
    CRect PlaceInView(int row) const override;
    int RowInView(CPoint point) const override;
    QString SpokenRow(int row) const override;
    QString SpokenCell(int row, int column) const override;
    QString SpokenColumn(int column) const override;
    std::optional<bool> CellCheck(int row, int column) const override;
    QAbstractItemView* ShownView() const override { return View(); }

    // The list's name, and that of a row in which nothing can be read.
    void SetSpokenNames(const QString& list, const QString& bareRow, const QString& overdue);

protected:
    CRect RowsArea() const override;
    int TopLine() const override;
    void ScrollToLine(int line) override;
    bool IsPainted() const override { return !m_isBatch; }
    int LeftOffset() const override;
    QWidget* PaintedWidget() const override;

private:
    class Frame;
    QtListPeer(Frame& frame, const PeerPlace& place);

    QAbstractItemView* View() const;  // null once the widget is gone
    void ConnectHeader();
    RowParts Parts(int row) const;
    QString TextOfCell(const RowParts& parts, int row, int column) const;
    bool TellsQt() const;
    void TellBatch();
    void ShowView();
    void ShowColumns();
    void ShowFocus();
    void TakeShownOrder();
    void LayOutRows();
    QScrollBar& LineBar() const;  // requires the widget

    QPointer<QtReportView> m_report;
    QPointer<QtIconView> m_icons;
    QPointer<QtListModel> m_model;
    QPointer<QtListTeller> m_teller;
    QString m_bareRow;
    QString m_overdue;
    bool m_isShowingColumns = false;
    bool m_isBatch = false;       // drawing is off
    bool m_batchHasRows = false;  // rows have come or gone in the batch
    int m_batchTop = 0;           // where the list is to be scrolled to after the batch
};

}  // namespace orvo
