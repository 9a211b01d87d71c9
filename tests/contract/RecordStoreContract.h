// The record store with each of its engines.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <contract/StoreFolder.h>
#include <contracts/RecordStore.h>
#include <libraries/quire/MemoryEngine.h>
#include <libraries/quire/SqliteEngine.h>
#include <platform/time/CTime.h>
#include <platform/time/TimeZone.h>

namespace orvo {

template <class Engine>
struct NewStore;

template <>
struct NewStore<MemoryEngine> {
    std::unique_ptr<StoreEngine> engine = std::make_unique<MemoryEngine>();
};

template <>
struct NewStore<SqliteEngine> {
    StoreFolder folder;
    std::unique_ptr<StoreEngine> engine = folder.Open();
};

template <class Engine>
class RecordStoreContract : public testing::Test {
protected:
    // A test may set the clock and the time zone.
    ~RecordStoreContract() override {
        CTime::SetClock(-1);
        SetSystemTimeZone(m_zone);
    }

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

    NewStore<Engine> store;
    StoreEngine& engine = *store.engine;
    CAddressTable addresses{engine};
    CToDoTable todos{engine};

private:
    static std::string ZoneOfEnvironment() {
        const char* zone = std::getenv("TZ");
        return zone != nullptr ? zone : "";
    }

    std::string m_zone = ZoneOfEnvironment();
};

using StoreEngines = testing::Types<MemoryEngine, SqliteEngine>;

}  // namespace orvo
