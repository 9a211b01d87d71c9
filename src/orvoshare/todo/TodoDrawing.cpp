// CTodoListbox: what its cells show, the line through a completed row, and the title of a note.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <contracts/Dates.h>
#include <contracts/ResourceScope.h>
#include <contracts/TextMeasure.h>
#include <contracts/TextServices.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/text/CategoryText.h>
#include <orvoshare/todo/TodoDates.h>
#include <orvoshare/todo/TodoListbox.h>
#include <platform/text/SystemText.h>
#include <platform/time/TickCount.h>

namespace orvo {
namespace {

constexpr COLORREF kRed = RGB(0xFF, 0, 0);

constexpr int kStrokes = 30;
constexpr std::uint32_t kStrokeTicks = 10;  // a pause is longer than this

constexpr int kTitleBytes = 80;  // of the description
constexpr unsigned kPriorityString = 9124;
constexpr unsigned kDueString = 9133;

constexpr unsigned kPartsDoneString = 9192;
constexpr unsigned kPartOfString = 9193;

CString NumberText(int number) {
    CString text;
    text.Format("%d", number);
    return text;
}

CString Description(const CToDoRecord& record) {
    CString text;
    record.GetDescription(text);
    RemoveLeadingSpacesEx(text);
    return text;
}

void Pause() {
    const std::uint32_t begin = GetTickCount();
    while (GetTickCount() - begin <= kStrokeTicks) continue;
}

void DrawPiecewise(CDC& dc, CPoint start, int width) {
    const int step = std::max(width / kStrokes, 1);
    int x = start.x;
    for (int stroke = 0; stroke < kStrokes; ++stroke) {
        dc.MoveTo(x, start.y);
        dc.LineTo(x + step, start.y);
        x += step;
        Pause();
    }
    if (x >= start.x + width) return;
    dc.MoveTo(x, start.y);
    dc.LineTo(start.x + width, start.y);
}

int ColourOf(const TodoCell& cell, bool isSelected) {
    if (cell.isOverdue) return kOverdueColour;
    return isSelected ? kSelectedTextColour : kTextColour;
}

}  // namespace

void CTodoListbox::DrawColumn(CDC* dc, int nColumn, DWORD dwItemData, CRect& rcCell,
                              UINT nTextFlags, int, int bSelectedRow) {
    if (!dc || rcCell.IsRectEmpty()) return;
    const bool isSelected = bSelectedRow != 0;
    auto* record = reinterpret_cast<CToDoRecord*>(dwItemData);
    const TodoCell cell = GetCell(record, SubItemFromIndex(nColumn), isSelected);
    if (cell.picture) {
        const int top = rcCell.top + (rcCell.Height() - m_nBitmapHeight) / 2;
        CBitmap mark = *cell.picture;
        if (cell.picture != &m_bmpCheckSelected) {
            mark = OUIMarkInColours(mark, kRed, isSelected ? kSelectedTextColour : kTextColour);
        }
        OUIDrawBitmapTransparent(dc, &mark, rcCell.left, top, kRed);
    }
    if (cell.text.IsEmpty()) return;
    const auto draw = cell.opensPopup ? OUIDrawPopupCellText : OUIDrawCellText;
    draw(dc, cell.text, &rcCell, ColourOf(cell, isSelected), 0, nTextFlags);
}

// A to-do that hasn't begun is as pale as a placeholder.
bool CTodoListbox::IsPlaceholder(int nColumn, DWORD dwItemData) {
    const auto* record = reinterpret_cast<const CToDoRecord*>(dwItemData);
    if (!record || !m_pTable) return false;
    return IsUnstarted(*record) || (SubItemFromIndex(nColumn) == TodoColumn::Category &&
                                    IsUncategorized(*m_pTable, *record));
}

// How many of its parts are done, or else whose part it is.
CString CTodoListbox::PartsRemark(const CToDoRecord& record) {
    RowIdentity identity;
    if (!m_parts || m_parts->IsEmpty() || record.GetIdentity(identity) != 0) return {};
    CString remark;
    const PartCount count = m_parts->CountOf(identity.uid);
    if (count.all > 0) {
        remark = OrvoShareText(kPartsDoneString);
        remark.Replace("%1", NumberText(count.done));
        remark.Replace("%2", NumberText(count.all));
        return remark;
    }
    const std::int64_t parent = m_parts->ParentOf(record.GetId());
    CToDoRecord whole(*m_pTable);
    if (parent == 0 || m_pTable->Find(parent, whole) != 0 || whole.IsPrivate() != 0) return {};
    remark = OrvoShareText(kPartOfString);
    remark.Replace("%1", Description(whole).SpanExcluding("\r\n"));
    return remark;
}

// What stands behind the description: that it repeats, and its parts.
CString CTodoListbox::Remark(const CToDoRecord& record) {
    CString remark;
    if (record.IsRepeating()) remark += SystemText("  \xE2\x86\xBB");  // U+21BB
    const CString parts = PartsRemark(record);
    if (!parts.IsEmpty()) remark += "  (" + parts + ")";
    return remark;
}

TodoCell CTodoListbox::GetCell(CToDoRecord* record, int nId, bool isSelected) {
    TodoCell cell;
    if (!record) return cell;
    switch (nId) {
        case TodoColumn::Description:
            cell.text = Description(*record) + Remark(*record);
            break;
        case TodoColumn::Priority: {
            int priority = 0;
            if (record->GetPriority(priority) == 0) cell.text.Format("%d", priority);
            cell.opensPopup = true;
            break;
        }
        case TodoColumn::DueDate: {
            long date = kMaxDate;
            record->GetDueDate(date);
            DateText(date, cell.text, 1);
            cell.isOverdue = !cell.text.IsEmpty() && record->IsCompleted() == 0 &&
                             IsDueYesterdayOrEarlier(date) != 0;
            break;
        }
        case TodoColumn::Category:
            if (m_pTable) cell.text = CategoryText(*m_pTable, *record);
            cell.opensPopup = true;
            break;
        case TodoColumn::Note:
            if (record->IsNote() != 0) cell.picture = &m_bmpNote;
            break;
        case TodoColumn::Private:
            if (record->IsPrivate() != 0) cell.picture = &m_bmpPrivate;
            break;
        case TodoColumn::Completed:
            if (record->IsCompleted() != 0) {
                cell.picture = isSelected ? &m_bmpCheckSelected : &m_bmpCheck;
            }
            break;
        default:
            break;
    }
    return cell;
}

std::optional<bool> CTodoListbox::IsChecked(int row, int column) {
    const CToDoRecord* record = RecordAt(row);
    const bool isBox = SubItemFromIndex(column) == TodoColumn::Completed;
    if (!isBox || !record || IsRowMasked(GetItemData(row))) return std::nullopt;
    return record->IsCompleted() != 0;
}

bool CTodoListbox::IsOverdue(int row, int column) {
    CToDoRecord* record = RecordAt(row);
    if (!record || IsRowMasked(GetItemData(row))) return false;
    return GetCell(record, SubItemFromIndex(column), false).isOverdue;
}

void CTodoListbox::StrikeOutEntry(CToDoRecord* record, CRect& rect, int animate) {
    if (!GetSafeHwnd()) return;
    CString text = Description(*record);
    CClientDC dc(this);
    const bool isSelected = IsItemSelected(FindItemByData(reinterpret_cast<long>(record))) != 0;
    COLORREF colour = 0;
    OUIGetColors(isSelected ? kSelectedTextColour : kTextColour, &colour, nullptr, nullptr,
                 nullptr);
    dc.SetPenColor(colour);
    const CFont before = dc.SelectFont(*OUIGetListFont());
    TruncateText(text, dc, rect.Width(), 1);
    text += ' ';
    const int width = GetTextWidth(text, dc);
    dc.SelectFont(before);

    const CPoint start{rect.left, (rect.top + rect.bottom) / 2};
    if (animate != 0) {
        DrawPiecewise(dc, start, width);
        return;
    }
    dc.MoveTo(start.x, start.y);
    dc.LineTo(start.x + width + 2, start.y);
}

CString CTodoListbox::GetNoteTitle(int row) {
    const CToDoRecord* record = row == -1 ? nullptr : RecordAt(row);
    if (!record) return {};
    CString description;
    int priority = 0;
    long date = kMaxDate;
    record->GetDescription(description);
    record->GetPriority(priority);
    record->GetDueDate(date);
    LeftAndValidateDec(description, kTitleBytes);

    const CDllResourceHandler resources(OrvoShareRecord());
    CString word;
    word.LoadString(kPriorityString);
    CString number;
    number.Format(" %d", priority);
    CString title = description.SpanExcluding("\r\n") + ", " + word + number;
    if (date == kMaxDate) return title;
    word.LoadString(kDueString);
    CString day;
    DateText(date, day, 0);
    return title + ", " + word + " " + day;
}

}  // namespace orvo
