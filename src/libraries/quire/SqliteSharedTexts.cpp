// The shared texts of a store file.
// SPDX-License-Identifier: MIT
#include "SqliteSharedTexts.h"

#include <algorithm>

#include "SqliteStatements.h"

namespace orvo {

namespace {

constexpr std::size_t kFewest = 64;

}  // namespace

int SqliteSharedTexts::Read(std::int64_t number, std::vector<SharedText>& texts) {
    const auto known = m_known.find(number);
    if (known != m_known.end()) {
        if (SharedText::Pointer text = known->second.lock()) {
            texts.emplace_back(std::move(text));
            return SQLITE_ROW;
        }
    }
    const SqliteRun run(m_statements.readSharedText);
    run->Bind(1, number);
    const int result = run->Step();
    if (result == SQLITE_ROW) {
        texts.emplace_back(std::string(run->Bytes(0)));
        Remember(number, texts.back());
    }
    return result;
}

int SqliteSharedTexts::Keep(const SharedText& text, std::int64_t& number) {
    if (const auto known = m_numbers.find(&text.Text()); known != m_numbers.end()) {
        // It may have gone with its last row, and another text may lie where it lay in memory.
        const bool isThat = m_known[known->second].lock() == text.Handle();
        const SqliteRun run(m_statements.hasSharedText);
        run->Bind(1, known->second);
        const int result = isThat ? run->Step() : SQLITE_DONE;
        if (result != SQLITE_DONE) {
            number = known->second;
            return result;
        }
    }
    const SqliteRun found(m_statements.findSharedText);
    found->BindBytes(1, text.Text());
    int result = found->Step();
    if (result == SQLITE_ROW) {
        number = found->Integer(0);
    } else if (result == SQLITE_DONE) {
        const SqliteRun added(m_statements.addSharedText);
        added->BindBytes(1, text.Text());
        result = added->Step();
        if (result == SQLITE_ROW) {
            number = added->Integer(0);
            result = added->Step();
        }
    }
    if (result == SQLITE_ROW || result == SQLITE_DONE) {
        Remember(number, text);
    }
    return result;
}

void SqliteSharedTexts::Forget() {
    m_known.clear();
    m_numbers.clear();
}

void SqliteSharedTexts::Remember(std::int64_t number, const SharedText& text) {
    if (m_numbers.size() >= m_limit) {
        std::erase_if(m_numbers, [&](const auto& entry) {
            return m_known[entry.second].lock().get() != entry.first;
        });
        std::erase_if(m_known, [](const auto& entry) { return entry.second.expired(); });
        m_limit = std::max(kFewest, m_numbers.size() * 2);
    }
    m_known[number] = text.Handle();
    m_numbers[&text.Text()] = number;
}

}  // namespace orvo
