// The entries of one kind, addresses or to-dos, in the views that can show them.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include <desktop/store/StoreSession.h>
#include <desktop/views/RowKeeper.h>
#include <desktop/views/ShownFind.h>
#include <host/Disclosure.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>

namespace orvo::desktop {

// What an exported file of the entries is.
struct EntryFile {
    QString filter;      // for a dialog that asks for the file
    const char* ending;  // without its dot
};

// Records are there only between Enter and Leave, while a view of this kind is shown.
class ShownEntries : public FindableRows {
public:
    // Session and options outlive it. `changed` is called after rows, selection or order have
    // changed by what is asked of it here.
    ShownEntries(StoreSession& session, const COrvoDesktopOptions& options,
                 std::function<void()> changed);
    virtual QString Name() const = 0;
    virtual QString CountedText(int count) const = 0;
    virtual EntryFile File() const = 0;

    virtual CBaseTable& Table() = 0;
    // The columns of the view in use; null where it has none.
    virtual COrvoUIListViewCtrl* Columns() = 0;
    // Sorts by what a click on the heading of that column asks for, if it does.
    virtual void SortByColumn(int id) = 0;

    virtual int RowCount() = 0;
    virtual int SelectedCount() = 0;
    // How many records the view would show if private ones weren't hidden.
    virtual int HiddenCount() = 0;

    // kAllCategories for all.
    int Category() const { return m_category; }
    void SetCategory(int category);

    ShownFind& Find() { return m_find; }

    // Reads the records of the view that is shown again, with its selection kept.
    void Refill();
    // How often rows have been read: as long as neither this nor their count changes, they are the
    // same.
    int FillCount() const { return m_fillCount; }
    // Shows the view, with its rows read unless they are there already. They come back as the user
    // had them before him.
    void Enter(bool isFilled);
    void Leave();

    // The selected records that may go out whole on that way. They are the view's.
    std::vector<CBaseRecord*> SelectedRecords(WayOut way);
    // How many selected ones aren't.
    int LeftOutOfSelection(WayOut way);
    // Selects the record of that id, and nothing else.
    void SelectRecord(std::int64_t id);
    // Gives the view the keys, with its first row selected where it has one.
    void GoToFirst();

protected:
    virtual void Fill(const Disclosure& disclosure) = 0;

    StoreSession& m_session;
    const COrvoDesktopOptions& m_options;

private:
    std::function<std::int64_t(DWORD)> IdOf() const;

    void FillFound();

    std::function<void()> m_changed;
    ShownFind m_find;
    int m_category = kAllCategories;
    int m_fillCount = 0;
    std::optional<RowKeeper> m_rowsLeft;
};

// Damaged records don't count.
template <class Record, class Iterator, class Table>
int CountPrivate(Table& table, const std::function<int(Record&)>& isOfView) {
    constexpr long kEnd = static_cast<long>(StoreStatus::End);
    Record record(table);
    Iterator iterator(table);
    int count = 0;
    for (long status = iterator.FindFirst(record); status != kEnd;
         status = iterator.FindNext(record)) {
        if (status != 0 && !iterator.IsAtDamage()) break;
        if (status == 0 && record.IsPrivate() && isOfView(record)) ++count;
    }
    return count;
}

}  // namespace orvo::desktop
