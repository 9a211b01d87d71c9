// Tests of the packed fields.
// SPDX-License-Identifier: MIT
#include <map>
#include <random>

#include <gtest/gtest.h>

#include <contracts/RecordFields.h>

namespace orvo {

TEST(PackedFields, EqualAPlainMapAfterRandomChanges) {
    std::mt19937 random(7);
    const auto below = [&](int limit) { return static_cast<int>(random() % limit); };
    PackedFields fields;
    std::map<int, std::string> model;
    constexpr int kSizes[] = {0, 1, 127, 128, 129, 16383, 16384};
    for (int step = 0; step < 2000; ++step) {
        const int number = 1 + below(40) * 6;
        std::string bytes(static_cast<std::size_t>(kSizes[below(7)]),
                          static_cast<char>(below(256)));

        fields.Set(static_cast<std::uint8_t>(number), bytes);

        model[number] = bytes;
        const int probe = 1 + below(40) * 6;
        ASSERT_EQ(fields.Get(static_cast<std::uint8_t>(probe)), model[probe]);
        ASSERT_EQ(fields.Get(static_cast<std::uint8_t>(number)), bytes);
    }
    PackedFields copy;
    EXPECT_TRUE(copy.Assign(fields.Bytes()));
    EXPECT_EQ(copy.Bytes(), fields.Bytes());
    for (const auto& [number, bytes] : model) {
        EXPECT_EQ(copy.Get(static_cast<std::uint8_t>(number)), bytes);
    }
}

TEST(PackedFields, TakeBytesOfTheirOwnBuffer) {
    PackedFields fields;
    fields.Set(3, "three");
    fields.Set(1, fields.Get(3));
    fields.Set(3, fields.Get(3).substr(1));

    EXPECT_EQ(fields.Get(1), "three");
    EXPECT_EQ(fields.Get(3), "hree");
    fields.Set(1, "");
    fields.Set(3, "");
    EXPECT_TRUE(fields.Bytes().empty());
}

TEST(PackedFields, RefuseLengthsThatCantBeAndStayAsTheyWere) {
    const std::pair<const char*, std::string> rows[] = {
        {"bytes missing", "\x01\x03xy"},
        {"a length that never ends", "\x01" + std::string(20, '\x80')},
        {"a length above all memory", "\x01" + std::string(9, '\xFF') + "\x01x"},
        {"the greatest length", "\x01" + std::string(8, '\xFF') + "\x7Fx"},
        {"a length written too long", std::string("\x01\x81\x00x", 4)},
    };
    for (const auto& [why, bytes] : rows) {
        PackedFields fields;
        fields.Set(9, "as it was");
        EXPECT_FALSE(fields.Assign(bytes)) << why;
        EXPECT_EQ(fields.Get(9), "as it was") << why;
    }
}

// Among them are fields without a number, fields that fall or come twice, and bytes left over.
TEST(PackedFields, AreSafeToReadWhateverTheBytesWereAndOneFormIsTheirOnlyOne) {
    constexpr int kValues = 5;
    std::mt19937 random(11);
    int accepted = 0;
    for (int round = 0; round < 200'000; ++round) {
        std::string bytes(random() % 12, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random() % kValues);
        PackedFields fields;
        if (!fields.Assign(bytes)) continue;
        ++accepted;
        std::string again;
        PackedFields rebuilt;
        for (int number = 1; number < kValues; ++number) {
            rebuilt.Set(static_cast<std::uint8_t>(number),
                        fields.Get(static_cast<std::uint8_t>(number)));
        }
        ASSERT_EQ(rebuilt.Bytes(), bytes);
    }
    EXPECT_GT(accepted, 1000);
}

}  // namespace orvo
