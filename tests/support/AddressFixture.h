// Addresses for tests, kept in a scratch store.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include <contracts/RecordStore.h>
#include <libraries/quire/MemoryEngine.h>

namespace orvo {

// A table in memory, and records of it that are made from UTF-8 texts.
struct AddressFixture {
    MemoryEngine engine;
    CAddressTable table{engine};

    using Text = std::pair<AddressField, std::string_view>;

    std::unique_ptr<CAddressRecord> Make(std::initializer_list<Text> texts) {
        auto record = std::make_unique<CAddressRecord>(table, 1);
        for (const auto& [field, utf8] : texts) EXPECT_EQ(record->SetUtf8(field, utf8), 0) << utf8;
        return record;
    }
};

}  // namespace orvo
