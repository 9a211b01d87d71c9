// Reading language modules, sound ones and others.
// SPDX-License-Identifier: MIT
#include <random>

#include <gmock/gmock.h>

#include <libraries/language/MessageCatalog.h>
#include <libraries/language/MessageFile.h>
#include <platform/text/Charset.h>

namespace orvo {
namespace {

using testing::Pair;
using testing::UnorderedElementsAre;

TEST(MessageCatalog, BothByteOrdersGiveTheSameTexts) {
    for (const std::endian order : {std::endian::little, std::endian::big}) {
        const MessageCatalog catalog = ReadMessageCatalog(MessageBytes(kGerman, order));
        EXPECT_EQ(catalog.languageCode, 0x40);
        EXPECT_THAT(catalog.texts,
                    UnorderedElementsAre(Pair(9189, "-Unbenannt-"), Pair(32804, "(Privat)")));
    }
}

TEST(MessageCatalog, OnlyAWholeNumberIsALanguageCode) {
    struct Row {
        const char *why, *header;
        int want;
    };
    constexpr Row kRows[] = {
        {"hexadecimal", "X-Orvo-Language-Code: 0x20\n", 0x20},
        {"decimal, as the last line without an end", "Language: x\nX-Orvo-Language-Code: 32", 32},
        {"none named", "Language: x\n", 0},
        {"an empty header", "", 0},
        {"no value", "X-Orvo-Language-Code:", 0},
        {"more than a number", "X-Orvo-Language-Code: 12a\n", 0},
        {"too great", "X-Orvo-Language-Code: 0x100000000\n", 0},
        {"the start of another field's name", "X-Orvo-Language-Codes: 1\n", 0},
    };
    for (const Row& row : kRows) {
        const std::string bytes = MessageBytes({{"", row.header}});
        EXPECT_EQ(ReadMessageCatalog(bytes).languageCode, row.want) << row.why;
    }
}

TEST(MessageCatalog, MessagesThatAreNotNumberedAreLeftOut) {
    const MessageCatalog catalog = ReadMessageCatalog(MessageBytes({{"plain", "x"},
                                                                    {"12x\x04key", "x"},
                                                                    {"\x04key", "x"},
                                                                    {"99999999999\x04key", "x"},
                                                                    {Key(1, "one"), "first"},
                                                                    {Key(1, "two"), "second"}}));
    EXPECT_THAT(catalog.texts, UnorderedElementsAre(Pair(1, "first")));
}

TEST(MessageCatalog, NoShortenedFileIsSound) {
    const std::string whole = MessageBytes(kGerman);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_THROW(ReadMessageCatalog(whole.substr(0, length)), CatalogError) << length;
    }
}

TEST(MessageCatalog, WhatCannotBeTrustedIsRefused) {
    const auto withWord = [](std::size_t place, std::size_t word) {
        std::string bytes = MessageBytes(kGerman);
        std::string replacement;
        AppendWord(replacement, word, std::endian::little);
        return bytes.replace(place, replacement.size(), replacement);
    };
    const std::string one = MessageBytes({{Key(1, "x"), "text"}});
    struct Row {
        const char* why;
        std::string bytes;
    };
    const Row kRows[] = {
        {"another magic number", withWord(0, 0x950412df)},
        {"a revision of later times", withWord(4, 2 << 16)},
        {"more messages than the file has bytes", withWord(8, 0xFFFFFFFF)},
        {"a table behind the file", withWord(12, 0xFFFFFFFC)},
        {"a text longer than the file", withWord(28, 0xFFFFFFFF)},
        {"a text behind the file", withWord(32, 0xFFFFFFFF)},
        {"one byte too long, so that no zero byte follows", withWord(36, 15)},
        {"no UTF-8", MessageBytes({{Key(1, "x"), "M\xFCll"}})},
    };
    for (const Row& row : kRows) {
        EXPECT_THROW(ReadMessageCatalog(row.bytes), CatalogError) << row.why;
    }
    EXPECT_NO_THROW(ReadMessageCatalog(one));
}

TEST(MessageCatalog, ALongTextIsNotReadOverAndOver) {
    const std::string longText(100'000, 'x');
    std::string bytes = MessageBytes({{Key(1, "x"), longText}, {Key(2, "x"), longText}});
    const std::size_t firstRow = 28 + 2 * 8;
    EXPECT_NO_THROW(ReadMessageCatalog(bytes));
    bytes.replace(firstRow + 8, 8, bytes.substr(firstRow, 8));
    bytes.resize(bytes.size() - longText.size());
    EXPECT_THROW(ReadMessageCatalog(bytes), CatalogError);
}

TEST(MessageCatalog, ADamagedFileIsRefusedOrGivesText) {
    std::mt19937 random(20261124);
    const std::string whole = MessageBytes(kGerman);
    for (int round = 0; round < 20'000; ++round) {
        std::string damaged = whole;
        for (unsigned flips = 1 + random() % 4; flips > 0; --flips) {
            char& byte = damaged[random() % damaged.size()];
            byte = static_cast<char>(byte ^ 1 << random() % 8);
        }
        try {
            for (const auto& [number, text] : ReadMessageCatalog(damaged).texts) {
                ASSERT_TRUE(IsValidUtf8(text)) << round;
            }
        } catch (const CatalogError&) {
            continue;
        }
    }
}

}  // namespace
}  // namespace orvo
