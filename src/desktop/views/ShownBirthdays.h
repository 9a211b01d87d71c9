// Birthdays and anniversaries in the order of the days to come.
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <vector>

#include <desktop/birthdays/DayList.h>
#include <desktop/views/ShownEntries.h>
#include <people/DayIndex.h>
#include <platform/window/base/CWnd.h>

namespace orvo::desktop {

class ShownBirthdays : public ShownEntries {
public:
    using ShownEntries::ShownEntries;

    // Makes the window of the list inside of the parent. `opened` is called where the user asks to
    // open what is selected.
    // Returns:  false where that can't be done.
    bool Create(CWnd& parent, std::function<void()> opened);

    QString Name() const override;
    QString CountedText(int count) const override;
    EntryFile File() const override;
    CAddressTable& Table() override { return m_session.Addresses(); }
    CWnd& Window() override { return m_window; }

    // A row is a day, and a person may have several.
    int RowCount() override;
    int SelectedCount() override;
    int SelectedRowCount() override { return m_list->SelectedRowCount(); }
    int CountOfAll() override { return static_cast<int>(m_all.size()); }
    int HiddenCount() override;
    bool IsEmpty() override;

    void SetFind(const FindQuery& query) override;
    bool IsFinding() const override { return !m_query.IsEmpty(); }
    bool IsWhole() const override;
    void ReadOn() override;
    std::optional<int> PercentRead() const override;

    void Refill() override;
    // The index of days reads only these again.
    void TakeChanges(const std::vector<std::int64_t>&) override { Refill(); }
    void Enter(bool isFilled) override;
    void Leave() override;

    std::vector<CBaseRecord*> SelectedRecords(WayOut way) override;
    void SelectRecord(std::int64_t id) override;
    void SelectAll() override;
    void GoToFirst() override;
    bool FocusPlace(CRect& place) override;

private:
    void Collect();
    void Narrow();
    void ReadTexts();
    void ForgetRecords() { m_records.clear(); }

    CWnd m_window;              // around the list
    DayList* m_list = nullptr;  // Qt's
    std::chrono::sys_days m_today{};
    std::vector<ListedDay> m_all;  // that would show if nothing were looked for
    FindQuery m_query;
    std::vector<std::int64_t> m_unread;  // whose texts must be known for an answer
    // Of people that are or were selected, as they were read for that.
    std::map<std::int64_t, std::unique_ptr<CAddressRecord>> m_records;
    bool m_isIndexShown = false;  // all that the index has read is in the list
    std::chrono::steady_clock::time_point m_told;
};

}  // namespace orvo::desktop
