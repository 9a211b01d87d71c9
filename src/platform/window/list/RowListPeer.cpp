// What the lists of every window system share: rows, columns and selection.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <platform/window/list/RowListPeer.h>

namespace orvo {

namespace {

// Where a mark stands after a row has come in before it, or has gone.
int AfterInsertion(int mark, int row) {
    return mark >= row ? mark + 1 : mark;
}

int AfterDeletion(int mark, int row, int rowsLeft) {
    return mark > row ? mark - 1 : std::min(mark, rowsLeft - 1);
}

std::size_t IndexOf(ImageUse use) {
    return static_cast<std::size_t>(use);
}

}  // namespace

void RowListPeer::SetUp(const PeerPlace& place, const ListMetrics& metrics) {
    m_mode = static_cast<ListMode>(place.style & LVS_TYPEMASK);
    m_metrics = metrics;
    if ((place.style & LVS_NOCOLUMNHEADER) != 0) m_metrics.headingHeight = 0;
}

void RowListPeer::ReserveRows(int count) {
    if (count > 0) m_rows.reserve(static_cast<std::size_t>(count));
}

RowListPeer::Extras& RowListPeer::ExtrasOf(int row) {
    std::unique_ptr<Extras>& extras = At(row).extras;
    if (!extras) extras = std::make_unique<Extras>();
    return *extras;
}

int RowListPeer::InsertRow(int row, ListRow content) {
    if (row < 0) return -1;
    row = std::min(row, RowCount());
    m_rows.insert(m_rows.begin() + row,
                  Row{content.data, nullptr, content.asksText, content.asksImage});
    m_selection.Insert(row);
    m_focus = AfterInsertion(m_focus, row);
    m_anchor = AfterInsertion(m_anchor, row);
    if (!content.text.IsEmpty()) SetCellText(row, 0, content.text);
    if (content.image >= 0) SetImage(row, content.image);
    InvalidateFrom(row);
    return row;
}

bool RowListPeer::DeleteRow(int row) {
    if (!HasRow(row)) return false;
    InvalidateFrom(row);
    if (At(row).extras && At(row).extras->isPlaced) --m_placedRows;
    m_rows.erase(m_rows.begin() + row);
    m_selection.Erase(row);
    m_focus = AfterDeletion(m_focus, row, RowCount());
    m_anchor = AfterDeletion(m_anchor, row, RowCount());
    if (TopLine() > LastLine()) ScrollToLine(LastLine());
    return true;
}

void RowListPeer::DeleteAllRows() {
    m_rows.clear();
    m_selection.Clear();
    m_placedRows = 0;
    m_focus = m_anchor = -1;
    ScrollToLine(0);
    InvalidateAll();
}

DWORD RowListPeer::Data(int row) const {
    return HasRow(row) ? At(row).data : 0;
}

bool RowListPeer::SetData(int row, DWORD data) {
    if (!HasRow(row)) return false;
    At(row).data = data;
    return true;
}

int RowListPeer::FindData(DWORD data, int after) const {
    const auto first = m_rows.begin() + std::clamp(after + 1, 0, RowCount());
    const auto found =
        std::find_if(first, m_rows.end(), [data](const Row& row) { return row.data == data; });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

ListRow RowListPeer::Content(int row) const {
    if (!HasRow(row)) return {};
    const Row& content = At(row);
    return {content.data, CellText(row, 0), content.extras ? content.extras->image : -1,
            content.asksText, content.asksImage};
}

CString RowListPeer::CellText(int row, int column) const {
    if (!HasRow(row) || !At(row).extras || column < 0) return {};
    const std::vector<CString>& texts = At(row).extras->texts;
    const auto index = static_cast<std::size_t>(column);
    return index < texts.size() ? texts[index] : CString();
}

bool RowListPeer::SetCellText(int row, int column, const CString& text) {
    if (!HasRow(row) || column < 0 || column >= std::max(ColumnCount(), 1)) return false;
    std::vector<CString>& texts = ExtrasOf(row).texts;
    const auto index = static_cast<std::size_t>(column);
    if (texts.size() <= index) texts.resize(index + 1);
    texts[index] = text;
    InvalidateRows(row, row);
    return true;
}

bool RowListPeer::SetImage(int row, int image) {
    if (!HasRow(row)) return false;
    ExtrasOf(row).image = image;
    InvalidateRows(row, row);
    return true;
}

void RowListPeer::ExchangeRows(const std::vector<int>& going, std::vector<ComingRow> coming) {
    const RowExchange exchange(RowCount(), going, coming);
    ScrollToRow(Exchange(exchange));
}

int RowListPeer::Exchange(const RowExchange& exchange) {
    const auto placeOfMark = [&exchange](int mark) {
        const int place = exchange.PlaceOf(mark);
        return place >= 0 ? place : exchange.PlaceOfStaying(mark);
    };
    const int top = exchange.PlaceOfStaying(TopRow());
    RowSelection selection(exchange.CountAfter());
    for (int row = m_selection.Next(-1); row >= 0; row = m_selection.Next(row)) {
        const int place = exchange.PlaceOf(row);
        if (place >= 0) selection.SetRange(place, place, true);
    }
    PutIn(exchange, TakeOut(exchange));
    m_selection = std::move(selection);
    m_focus = placeOfMark(m_focus);
    m_anchor = placeOfMark(m_anchor);
    for (std::size_t i = 0; i < exchange.Coming().size(); ++i) {
        const ListRow& content = exchange.Coming()[i].content;
        const int row = exchange.PlaceOfComing(i);
        if (!content.text.IsEmpty()) SetCellText(row, 0, content.text);
        if (content.image >= 0) SetImage(row, content.image);
    }
    if (exchange.CountAfter() == exchange.Count()) {
        InvalidateRows(exchange.First(), exchange.Last() - 1);
    } else {
        InvalidateAll();
    }
    return std::max(top, 0);
}

// Closes the gaps between First() and Last(). What is left behind the rows that stay is for those
// that come.
// Returns:  the rows that go, in their order.
std::vector<RowListPeer::Row> RowListPeer::TakeOut(const RowExchange& exchange) {
    std::vector<Row> taken;
    taken.reserve(exchange.Going().size());
    int place = exchange.First();
    for (int row = exchange.First(); row < exchange.Last(); ++row) {
        const bool goes =
            taken.size() < exchange.Going().size() && exchange.Going()[taken.size()] == row;
        if (goes) {
            taken.push_back(std::move(At(row)));
            continue;
        }
        if (place != row) At(place) = std::move(At(row));
        ++place;
    }
    return taken;
}

void RowListPeer::PutIn(const RowExchange& exchange, std::vector<Row> taken) {
    const int staying = exchange.StayingBefore(exchange.Last());
    const int growth = exchange.CountAfter() - exchange.Count();
    const auto behind = m_rows.begin() + exchange.Last();
    if (growth > 0) {
        m_rows.resize(m_rows.size() + static_cast<std::size_t>(growth));
        std::move_backward(m_rows.begin() + exchange.Last(), m_rows.end() - growth, m_rows.end());
    } else if (growth < 0) {
        m_rows.erase(behind + growth, behind);
    }
    const std::vector<ComingRow>& coming = exchange.Coming();
    int from = staying;
    int place = staying + static_cast<int>(coming.size());
    for (std::size_t i = coming.size(); i-- > 0;) {
        const int first = exchange.StayingBefore(coming[i].before);
        while (from > first) At(--place) = std::move(At(--from));
        const ComingRow& row = coming[i];
        if (row.from >= 0) {
            const auto gone =
                std::lower_bound(exchange.Going().begin(), exchange.Going().end(), row.from) -
                exchange.Going().begin();
            At(--place) = std::move(taken[static_cast<std::size_t>(gone)]);
        } else {
            At(--place) =
                Row{row.content.data, nullptr, row.content.asksText, row.content.asksImage};
        }
    }
    m_placedRows -= static_cast<int>(std::count_if(taken.begin(), taken.end(), [](const Row& row) {
        return row.extras && row.extras->isPlaced;
    }));
}

void RowListPeer::Reorder(const std::vector<std::uint32_t>& order) {
    if (order.size() != m_rows.size()) return;
    std::vector<Row> rows;
    rows.reserve(m_rows.size());
    RowSelection selection;
    int focus = -1;
    int anchor = -1;
    for (const std::uint32_t each : order) {
        const int from = static_cast<int>(each);
        const int to = static_cast<int>(rows.size());
        rows.push_back(std::move(m_rows[each]));
        selection.Insert(to);
        if (m_selection.Has(from)) selection.SetRange(to, to, true);
        if (m_focus == from) focus = to;
        if (m_anchor == from) anchor = to;
    }
    m_rows = std::move(rows);
    m_selection = std::move(selection);
    m_focus = focus;
    m_anchor = anchor;
    InvalidateAll();
}

int RowListPeer::InsertColumn(int column, const ListColumn& content) {
    if (column < 0) return -1;
    column = std::min(column, ColumnCount());
    // The number of a new column moves those behind it; on the screen it stands at the same place.
    for (int& each : m_order) each = AfterInsertion(each, column);
    m_order.insert(m_order.begin() + column, column);
    m_columns.insert(m_columns.begin() + column, content);
    for (Row& row : m_rows) {
        if (row.extras && row.extras->texts.size() > static_cast<std::size_t>(column) &&
            ColumnCount() > 1) {
            row.extras->texts.insert(row.extras->texts.begin() + column, CString());
        }
    }
    InvalidateAll();
    return column;
}

bool RowListPeer::DeleteColumn(int column) {
    if (!HasColumn(column)) return false;
    std::erase(m_order, column);
    for (int& each : m_order) {
        if (each > column) --each;
    }
    m_columns.erase(m_columns.begin() + column);
    for (Row& row : m_rows) {
        if (row.extras && row.extras->texts.size() > static_cast<std::size_t>(column)) {
            row.extras->texts.erase(row.extras->texts.begin() + column);
        }
    }
    InvalidateAll();
    return true;
}

ListColumn RowListPeer::Column(int column) const {
    return HasColumn(column) ? m_columns[static_cast<std::size_t>(column)] : ListColumn();
}

bool RowListPeer::SetColumn(int column, const ListColumn& content) {
    if (!HasColumn(column)) return false;
    m_columns[static_cast<std::size_t>(column)] = content;
    InvalidateAll();
    return true;
}

bool RowListPeer::SetColumnOrder(const std::vector<int>& order) {
    if (!std::is_permutation(order.begin(), order.end(), m_order.begin(), m_order.end())) {
        return false;
    }
    m_order = order;
    InvalidateAll();
    return true;
}

void RowListPeer::SetMode(ListMode mode) {
    m_mode = mode;
    ScrollToLine(0);
    InvalidateAll();
}

void RowListPeer::SetImages(ImageUse use, HIMAGELIST images) {
    m_images[IndexOf(use)] = images;
    InvalidateAll();
}

HIMAGELIST RowListPeer::Images(ImageUse use) const {
    return m_images[IndexOf(use)];
}

void RowListPeer::SetCardSize(CSize size) {
    const int top = TopRow();
    m_cardSize = {std::max(size.cx, 1), std::max(size.cy, 1)};
    if (!IsCard()) return;
    ScrollToLine(top / RowsPerLine());
    InvalidateAll();
}

void RowListPeer::SetCardFlow(CardFlow flow) {
    const int top = TopRow();
    m_cardFlow = flow;
    if (!IsCard()) return;
    ScrollToLine(top / RowsPerLine());
    InvalidateAll();
}

bool RowListPeer::IsSelected(int row) const {
    return HasRow(row) && m_selection.Has(row);
}

void RowListPeer::TellState(int row, UINT oldState, UINT newState) {
    if (Client()) Client()->StateChanged(row, oldState, newState);
}

void RowListPeer::Select(int first, int last, bool selected) {
    first = std::max(first, 0);
    last = std::min(last, RowCount() - 1);
    if (first > last) return;
    const int firstChange = m_selection.Next(first - 1, !selected);
    const int changed = m_selection.SetRange(first, last, selected);
    if (changed == 0) return;
    InvalidateRows(first, last);
    const UINT state = selected ? LVIS_SELECTED : 0;
    TellState(changed == 1 ? firstChange : -1, LVIS_SELECTED ^ state, state);
}

bool RowListPeer::SetFocusRow(int row) {
    if (row != -1 && !HasRow(row)) return false;
    const int before = m_focus;
    if (row == before) return true;
    m_focus = row;
    InvalidateRows(before, before);
    InvalidateRows(row, row);
    if (before != -1) TellState(before, LVIS_FOCUSED, 0);
    if (row != -1) TellState(row, 0, LVIS_FOCUSED);
    return true;
}

}  // namespace orvo
