// The entries of one kind in a list, whose rows hold their records.
// SPDX-License-Identifier: MIT
#include <desktop/views/RowUpdate.h>
#include <desktop/views/ShownRows.h>

namespace orvo::desktop {

ShownRows::ShownRows(StoreSession& session, const COrvoDesktopOptions& options,
                     std::function<void()> changed)
    : ShownEntries(session, options, std::move(changed)),
      m_find(*this, options,
             {[this] { Refill(); },
              [this] {
                  CountFill();
                  TellChanged();
              }}) {}

ListPeer* ShownRows::Rows() {
    return dynamic_cast<ListPeer*>(Window().GetPeer());
}

std::function<std::int64_t(DWORD)> ShownRows::IdOf() const {
    return [this](DWORD data) { return RecordOf(data)->GetId(); };
}

bool ShownRows::IsEmpty() {
    return RowCount() == 0 && Table().GetCount() == 0;
}

void ShownRows::Refill() {
    const RowKeeper rows(Window(), IdOf());
    FillFound();
    rows.Restore(Window());
    TellChanged();
}

// What is found, or is in a group, is chosen among all rows.
void ShownRows::TakeChanges(const std::vector<std::int64_t>& ids) {
    if (m_find.IsOn()) return Refill();
    RowUpdate(*this, Table()).Run(ids);
    CountFill();
    TellChanged();
}

void ShownRows::FillFound() {
    CountFill();
    m_find.Drop();
    Fill(Disclosure(m_options));
    m_find.Filled();
}

void ShownRows::Enter(bool isFilled) {
    if (!isFilled) FillFound();
    Window().ShowWindow(1);
    if (!isFilled && m_rowsLeft) m_rowsLeft->Restore(Window());
}

void ShownRows::Leave() {
    m_rowsLeft = RowKeeper(Window(), IdOf());
    m_find.Drop();
    Empty();
    Window().ShowWindow(0);
}

std::vector<CBaseRecord*> ShownRows::SelectedRecords(WayOut way) {
    std::vector<CBaseRecord*> records;
    const ListPeer* rows = Rows();
    const Disclosure disclosure(m_options);
    for (int row = rows ? rows->NextSelected(-1) : -1; row >= 0; row = rows->NextSelected(row)) {
        CBaseRecord* record = RecordOf(rows->Data(row));
        if (record && disclosure.Of(way, *record) == Told::Whole) records.push_back(record);
    }
    return records;
}

void ShownRows::SelectRecord(std::int64_t id) {
    if (ListPeer* rows = Rows(); rows && rows->RowCount() > 0) {
        rows->Select(0, rows->RowCount() - 1, false);
    }
    RowKeeper(IdOf(), id).Restore(Window());
    TellChanged();
}

void ShownRows::SelectAll() {
    ListPeer* rows = Rows();
    if (!rows || rows->RowCount() == 0) return;
    rows->Select(0, rows->RowCount() - 1, true);
    Window().SetFocus();
}

void ShownRows::GoToFirst() {
    const ListPeer* rows = Rows();
    const DWORD data = rows && rows->RowCount() > 0 ? rows->Data(0) : 0;
    if (data != 0) SelectRecord(RecordOf(data)->GetId());
    Window().SetFocus();
}

bool ShownRows::FocusPlace(CRect& place) {
    const ListPeer* rows = Rows();
    return rows && rows->RowRect(rows->FocusRow(), RowPart::Label, place);
}

}  // namespace orvo::desktop
