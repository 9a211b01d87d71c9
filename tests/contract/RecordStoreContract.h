// The record store with each of its engines.
// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>
#include <vector>

#include <contract/RecordValues.h>
#include <contract/StoreFolder.h>
#include <libraries/quire/MemoryEngine.h>
#include <platform/time/CTime.h>
#include <platform/time/ZonedTest.h>

namespace orvo {

// For suites that are typed by the engine.
using StoreEngines = testing::Types<MemoryEngine, SqliteEngine>;

template <class Engine>
struct NewStore {
    std::unique_ptr<StoreEngine> engine = std::make_unique<Engine>();
};

template <>
struct NewStore<SqliteEngine> {
    StoreFolder folder;
    std::unique_ptr<StoreEngine> engine = folder.Open();
};

enum class EngineKind { Memory, Sqlite };
constexpr EngineKind kEngines[] = {EngineKind::Memory, EngineKind::Sqlite};

inline void PrintTo(EngineKind kind, std::ostream* out) {
    *out << (kind == EngineKind::Memory ? "memory" : "SQLite");
}

// A test may set the clock and the time zone.
class RecordStoreContract : public ZonedTest, public testing::WithParamInterface<EngineKind> {
protected:
    ~RecordStoreContract() override { CTime::SetClock(-1); }

    static bool IsSqlite() { return GetParam() == EngineKind::Sqlite; }

    std::unique_ptr<CAddressRecord> AnAddress(std::string_view name, int category = 0) {
        auto record = std::make_unique<CAddressRecord>(addresses);
        EXPECT_EQ(record->SetUtf8(AddressField::Name, name), 0);
        EXPECT_EQ(record->SetCategoryId(category), 0);
        EXPECT_EQ(addresses.Add(*record), 0) << addresses.LastError();
        return record;
    }

    std::unique_ptr<CToDoRecord> AToDo(std::string_view description, int category = 0) {
        auto record = std::make_unique<CToDoRecord>(todos);
        EXPECT_EQ(record->SetDescriptionUtf8(description), 0);
        EXPECT_EQ(record->SetCategoryId(category), 0);
        EXPECT_EQ(todos.Add(*record), 0) << todos.LastError();
        return record;
    }

    // The record as the store has it.
    std::unique_ptr<CAddressRecord> Stored(const CAddressRecord& record) {
        auto stored = std::make_unique<CAddressRecord>(addresses);
        EXPECT_EQ(addresses.Find(record.GetId(), *stored), 0) << addresses.LastError();
        return stored;
    }
    std::unique_ptr<CToDoRecord> Stored(const CToDoRecord& record) {
        auto stored = std::make_unique<CToDoRecord>(todos);
        EXPECT_EQ(todos.Find(record.GetId(), *stored), 0) << todos.LastError();
        return stored;
    }

    // The names of all addresses, in the order of a walk.
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        CAddressIterator iterator(addresses);
        CAddressRecord record(addresses);
        for (long status = iterator.FindFirst(record); status == 0;
             status = iterator.FindNext(record)) {
            names.emplace_back(record.Utf8(AddressField::Name));
        }
        return names;
    }

    StoreFolder folder;
    const std::unique_ptr<StoreEngine> store =
        IsSqlite() ? std::unique_ptr<StoreEngine>(folder.Open()) : std::make_unique<MemoryEngine>();
    StoreEngine& engine = *store;
    CAddressTable addresses{engine};
    CToDoTable todos{engine};
};

}  // namespace orvo
