// The entries of one kind, such as addresses or to-dos, in the views that can show them.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <utility>

#include <desktop/store/StoreSession.h>
#include <desktop/views/EntryFind.h>
#include <desktop/views/EntrySelection.h>
#include <host/Disclosure.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>

namespace orvo::desktop {

// What an exported file of the entries is.
struct EntryFile {
    QString filter;      // for a dialog that asks for the file
    const char* ending;  // without its dot
};

// Records are there only between Enter and Leave, while a view of this kind is shown.
class ShownEntries : public EntryFind, public EntrySelection {
public:
    // Session and options outlive it. `changed` is called after rows, selection or order have
    // changed by what is asked of it here.
    ShownEntries(StoreSession& session, const COrvoDesktopOptions& options,
                 std::function<void()> changed)
        : m_session(session), m_options(options), m_changed(std::move(changed)) {}

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
    // How many records the view would show if private ones weren't hidden.
    virtual int HiddenCount() = 0;
    // True where the store holds nothing that the view could ever show.
    virtual bool IsEmpty() = 0;

    // kAllCategories for all.
    int Category() const { return m_category; }
    void SetCategory(int category);

    // Reads the records of the view that is shown again, with its selection kept.
    virtual void Refill() = 0;
    // Reads only the records of these ids again, which somebody else may have changed, added or
    // removed. Rows, selection, focus and what is in view are then as after a Refill.
    virtual void TakeChanges(const std::vector<std::int64_t>& ids) = 0;
    // How often rows have been read: as long as neither this nor their count changes, they are the
    // same.
    int FillCount() const { return m_fillCount; }
    // Shows the view, with its rows read unless they are there already. They come back as the user
    // had them before him.
    virtual void Enter(bool isFilled) = 0;
    virtual void Leave() = 0;

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
