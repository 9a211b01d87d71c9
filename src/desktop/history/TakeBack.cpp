// Taking a step of the history back.
// SPDX-License-Identifier: MIT
#include "TakeBack.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "RowImage.h"
#include "StepNames.h"

namespace orvo::desktop {
namespace {

class Reverter {
public:
    Reverter(StoreEngine& engine, StepChanges& inverse, std::string& reason)
        : m_engine(engine), m_inverse(inverse), m_reason(reason) {}

    bool RevertRow(TableKind kind, std::int64_t id, const RowChange& change) {
        std::optional<RowImage> now;
        if (!IsDone(ReadImage(m_engine, kind, id, now))) return false;
        if ((now ? std::optional(HashOf(*now)) : std::nullopt) != change.after) {
            m_reason = RowIsOtherwise(kind, now, change.before);
            return false;
        }
        if (!IsDone(Write(kind, id, now.has_value(), change.before))) return false;
        RowChange back;
        back.before = std::move(now);
        if (change.before) back.after = HashOf(*change.before);
        m_inverse.AddRow(kind, id, std::move(back));
        return true;
    }

    bool RevertText(const TextKey& key, const TextChange& change) {
        std::vector<StoreEngine::NumberedText> stored;
        if (!IsDone(m_engine.ReadTexts(key.table, key.texts, stored))) return false;
        const auto found = std::find_if(stored.begin(), stored.end(), [&](const auto& text) {
            return text.number == key.number;
        });
        if ((found != stored.end() ? std::optional(found->text) : std::nullopt) != change.after) {
            m_reason = TextIsOtherwise(key, change);
            return false;
        }
        m_inverse.AddText(key, {change.after, change.before});
        return IsDone(change.before
                          ? m_engine.WriteText(key.table, key.texts, key.number, *change.before)
                          : m_engine.RemoveText(key.table, key.texts, key.number));
    }

private:
    bool IsDone(StoreStatus status) {
        if (status != StoreStatus::Ok) m_reason = m_engine.LastError();
        return status == StoreStatus::Ok;
    }

    StoreStatus Write(TableKind kind, std::int64_t id, bool isThere,
                      const std::optional<RowImage>& image) {
        if (!image) return isThere ? m_engine.Remove(kind, id) : StoreStatus::Ok;
        WholeRow whole = RowOfImage(*image);
        whole.row.fields = whole.fields;
        return isThere ? m_engine.Update(kind, whole.row, &whole.extra)
                       : m_engine.Restore(kind, whole.row, whole.extra);
    }

    StoreEngine& m_engine;
    StepChanges& m_inverse;
    std::string& m_reason;
};

}  // namespace

bool TakeBack(StoreEngine& engine, const StepChanges& step, StepChanges& inverse,
              std::string& reason) {
    Reverter reverter(engine, inverse, reason);
    for (const TableKind kind : {TableKind::Address, TableKind::ToDo}) {
        for (const AddedRow& added : step.Added(kind)) {
            if (!reverter.RevertRow(kind, added.id, {std::nullopt, added.after, Deed::Add})) {
                return false;
            }
        }
        for (const auto& [id, change] : step.Changed(kind)) {
            if (!reverter.RevertRow(kind, id, change)) return false;
        }
    }
    return std::all_of(step.Texts().begin(), step.Texts().end(), [&](const auto& entry) {
        return reverter.RevertText(entry.first, entry.second);
    });
}

}  // namespace orvo::desktop
