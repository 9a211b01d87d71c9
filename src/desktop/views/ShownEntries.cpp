// The entries of one kind, addresses or to-dos, in the views that can show them.
// SPDX-License-Identifier: MIT
#include <utility>

#include <desktop/views/ShownEntries.h>

namespace orvo::desktop {

ShownEntries::ShownEntries(StoreSession& session, const COrvoDesktopOptions& options,
                           std::function<void()> changed)
    : m_session(session),
      m_options(options),
      m_changed(std::move(changed)),
      m_find(*this, options,
             {[this] { Refill(); },
              [this] {
                  ++m_fillCount;
                  m_changed();
              }}) {}

std::function<std::int64_t(DWORD)> ShownEntries::IdOf() const {
    return [this](DWORD data) { return RecordOf(data)->GetId(); };
}

void ShownEntries::SetCategory(int category) {
    m_category = category;
    Refill();
}

void ShownEntries::Refill() {
    const RowKeeper rows(Window(), IdOf());
    FillFound();
    rows.Restore(Window());
    m_changed();
}

void ShownEntries::FillFound() {
    ++m_fillCount;
    m_find.Drop();
    Fill(Disclosure(m_options));
    m_find.Filled();
}

void ShownEntries::Enter(bool isFilled) {
    if (!isFilled) FillFound();
    Window().ShowWindow(1);
    if (!isFilled && m_rowsLeft) m_rowsLeft->Restore(Window());
}

void ShownEntries::Leave() {
    m_rowsLeft = RowKeeper(Window(), IdOf());
    m_find.Drop();
    Empty();
    Window().ShowWindow(0);
}

std::vector<CBaseRecord*> ShownEntries::SelectedRecords(WayOut way) {
    std::vector<CBaseRecord*> records;
    const auto* rows = dynamic_cast<const ListPeer*>(Window().GetPeer());
    const Disclosure disclosure(m_options);
    for (int row = rows ? rows->NextSelected(-1) : -1; row >= 0; row = rows->NextSelected(row)) {
        CBaseRecord* record = RecordOf(rows->Data(row));
        if (record && disclosure.Of(way, *record) == Told::Whole) records.push_back(record);
    }
    return records;
}

int ShownEntries::LeftOutOfSelection(WayOut way) {
    return SelectedCount() - static_cast<int>(SelectedRecords(way).size());
}

void ShownEntries::SelectRecord(std::int64_t id) {
    if (auto* rows = dynamic_cast<ListPeer*>(Window().GetPeer())) {
        if (rows->RowCount() > 0) rows->Select(0, rows->RowCount() - 1, false);
    }
    RowKeeper(IdOf(), id).Restore(Window());
    m_changed();
}

void ShownEntries::GoToFirst() {
    const auto* rows = dynamic_cast<const ListPeer*>(Window().GetPeer());
    const DWORD data = rows && rows->RowCount() > 0 ? rows->Data(0) : 0;
    if (data != 0) SelectRecord(RecordOf(data)->GetId());
    Window().SetFocus();
}

}  // namespace orvo::desktop
