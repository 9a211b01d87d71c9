// Walks over the rows of a store that is being migrated.
// SPDX-License-Identifier: MIT
#pragma once

#include <charconv>
#include <cstdint>
#include <string>

#include <libraries/quire/StoreProgress.h>

#include "SqliteFile.h"

namespace orvo {

// Tells from time to time how many of all rows are done.
class RowReports {
public:
    // `count` is a statement that gives how many there are. File and progress outlive it; the
    // progress may be empty.
    RowReports(SqliteFile& file, const char* count, const StoreProgress& progress)
        : m_progress(progress) {
        std::string text;
        if (progress) file.ReadText(count, text);
        std::from_chars(text.data(), text.data() + text.size(), m_total);
    }

    // To be called after each row.
    // Returns:  false where the work is to end.
    bool Tell() {
        constexpr std::int64_t kRowsBetween = 1024;
        return ++m_done % kRowsBetween != 0 || !m_progress || m_progress(m_done, m_total);
    }

private:
    const StoreProgress& m_progress;
    std::int64_t m_total = 0;
    std::int64_t m_done = 0;
};

// Calls `take`, which returns a result of SQLite, with each row of a statement whose parameter is
// the id behind which it begins. What lies behind a damage is passed over.
// Returns:  SQLITE_OK, or why the walk ended; SQLITE_INTERRUPT by the reports.
template <class Take>
int ForEachRow(SqliteStatement& statement, RowReports& reports, const Take& take) {
    const SqliteRun rows(statement);
    rows->Bind(1, 0);
    int step = SQLITE_ROW;
    while ((step = rows->Step()) == SQLITE_ROW) {
        if (const int result = take(statement); result != SQLITE_OK) return result;
        if (!reports.Tell()) return SQLITE_INTERRUPT;
    }
    return step == SQLITE_DONE || (step & 0xFF) == SQLITE_CORRUPT ? SQLITE_OK : step;
}

}  // namespace orvo
