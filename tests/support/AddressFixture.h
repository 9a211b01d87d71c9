// Addresses for tests, kept in a scratch store.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <contracts/RecordStore.h>
#include <libraries/quire/MemoryEngine.h>

namespace orvo {

// Fields with their texts in UTF-8.
using AddressTexts = std::vector<std::pair<AddressField, std::string_view>>;

// Gives:    a record that isn't in the table yet.
inline std::unique_ptr<CAddressRecord> MakeAddress(CAddressTable& table,
                                                   const AddressTexts& texts) {
    auto record = std::make_unique<CAddressRecord>(table, 1);
    for (const auto& [field, utf8] : texts) EXPECT_EQ(record->SetUtf8(field, utf8), 0) << utf8;
    return record;
}

// Gives:    the record that is now in the table.
inline std::unique_ptr<CAddressRecord> AddAddress(CAddressTable& table,
                                                  const AddressTexts& texts = {}) {
    auto record = MakeAddress(table, texts);
    EXPECT_EQ(table.Add(*record), 0) << table.LastError();
    return record;
}

// A table in memory.
struct AddressFixture {
    MemoryEngine engine;
    CAddressTable table{engine};

    std::unique_ptr<CAddressRecord> Make(const AddressTexts& texts) {
        return MakeAddress(table, texts);
    }
};

}  // namespace orvo
