// What others change in a store.
// SPDX-License-Identifier: MIT
#include <contracts/ForeignChanges.h>

namespace orvo {

namespace {

// Beyond that reading all again is quicker.
constexpr std::size_t kMostChanges = 10'000;

}  // namespace

ForeignChanges::ForeignChanges(StoreEngine& engine)
    : m_engine(engine), m_version(engine.ForeignVersion()), m_seen(engine.Revision()) {}

ForeignChanges::Extent ForeignChanges::Take(std::vector<StoreChange>& changes) {
    changes.clear();
    if (m_engine.InTransaction()) {
        return Extent::None;
    }
    // Read in this order: where the version stays, all up to the revision is of one's own.
    const std::int64_t revision = m_engine.Revision();
    const std::int64_t version = m_engine.ForeignVersion();
    if (version == m_version) {
        m_seen = revision;
        return Extent::None;
    }
    const Extent extent = ReadAll(changes);
    m_version = version;
    return extent;
}

ForeignChanges::Extent ForeignChanges::ReadAll(std::vector<StoreChange>& changes) {
    ChangePlace place(m_seen);
    const StoreStatus status = m_engine.ReadChanges(place, kMostChanges + 1, changes);
    const bool isWhole =
        (status == StoreStatus::Ok || status == StoreStatus::End) && changes.size() <= kMostChanges;
    if (!isWhole) {
        changes.clear();
        m_seen = m_engine.Revision();
        return Extent::Everything;
    }
    m_seen = changes.empty() ? m_seen : changes.back().revision;
    return changes.empty() ? Extent::None : Extent::Rows;
}

}  // namespace orvo
