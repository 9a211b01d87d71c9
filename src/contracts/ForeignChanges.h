// What others change in a store, for who shows it.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include <contracts/StoreEngine.h>
#include <platform/Export.h>

namespace orvo {

// Changes of one's own engine may come along where they lie between others'.
class ORVO_API ForeignChanges {
public:
    // What was changed before this moment doesn't come. The engine outlives this object.
    explicit ForeignChanges(StoreEngine& engine);

    enum class Extent {
        None,
        Rows,        // `changes` are all
        Everything,  // too many, or they can't be told: all is to be read again
    };
    // What has changed since the last call. To be asked often: while nobody else changes the store
    // that takes some microseconds. Inside a transaction it is None.
    Extent Take(std::vector<StoreChange>& changes);

private:
    Extent ReadAll(std::vector<StoreChange>& changes);

    StoreEngine& m_engine;
    std::int64_t m_version;
    std::int64_t m_seen;
};

}  // namespace orvo
