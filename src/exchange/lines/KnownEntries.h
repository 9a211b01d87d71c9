// Which rows of a table the entries of a file stand for.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <contracts/RecordStore.h>
#include <exchange/lines/ImportReport.h>

namespace orvo {

// What an entry is to the row that it stands for.
struct KnownRow {
    bool isDeleted = false;
    bool isSame = false;   // in content
    bool isNewer = false;  // what it says differently is to be taken over
    std::string whyNot{};  // where it is none of both: what is told of it, behind its name
};

class KnownEntries {
public:
    KnownEntries(CBaseTable& table, TableKind kind, KnownEntry known);

    // How a row stands to an entry, and to what it was imported from.
    struct Comparison {
        bool isSame = false;    // it says what the entry says
        bool isEdited = false;  // it doesn't say what it was imported from
    };
    using Compare = std::function<Comparison(const CBaseRecord& row)>;

    // Reads the row that the entry stands for into `row`: one of the same UID and recurrence that
    // no other entry of the file stands for, nor was added from it. Of several that isn't deleted
    // and says the same, else that isn't deleted, else that says the same.
    // Returns:  nothing where there is none; `row` isn't to be used then.
    std::optional<KnownRow> Take(std::string_view entry, CBaseRecord& row, const Compare& compare);

    void NoteAdded(std::int64_t id);

private:
    struct Candidate;

    bool IsFree(std::int64_t id) const;
    std::optional<Candidate> Read(std::int64_t id, CBaseRecord& row);

    CBaseTable& m_table;
    bool m_looks;  // false where all entries are to be added
    std::set<std::int64_t> m_taken;
    std::int64_t m_firstAdded = 0;  // ids rise
};

// Counts the entry where it is known, and tells of one that is left out. `name` is that of what the
// entry stands for, one line of UTF-8; empty where it has none.
void CountKnown(const KnownRow& known, std::size_t line, std::string_view name,
                std::size_t& imported, ImportReport& report);

}  // namespace orvo
