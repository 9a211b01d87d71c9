// The shared texts of a store file: which number each has there, and those that are in memory.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include <contracts/StoreEngine.h>

namespace orvo {

struct SqliteStatements;

// Knows the texts that it has read or written as long as somebody holds them, so that thousands of
// rows have one copy of a text in memory and don't look for it by its bytes. Each operation returns
// SQLite's result.
class SqliteSharedTexts {
public:
    // The statements outlive it.
    explicit SqliteSharedTexts(SqliteStatements& statements) : m_statements(statements) {}

    // Appends the text of that number: SQLITE_ROW; SQLITE_DONE where there is none.
    int Read(std::int64_t number, std::vector<SharedText>& texts);
    // The number of the text, which gets into the store where it isn't there: SQLITE_ROW or
    // SQLITE_DONE.
    // Requires: a transaction in which the text is entered for a row.
    int Keep(const SharedText& text, std::int64_t& number);
    // After changes were dropped: their numbers are given again.
    void Forget();

private:
    void Remember(std::int64_t number, const SharedText& text);

    SqliteStatements& m_statements;
    std::map<std::int64_t, std::weak_ptr<const std::string>> m_known;
    std::map<const std::string*, std::int64_t> m_numbers;  // of those, and of some that are gone
    std::size_t m_limit = 0;                               // at which those that are gone go
};

}  // namespace orvo
