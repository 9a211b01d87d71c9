// The entries of one kind, such as addresses or to-dos, in the views that can show them.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include <desktop/store/StoreSession.h>
#include <host/Disclosure.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <people/FindText.h>

namespace orvo::desktop {

// What an exported file of the entries is.
struct EntryFile {
    QString filter;      // for a dialog that asks for the file
    const char* ending;  // without its dot
};

// Records are there only between Enter and Leave, while a view of this kind is shown.
class ShownEntries {
public:
    // Session and options outlive it. `changed` is called after rows, selection or order have
    // changed by what is asked of it here.
    ShownEntries(StoreSession& session, const COrvoDesktopOptions& options,
                 std::function<void()> changed)
        : m_session(session), m_options(options), m_changed(std::move(changed)) {}
    virtual ~ShownEntries() = default;

    virtual QString Name() const = 0;
    virtual QString CountedText(int count) const = 0;
    virtual EntryFile File() const = 0;

    virtual CBaseTable& Table() = 0;
    // The window of the view in use.
    virtual CWnd& Window() = 0;
    // The columns of the view in use; null where it has none.
    virtual COrvoUIListViewCtrl* Columns() { return nullptr; }
    // Sorts by what a click on the heading of that column asks for, if it does.
    virtual void SortByColumn(int) {}

    virtual int RowCount() = 0;
    virtual int SelectedCount() = 0;  // of records
    virtual int SelectedRowCount() { return SelectedCount(); }
    // How many records the view would show if private ones weren't hidden.
    virtual int HiddenCount() = 0;
    // True where the store holds nothing that the view could ever show.
    virtual bool IsEmpty() = 0;

    // kAllCategories for all.
    int Category() const { return m_category; }
    void SetCategory(int category);

    // From now on only rows show that hold what is looked for; all do for an empty query. Masked
    // rows hold nothing.
    virtual void SetFind(const FindQuery& query) = 0;
    virtual bool IsFinding() const = 0;
    // False for rows that are chosen in another way.
    virtual bool IsLooking() const { return IsFinding(); }
    // How many rows there would be if nothing were looked for.
    virtual int CountOfAll() = 0;

    // False while more rows may come, as what they show or are found by isn't read yet.
    virtual bool IsWhole() const = 0;
    // Reads for a moment, and shows the rows once all is read.
    virtual void ReadOn() = 0;
    // How much is read, of 100, where that can be told.
    virtual std::optional<int> PercentRead() const { return std::nullopt; }

    // Reads the records of the view that is shown again, with its selection kept.
    virtual void Refill() = 0;
    // How often rows have been read: as long as neither this nor their count changes, they are the
    // same.
    int FillCount() const { return m_fillCount; }
    // Shows the view, with its rows read unless they are there already. They come back as the user
    // had them before him.
    virtual void Enter(bool isFilled) = 0;
    virtual void Leave() = 0;

    // The selected records that may go out whole on that way. They are the view's, until it is
    // filled anew or its selection changes.
    virtual std::vector<CBaseRecord*> SelectedRecords(WayOut way) = 0;
    // How many selected ones aren't.
    int LeftOutOfSelection(WayOut way);
    // Selects the record of that id, and nothing else.
    virtual void SelectRecord(std::int64_t id) = 0;
    // Gives the view the keys, with all its rows selected, or the first, where it has some.
    virtual void SelectAll() = 0;
    virtual void GoToFirst() = 0;
    // Where in the window the row lies that has the focus.
    // Returns:  false where there is none.
    virtual bool FocusPlace(CRect& place) = 0;

protected:
    void TellChanged() const { m_changed(); }
    void CountFill() { ++m_fillCount; }

    StoreSession& m_session;
    const COrvoDesktopOptions& m_options;

private:
    std::function<void()> m_changed;
    int m_category = kAllCategories;
    int m_fillCount = 0;
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
