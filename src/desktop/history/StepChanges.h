// What one step of the history has changed.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <contracts/StoreEngine.h>

#include "RowImage.h"

namespace orvo::desktop {

// What was done to a row, as the user would say it.
enum class Deed { Add, Edit, ChangeCategory, Complete, Reopen, Delete, Undelete, Remove };

// By itself, with what the store held before.
struct RowChange {
    std::optional<RowImage> before;      // nothing where there was no row
    std::optional<std::uint64_t> after;  // the hash of an image; nothing where there is no row
    Deed deed = Deed::Edit;
};

struct TextKey {
    TableKind table;
    StoreEngine::TextKind texts;
    int number;
    auto operator<=>(const TextKey&) const = default;
};

struct TextChange {
    std::optional<std::string> before;  // nothing where there was no text of that number
    std::optional<std::string> after;
};

// A row that was added: its image need not be kept to take it away again.
struct AddedRow {
    std::int64_t id;
    std::uint64_t after;
};

// Rows and texts, each once, however often it was changed.
class StepChanges {
public:
    void AddRow(TableKind kind, std::int64_t id, RowChange change);
    void AddText(const TextKey& key, TextChange change);
    // All that has happened after this.
    void Append(StepChanges later);

    // Drops what is again as it was, and memory that isn't needed.
    void Finish();
    bool IsEmpty() const;

    using Rows = std::map<std::int64_t, RowChange>;
    const std::vector<AddedRow>& Added(TableKind kind) const { return m_rows[IndexOf(kind)].added; }
    const Rows& Changed(TableKind kind) const { return m_rows[IndexOf(kind)].changed; }
    const std::map<TextKey, TextChange>& Texts() const { return m_texts; }

private:
    struct Table {
        std::vector<AddedRow> added;  // by rising id, as stores give them
        Rows changed;
    };

    static std::size_t IndexOf(TableKind kind) { return static_cast<std::size_t>(kind); }

    std::array<Table, 2> m_rows;
    std::map<TextKey, TextChange> m_texts;
};

}  // namespace orvo::desktop
