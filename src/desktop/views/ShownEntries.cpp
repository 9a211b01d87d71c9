// The entries of one kind, addresses or to-dos, in the views that can show them.
// SPDX-License-Identifier: MIT
#include <utility>

#include <desktop/views/ShownEntries.h>

namespace orvo::desktop {

ShownEntries::ShownEntries(StoreSession& session, const COrvoDesktopOptions& options,
                           std::function<void()> changed)
    : m_session(session), m_options(options), m_changed(std::move(changed)) {}

std::function<std::int64_t(DWORD)> ShownEntries::IdOf() const {
    return [this](DWORD data) { return RecordOf(data)->GetId(); };
}

void ShownEntries::SetCategory(int category) {
    m_category = category;
    Refill();
}

void ShownEntries::Refill() {
    const RowKeeper rows(Window(), IdOf());
    ++m_fillCount;
    Fill(Disclosure(m_options));
    rows.Restore(Window());
    m_changed();
}

void ShownEntries::Enter(bool isFilled) {
    if (!isFilled) {
        ++m_fillCount;
        Fill(Disclosure(m_options));
    }
    Window().ShowWindow(1);
    if (!isFilled && m_rowsLeft) m_rowsLeft->Restore(Window());
}

void ShownEntries::Leave() {
    m_rowsLeft = RowKeeper(Window(), IdOf());
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

}  // namespace orvo::desktop
