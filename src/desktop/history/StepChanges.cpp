// What one step of the history has changed.
// SPDX-License-Identifier: MIT
#include "StepChanges.h"

#include <algorithm>
#include <utility>

namespace orvo::desktop {
namespace {

auto FindAdded(std::vector<AddedRow>& added, std::int64_t id) {
    const auto found =
        std::lower_bound(added.begin(), added.end(), id,
                         [](const AddedRow& row, std::int64_t wanted) { return row.id < wanted; });
    return found != added.end() && found->id == id ? found : added.end();
}

bool IsAsBefore(const RowChange& change) {
    return change.before ? change.after == HashOf(*change.before) : !change.after;
}

}  // namespace

void StepChanges::AddRow(TableKind kind, std::int64_t id, RowChange change) {
    Table& table = m_rows[IndexOf(kind)];
    if (const auto added = FindAdded(table.added, id); added != table.added.end()) {
        if (change.after) {
            added->after = *change.after;
        } else {
            table.added.erase(added);
        }
        return;
    }
    const auto known = table.changed.find(id);
    if (known != table.changed.end()) {
        RowChange& first = known->second;
        first.after = change.after;
        // Removing says all; else two deeds make an edit.
        if (first.deed != change.deed) first.deed = change.after ? Deed::Edit : change.deed;
        return;
    }
    const bool isHighest = table.added.empty() || table.added.back().id < id;
    if (!change.before && change.after && isHighest) {
        table.added.push_back({id, *change.after});
    } else {
        table.changed.emplace(id, std::move(change));
    }
}

void StepChanges::AddText(const TextKey& key, TextChange change) {
    const auto [known, isNew] = m_texts.try_emplace(key, change);
    if (!isNew) known->second.after = std::move(change.after);
}

void StepChanges::Append(StepChanges later) {
    if (IsEmpty()) {
        *this = std::move(later);
        return;
    }
    for (const TableKind kind : {TableKind::Address, TableKind::ToDo}) {
        Table& table = later.m_rows[IndexOf(kind)];
        for (const AddedRow& added : table.added) {
            AddRow(kind, added.id, {std::nullopt, added.after, Deed::Add});
        }
        for (auto& [id, change] : table.changed) AddRow(kind, id, std::move(change));
    }
    for (auto& [key, change] : later.m_texts) AddText(key, std::move(change));
}

void StepChanges::Finish() {
    for (Table& table : m_rows) {
        table.added.shrink_to_fit();
        std::erase_if(table.changed, [](const auto& entry) { return IsAsBefore(entry.second); });
    }
    std::erase_if(m_texts,
                  [](const auto& entry) { return entry.second.before == entry.second.after; });
}

bool StepChanges::IsEmpty() const {
    return m_texts.empty() && std::all_of(m_rows.begin(), m_rows.end(), [](const Table& table) {
               return table.added.empty() && table.changed.empty();
           });
}

}  // namespace orvo::desktop
