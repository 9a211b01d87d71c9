// Language modules: the binary form of their messages, their directories, and how they stand in.
// SPDX-License-Identifier: MIT
#include <bit>
#include <cstdint>
#include <random>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>

#include <contracts/LanguageModule.h>
#include <contracts/ResourceScope.h>
#include <libraries/language/MessageCatalog.h>
#include <platform/io/TempFolder.h>
#include <platform/module/ResourceHandle.h>
#include <platform/module/TextsModule.h>
#include <platform/text/Charset.h>
#include <support/Environment.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

using Messages = std::vector<std::pair<std::string, std::string>>;  // keys and texts

std::string Key(unsigned number, const std::string& english) {
    return std::to_string(number) + '\x04' + english;
}

// A word at the end of `bytes`.
void AppendWord(std::string& bytes, std::size_t word, std::endian order) {
    for (int i = 0; i < 4; ++i) {
        const int shift = 8 * (order == std::endian::big ? 3 - i : i);
        bytes += static_cast<char>(word >> shift & 0xFF);
    }
}

// The bytes of the binary message form: head, both tables, texts.
std::string MessageBytes(const Messages& messages, std::endian order = std::endian::little) {
    const std::size_t keyTable = 7 * 4;
    const std::size_t textTable = keyTable + messages.size() * 8;
    std::string head;
    for (const std::size_t word : {std::size_t{0x950412de}, std::size_t{0}, messages.size(),
                                   keyTable, textTable, std::size_t{0}, std::size_t{0}}) {
        AppendWord(head, word, order);
    }
    const std::size_t firstText = textTable + messages.size() * 8;
    std::string tables[2];
    std::string texts;
    for (int side = 0; side < 2; ++side) {
        for (const auto& [key, text] : messages) {
            const std::string& bytes = side == 0 ? key : text;
            AppendWord(tables[side], bytes.size(), order);
            AppendWord(tables[side], firstText + texts.size(), order);
            texts += bytes + '\0';
        }
    }
    return head + tables[0] + tables[1] + texts;
}

const Messages kGerman{
    {"", "Content-Type: text/plain; charset=UTF-8\nX-Orvo-Language-Code: 0x40\n"},
    {Key(9189, "-Unnamed-"), "-Unbenannt-"},
    {Key(32804, "(Private)"), "(Privat)"},
};

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
    constexpr std::tuple<const char*, const char*, int> kRows[] = {
        {"hexadecimal", "X-Orvo-Language-Code: 0x20\n", 0x20},
        {"decimal, as the last line without an end", "Language: x\nX-Orvo-Language-Code: 32", 32},
        {"none named", "Language: x\n", 0},
        {"an empty header", "", 0},
        {"no value", "X-Orvo-Language-Code:", 0},
        {"more than a number", "X-Orvo-Language-Code: 12a\n", 0},
        {"too great", "X-Orvo-Language-Code: 0x100000000\n", 0},
        {"the start of another field's name", "X-Orvo-Language-Codes: 1\n", 0},
    };
    for (const auto& [why, header, want] : kRows) {
        const std::string bytes = MessageBytes({{"", header}});
        EXPECT_EQ(ReadMessageCatalog(bytes).languageCode, want) << why;
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
    const std::string kRows[][2] = {
        {"another magic number", withWord(0, 0x950412df)},
        {"a revision of later times", withWord(4, 2 << 16)},
        {"more messages than the file has bytes", withWord(8, 0xFFFFFFFF)},
        {"a table behind the file", withWord(12, 0xFFFFFFFC)},
        {"a text longer than the file", withWord(28, 0xFFFFFFFF)},
        {"a text behind the file", withWord(32, 0xFFFFFFFF)},
        {"one byte too long, so that no zero byte follows", withWord(36, 15)},
        {"no UTF-8", MessageBytes({{Key(1, "x"), "M\xFCll"}})},
    };
    for (const auto& [why, bytes] : kRows) {
        EXPECT_THROW(ReadMessageCatalog(bytes), CatalogError) << why;
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

struct LanguageModuleTest : testing::Test {
    LanguageModuleTest() { environment.Set("ORVO_LANGUAGE_DIR", folder.Path()); }

    static std::string Text(HINSTANCE module, unsigned number) {
        std::string text;
        return module->FindString(number, text) ? text : "none";
    }

    TempFolder folder;
    Environment environment;
    TextsModule own{{{1, "own"}, {9189, "own"}}, {{1, "own menu"}}};
    int code = 77;
};

TEST_F(LanguageModuleTest, TheLanguageModuleComesFirstAndTheOwnTextsBehindIt) {
    folder.File("ORVOSHARELANG.DLL", MessageBytes(kGerman));
    const std::string path = folder.Path().string() + "\\ORVOSHARELANG.DLL";
    const HINSTANCE language = CmnLoadLanguageModule(path.c_str(), &own, &code);

    ASSERT_NE(language, &own);
    EXPECT_EQ(code, 0x40);
    EXPECT_EQ(Text(language, 9189), "-Unbenannt-");
    EXPECT_EQ(Text(language, 1), "own");
    EXPECT_EQ(Text(language, 2), "none");
    EXPECT_EQ(language->FindResource(ResourceKind::Menu, 1), "own menu");

    EXPECT_NE(CmnFreeLanguageModule(language, &own), 0);
    EXPECT_EQ(CmnFreeLanguageModule(language, &own), 0) << "it is gone";
    EXPECT_EQ(CmnFreeLanguageModule(&own, &own), 0);
}

TEST_F(LanguageModuleTest, WithoutASoundFileTheOwnHandleStandsIn) {
    const std::string whole = MessageBytes(kGerman);
    const std::tuple<const char*, std::string, bool> kRows[] = {
        {"no such file", folder.Path("none"), false},
        {"no path", "", false},
        {"a folder", folder.Path(), true},
        {"no language module", folder.File("text", "Hello"), true},
        {"without its last byte", folder.File("short", whole.substr(0, whole.size() - 1)), true},
    };
    for (const auto& [why, path, tells] : kRows) {
        code = 77;
        testing::internal::CaptureStderr();
        EXPECT_EQ(CmnLoadLanguageModule(path.c_str(), &own, &code), &own) << why;
        const std::string told = testing::internal::GetCapturedStderr();
        EXPECT_EQ(code, 0) << why;
        EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), tells ? 1 : 0) << told;
        EXPECT_THAT(told, testing::StartsWith(tells ? path : "")) << why;
    }
}

TEST_F(LanguageModuleTest, TheDirectoryIsTheLongestStartOfTheTagThatIsThere) {
    for (const char* name : {"de", "zh-Hant", "fr"}) fs::create_directory(folder.Path(name));
    constexpr std::tuple<const char*, const char*, bool> kRows[] = {
        {"de-DE", "de", true},  {"de-DE-u-co-phonebk", "de", true},
        {"fr", "fr", true},     {"zh-Hant-TW", "zh-Hant", true},
        {"zh-TW", "zh", false}, {"es-ES", "es", false},
    };
    for (const auto& [tag, want, there] : kRows) {
        const LocaleInForce locale(tag);
        CString directory("old");
        EXPECT_EQ(GetOrvoLangDllDirectory(directory) != 0, there) << tag;
        EXPECT_EQ(directory, CString(folder.Path(want))) << tag;
    }
}

TEST(ResourceScope, ScopesNestAndPutTheFormerHandleBack) {
    const TextsModule outer({});
    const TextsModule inner({});
    AFX_EXTENSION_MODULE record;
    record.resource = &outer;
    {
        const CDllResourceHandler scope(record);
        record.resource = &inner;
        EXPECT_EQ(AfxGetResourceHandle(), &outer) << "the scope has a copy of the record";
        {
            const CDllResourceHandler nested(record);
            EXPECT_EQ(AfxGetResourceHandle(), &inner);
        }
        EXPECT_EQ(AfxGetResourceHandle(), &outer);
    }
    EXPECT_EQ(AfxGetResourceHandle(), nullptr);
}

}  // namespace
}  // namespace orvo
