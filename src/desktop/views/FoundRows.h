// All rows of a view of which only those show that hold what the user looks for.
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include <contracts/Records.h>
#include <people/FindIndex.h>
#include <platform/window/list/ListPeer.h>

namespace orvo::desktop {

// The records of rows that show are the view's; those of the others are freed with this.
// Whether a row of a record that may be seen shows.
using RowFilter = std::function<bool(const CBaseRecord&)>;

class FoundRows {
public:
    // What rows are, by their data words.
    struct Entries {
        std::function<CBaseRecord*(DWORD)> recordOf;  // null where that is 0
        std::function<FindText(DWORD)> textOf;
        bool masksPrivate;  // nothing is found in private ones then
    };

    // Takes the rows that the view shows now: these are all. The index, of the texts of these
    // records, outlives this.
    FoundRows(FindIndex& index, const ListPeer& view, Entries entries);
    ~FoundRows();
    FoundRows(const FoundRows&) = delete;
    FoundRows& operator=(const FoundRows&) = delete;

    // Reads texts that the index doesn't know yet; what isn't read isn't found. Goes on where it
    // ended, for about that time.
    // Requires: the rows that show are those of Shown(), here and in Find.
    void Read(std::chrono::milliseconds time);
    // False also after a text that was known has changed.
    bool IsRead() const { return m_next == m_rows.size() && m_version == m_index.Version(); }

    // Chooses the rows that show: all of them for an empty query, and of these what the filter
    // chooses, unless that is empty.
    // Returns:  false where they are the same as before, else the caller puts Shown() into the
    //           view in place of what that shows.
    bool Find(const FindQuery& query, const RowFilter& filter = {});
    std::vector<DWORD> Shown() const;

    // False where rows came, went or moved in the view by themselves.
    bool AreIn(const ListPeer& view) const;

    int Count() const { return static_cast<int>(m_rows.size()); }

private:
    struct Row {
        DWORD data;
        CBaseRecord* record;
        std::optional<FindIndex::Slot> slot;
        bool isShown = true;
    };

    void LookUpSlots();
    void Match(const FindQuery& query);
    bool MayBeFound(const Row& row) const;

    FindIndex& m_index;
    Entries m_entries;
    std::vector<Row> m_rows;
    std::uint64_t m_version = 0;  // of the index, for which the slots are good
    std::size_t m_next = 0;       // the first row whose text may not be read
    FindQuery m_query;            // which `m_matching` answers
    std::vector<bool> m_matching;
};

}  // namespace orvo::desktop
