// Which rows of a table the entries of a file stand for.
// SPDX-License-Identifier: MIT
#include <fmt/core.h>

#include <exchange/lines/KnownEntries.h>

namespace orvo {
namespace {

bool IsEmpty(CBaseTable& table, TableKind kind) {
    StoreEngine& engine = table.GetEngine();
    StoredRow row;
    for (const auto& walk : {engine.Walk(kind), engine.WalkDeleted(kind)}) {
        if (!walk || walk->Next(row) != StoreStatus::End) return false;
    }
    return true;
}

// What decides between an entry and a row whose contents differ.
struct Times {
    std::optional<std::int64_t> sequence;
    std::optional<std::int64_t> modified;
};

bool TellBoth(const std::optional<std::int64_t>& file, const std::optional<std::int64_t>& row) {
    return file.has_value() && row.has_value();
}

void Decide(const Times& file, const Times& row, bool isEdited, KnownRow& known) {
    const bool tellsOrder =
        TellBoth(file.sequence, row.sequence) && *file.sequence != *row.sequence;
    const bool tellsTime = !tellsOrder && TellBoth(file.modified, row.modified);
    // Nobody's work is lost where one that is deleted, and wasn't edited, becomes what the file
    // has.
    if (known.isDeleted && !isEdited) {
        known.isNewer = true;
    } else if (tellsOrder) {
        known.isNewer = *file.sequence > *row.sequence;
    } else if (tellsTime) {
        known.isNewer = *file.modified > *row.modified;
    } else {
        known.isNewer = !isEdited;
    }
    if (known.isNewer) return;
    if (tellsTime && *file.modified == *row.modified) {
        known.whyNot = "differs here, of the same time, and stays as it is";
    } else if (tellsOrder || (tellsTime && !isEdited)) {
        known.whyNot = "is newer here and stays as it is";
    } else if (tellsTime) {
        known.whyNot = "was changed here later and stays as it is";
    } else {
        known.whyNot = "was changed here, the file tells no time, and it stays as it is";
    }
}

}  // namespace

struct KnownEntries::Candidate {
    SourceStamp stamp;
    bool isDeleted = false;
    Comparison comparison;

    int Rank() const { return (isDeleted ? 2 : 0) + (comparison.isSame ? 0 : 1); }
};

KnownEntries::KnownEntries(CBaseTable& table, TableKind kind, KnownEntry known)
    : m_table(table), m_looks(known == KnownEntry::Update && !IsEmpty(table, kind)) {}

bool KnownEntries::IsFree(std::int64_t id) const {
    return (m_firstAdded == 0 || id < m_firstAdded) && !m_taken.contains(id);
}

void KnownEntries::NoteAdded(std::int64_t id) {
    if (m_firstAdded == 0) m_firstAdded = id;
}

// Nothing for a row that can't be read: the entry is added beside what is left of it.
std::optional<KnownEntries::Candidate> KnownEntries::Read(std::int64_t id, CBaseRecord& row) {
    std::vector<SharedText> shared;
    std::string source;
    const bool isRead = m_table.Find(id, row) == 0 && row.GetSourceParts(shared, source) == 0;
    if (!isRead) return std::nullopt;
    Candidate candidate;
    candidate.stamp = ReadSourceStamp(source);
    candidate.isDeleted = row.IsDeleted() != 0;
    return candidate;
}

std::optional<KnownRow> KnownEntries::Take(std::string_view entry, CBaseRecord& row,
                                           const Compare& compare) {
    if (!m_looks) return std::nullopt;
    const SourceStamp stamp = ReadSourceStamp(entry);
    std::vector<std::int64_t> ids;
    if (stamp.uid.empty() || m_table.FindUid(stamp.uid, ids) != 0) return std::nullopt;
    Candidate best;
    std::int64_t bestId = 0;
    for (const std::int64_t id : ids) {
        if (!IsFree(id)) continue;
        std::optional<Candidate> each = Read(id, row);
        if (!each || each->stamp.recurrence != stamp.recurrence) continue;
        each->comparison = compare(row);
        if (bestId != 0 && best.Rank() <= each->Rank()) continue;
        best = std::move(*each);
        bestId = id;
        if (best.Rank() == 0) break;
    }
    if (bestId == 0 || (row.GetId() != bestId && m_table.Find(bestId, row) != 0))
        return std::nullopt;
    m_taken.insert(bestId);
    KnownRow known;
    known.isDeleted = best.isDeleted;
    known.isSame = best.comparison.isSame;
    if (known.isSame) return known;
    Times times{best.stamp.sequence, best.stamp.modified};
    RowIdentity identity;
    const bool isEdited = best.comparison.isEdited;
    if (isEdited && row.GetIdentity(identity) == 0) times.modified = identity.modified;
    Decide({stamp.sequence, stamp.modified}, times, isEdited, known);
    return known;
}

void CountKnown(const KnownRow& known, std::size_t line, std::string_view name,
                std::size_t& imported, ImportReport& report) {
    if (known.isDeleted) {
        ++imported;
    } else if (known.isSame) {
        ++report.unchanged;
    } else if (known.isNewer) {
        ++report.updated;
    } else {
        report.skipped.push_back(
            {line, fmt::format("{} {}", name.empty() ? "the entry" : name, known.whyNot)});
    }
}

}  // namespace orvo
