// Rows on pages of a store file to which nothing leads any longer.
// SPDX-License-Identifier: MIT
#include "LoosePages.h"

#include <algorithm>
#include <fstream>
#include <vector>

#include <contracts/RecordFields.h>

#include "SqliteRow.h"

namespace orvo {

namespace {

constexpr std::size_t kPageSize = 4096;
constexpr char kTableLeaf = 0x0D;

// The columns of both tables: those of an address are the first ones of a to-do.
constexpr const char* kAnyTable =
    "CREATE TABLE loose (id INTEGER PRIMARY KEY, placement, category, flags, fields, priority, due,"
    " completed)";
constexpr int kFieldsColumn = 4;
constexpr int kPriorityColumn = 5;

// A database in memory whose only table lies on one page, which any page of a file can replace.
class LoosePage {
public:
    LoosePage() {
        SqliteFile model;
        sqlite3_int64 size = 0;
        if (model.Open(":memory:", SQLITE_OPEN_READWRITE) == SQLITE_OK &&
            model.Run("PRAGMA page_size = 4096") == SQLITE_OK &&
            model.Run(kAnyTable) == SQLITE_OK) {
            unsigned char* bytes = sqlite3_serialize(model.Handle(), "main", &size, 0);
            m_bytes.assign(bytes, bytes + size);
            sqlite3_free(bytes);
        }
    }

    bool IsMade() const { return m_bytes.size() == 2 * kPageSize; }

    // Calls `take` with the statement for each row that can be read.
    template <class Take>
    void Read(const std::vector<char>& page, Take take) {
        std::copy(page.begin(), page.end(), m_bytes.begin() + kPageSize);
        SqliteFile file;
        SqliteStatement rows;
        const auto size = static_cast<sqlite3_int64>(m_bytes.size());
        if (file.Open(":memory:", SQLITE_OPEN_READWRITE) != SQLITE_OK ||
            sqlite3_deserialize(file.Handle(), "main", m_bytes.data(), size, size,
                                SQLITE_DESERIALIZE_READONLY) != SQLITE_OK ||
            file.Prepare("SELECT * FROM loose", rows) != SQLITE_OK) {
            return;
        }
        while (rows.Step() == SQLITE_ROW) {
            take(rows);
        }
    }

private:
    std::vector<unsigned char> m_bytes;
};

bool IsWholeRow(const SqliteStatement& statement, TableKind kind, StoredRow& row) {
    const bool isOfKind = kind == TableKind::Address ? statement.IsNull(kPriorityColumn)
                                                     : statement.IsInteger(kPriorityColumn);
    return isOfKind && !statement.IsNull(kFieldsColumn) && ReadSqliteRow(statement, kind, row) &&
           row.id > 0 && PackedFields::GoodStart(row.fields).size() == row.fields.size();
}

}  // namespace

std::map<std::int64_t, KeptRow> ReadLoosePages(const std::string& path, TableKind kind) {
    std::map<std::int64_t, KeptRow> found;
    LoosePage loose;
    std::ifstream file(path, std::ios::binary);
    std::vector<char> page(kPageSize);
    while (loose.IsMade() && file.read(page.data(), kPageSize)) {
        if (page.front() != kTableLeaf) {
            continue;
        }
        loose.Read(page, [&](const SqliteStatement& statement) {
            KeptRow row;
            if (IsWholeRow(statement, kind, row.row)) {
                row.fields = row.row.fields;
                found.emplace(row.row.id, std::move(row));
            }
        });
    }
    return found;
}

}  // namespace orvo
