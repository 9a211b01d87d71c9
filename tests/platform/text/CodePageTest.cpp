// UTF-8, the code pages and the character sets of files: what each byte and character becomes,
// where texts are cut, and which set is guessed.
// SPDX-License-Identifier: MIT
#include <thread>
#include <tuple>

#include <gtest/gtest.h>

#include <platform/text/Charset.h>
#include <platform/text/CodePage.h>
#include <platform/text/CodePage932.h>
#include <platform/text/Utf8.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

constexpr std::tuple<const char*, const char*, std::u16string_view> kBrokenRows[] = {
    {"a lone trail byte", "a\x80z", u"a\uFFFDz"},
    {"a character cut short gives one for each byte", "\xE3\x81", u"\uFFFD\uFFFD"},
    {"an overlong form", "\xC0\xAF", u"\uFFFD\uFFFD"},
    {"a surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
    {"above U+10FFFF", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"the next character is read on its own", "\xE3あ", u"\uFFFDあ"},
};

TEST(Utf8, EachBrokenByteIsReplaced) {
    for (const auto& [why, in, want] : kBrokenRows) {
        EXPECT_EQ(Utf8ToUtf16(in), want) << why;
        EXPECT_FALSE(IsValidUtf8(in)) << why;
    }
    EXPECT_EQ(FirstCodePoint("\xE3\x81").length, 1u);
    EXPECT_EQ(FirstCodePoint("").length, 0u);
    EXPECT_EQ(FirstCodePoint("😀a").value, U'😀');
}

TEST(Utf8, ALoneSurrogateIsReplaced) {
    const char16_t lone[] = {u'a', 0xD800, u'b', 0xDC00};
    EXPECT_EQ(Utf16ToUtf8({lone, 4}), "a\uFFFDb\uFFFD");

    std::string written;
    AppendCodePoint(0xD800, written);
    AppendCodePoint(0x110000, written);
    EXPECT_EQ(written, "\uFFFD\uFFFD");
}

TEST(Utf8, EveryCharacterComesBack) {
    std::string all;
    for (char32_t value = 0; value <= 0x10FFFF; ++value)
        if (value < 0xD800 || value > 0xDFFF) AppendCodePoint(value, all);

    EXPECT_TRUE(IsValidUtf8(all));
    EXPECT_TRUE(Utf16ToUtf8(Utf8ToUtf16(all)) == all);
}

TEST(Utf8, AsciiEndsAtTheFirstHighByteWhereverItStands) {
    for (std::size_t place = 0; place < 20; ++place) {
        std::string text(20, 'a');
        text[place] = '\x80';
        EXPECT_EQ(AsciiLength(text), place);
    }
    EXPECT_EQ(AsciiLength(std::string(20, 'a')), 20u);
}

std::string Utf8Of(const CodePage& page, std::string_view text) {
    std::string utf8;
    page.ToUtf8(text, utf8);
    return utf8;
}

std::string BytesOf(const CodePage& page, std::string_view utf8) {
    std::string text;
    page.FromUtf8(utf8, text);
    return text;
}

constexpr std::string_view k932Rows[][3] = {
    {"kanji", "\x95\xBD\x90\xAC", "平成"},
    {"half-width katakana", "\xB1\xDE", "ｱﾞ"},
    {"a vendor's circled digit", "\x87\x40", "①"},
    {"a vendor's kanji", "\xFB\xFC\xFA\xB1", "髙﨑"},
    {"the wave of the vendor's table", "\x81\x60", "～"},
    {"backslash and tilde are ASCII", "\\~", "\\~"},
    {"a trail byte is part of its character", "\x95\x5C", "表"},
    {"control characters stay", "\x1A\x1C\x7F", "\x1A\x1C\x7F"},
    {"single bytes of no character", "\x80\xA0\xFD\xFE\xFF", "\u0080\uF8F0\uF8F1\uF8F2\uF8F3"},
};

TEST(CodePage932, FollowsTheVendorsTableBothWays) {
    const CodePage932 page;
    for (const auto& [why, bytes, utf8] : k932Rows) {
        EXPECT_EQ(Utf8Of(page, bytes), utf8) << why;
        EXPECT_EQ(BytesOf(page, utf8), bytes) << why;
    }
}

TEST(CodePage932, ACharacterOfSeveralCodesIsReadFromEach) {
    const CodePage932 page;
    EXPECT_EQ(Utf8Of(page, "\xED\x40"), Utf8Of(page, "\xFA\x5C"));
    EXPECT_EQ(BytesOf(page, Utf8Of(page, "\xED\x40")), "\xFA\x5C");
}

TEST(CodePage932, BytesOfNoCharacterAreReplacedOneByOne) {
    EXPECT_EQ(Utf8Of(CodePage932(), "\x81"), "\uFFFD");
    EXPECT_EQ(Utf8Of(CodePage932(), "a\x81\x31z"), "a\uFFFD1z");
    EXPECT_EQ(Utf8Of(CodePage932(), "\x85\x9Fz\xF0\x40z"), "\uFFFD\uFFFDz\uFFFD\uFFFDz");
}

TEST(CodePage932, ALackingCharacterComesBackAsItself) {
    const CodePage932 page;
    const std::string text = "é¥‾〜−‖—😀𠮷\uE000\uE757\uFFFDé";

    const std::string bytes = BytesOf(page, text);

    EXPECT_EQ(bytes.substr(0, 4), "\xF0\x40\xF0\x41");
    EXPECT_EQ(bytes.substr(bytes.size() - 2), "\xF0\x40");
    EXPECT_EQ(bytes.size(), 13u * 2);
    EXPECT_EQ(Utf8Of(page, bytes), text);
}

// As many characters as there are private codes, none of which 932 holds.
std::string LackingCharacters(char32_t count) {
    std::string utf8;
    for (char32_t i = 0; i < count; ++i) AppendCodePoint(U'\U0001F300' + i, utf8);
    return utf8;
}

TEST(CodePage932, LosesNothingUntilThePrivateCodesAreUsedUp) {
    const CodePage932 page;
    const std::string all = LackingCharacters(1880);
    EXPECT_TRUE(page.IsLossless());

    const std::string bytes = BytesOf(page, all);

    EXPECT_EQ(bytes.substr(bytes.size() - 2), "\xF9\xFC");
    EXPECT_EQ(Utf8Of(page, bytes), all);
    EXPECT_FALSE(page.IsLossless());
    EXPECT_EQ(BytesOf(page, "aé"), "a?");
    EXPECT_EQ(Utf8Of(page, bytes), all);
}

TEST(CodePage932, ThreadsAgreeOnPrivateCodes) {
    const CodePage932 page;
    const std::string all = LackingCharacters(500);
    std::vector<std::string> bytes(4);
    std::vector<std::thread> threads;

    for (std::string& each : bytes) threads.emplace_back([&] { each = BytesOf(page, all); });
    for (std::thread& thread : threads) thread.join();

    for (const std::string& each : bytes) EXPECT_EQ(Utf8Of(page, each), all);
    EXPECT_TRUE(page.IsLossless());
}

TEST(CodePage, EveryByteOfAnEightBitPageComesBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    for (const unsigned number : {437u, 874u, 1250u, 1252u, 1253u, 28591u, 28605u}) {
        const CodePage* page = CodePage::Find(number);
        ASSERT_NE(page, nullptr) << number;
        EXPECT_EQ(BytesOf(*page, Utf8Of(*page, all)), all) << number;
        EXPECT_EQ(Utf8Of(*page, all.substr(0, 128)), all.substr(0, 128)) << number;
    }
    EXPECT_EQ(Utf8Of(*CodePage::Find(1252), "\x80\xE4"), "€ä");
    EXPECT_EQ(BytesOf(*CodePage::Find(1252), "a山😀"), "a??");
}

TEST(CodePage, OtherKindsOfPagesAreUnknown) {
    for (const unsigned number : {0u, 5u, 37u, 936u, 949u, 1200u, 65000u, 54936u})
        EXPECT_EQ(CodePage::Find(number), nullptr) << number;
    EXPECT_EQ(CodePage::Find(1252), CodePage::Find(1252));
}

using CutRow =
    std::tuple<const char*, unsigned, std::string_view, std::size_t, std::size_t, std::size_t>;
constexpr CutRow kCutRows[] = {
    {"the text is short enough", 65001, "aあ", 4, 4, 4},
    {"the cut falls between characters", 65001, "aあ", 1, 1, 1},
    {"the cut splits a character", 65001, "aあ", 2, 1, 4},
    {"a limit of zero splits nothing", 65001, "あ", 0, 0, 0},
    {"four bytes", 65001, "😀b", 3, 0, 4},
    {"broken bytes stand alone", 65001, "\xE3\x81z", 1, 1, 1},
    {"a pair of bytes", 932, "a\x82\xA0", 2, 1, 3},
    {"a row of lead bytes", 932, "\x82\x9F\x82\x9F", 3, 2, 4},
    {"a lead byte alone", 932, "\x82 x", 1, 1, 1},
    {"single bytes", 1252, "\x82\xA0", 1, 1, 1},
};

TEST(CodePage, ACutSplitsNoCharacter) {
    for (const auto& [why, number, text, limit, without, with] : kCutRows) {
        const CodePage& page = *CodePage::Find(number);
        EXPECT_EQ(CutLength(page, text, limit, false), without) << why;
        EXPECT_EQ(CutLength(page, text, limit, true), with) << why;
    }
}

// What a conversion gives; where it refuses, nothing may change.
template <class Convert, class... Input>
std::string Result(Convert convert, const Input&... input) {
    std::string text = "former";
    return convert(input..., text) ? text : "refused, " + text;
}

constexpr std::string_view kSetRows[][4] = {
    {"case does not count", "ISO-8859-1", "a\xE4", "aä"},
    {"nor does another way of writing", "iso8859-1", "a\xE4", "aä"},
    {"Japanese", "Shift_JIS", "\x95\x5C\x87\x40", "表①"},
    {"an alias, and controls that stay", "x-sjis", "\x1A\x1C\x7F", "\x1A\x1C\x7F"},
    {"one more", "windows-31j", "\xF0\x40", "\uE000"},
    {"escapes", "iso-2022-jp", "\x1B$B;3\x1B(B", "山"},
    {"more than ASCII of Chinese", "gb18030", "\xD6\xD0", "中"},
    {"nothing", "windows-1252", "", ""},
    {"a soft hyphen has a place here", "windows-1252", "\xAD", "\u00AD"},
};

TEST(Charset, ANamedSetIsReadAndWritten) {
    for (const auto& [why, name, encoded, decoded] : kSetRows) {
        EXPECT_EQ(Result(DecodeCharset, name, encoded), decoded) << why;
        EXPECT_EQ(Result(EncodeCharset, name, decoded), encoded) << why;
    }
}

constexpr std::string_view kRefusedRows[][4] = {
    {"an unknown set", "no-such-set", "a", "a"},
    {"no name", "", "a", "a"},
    {"bytes of another set", "us-ascii", "\xE4", "ä"},
    {"cut short", "Shift_JIS", "a\x95", "é"},
    {"broken UTF-8", "utf-8", "\xC3(", "\xC3("},
    {"a joiner has no place", "Shift_JIS", "\x81", "a\u200Db"},
    {"a soft hyphen has no place", "us-ascii", "\x80", "a\u00ADb"},
};

TEST(Charset, WhatDoesNotFitIsRefusedAndNothingChanges) {
    for (const auto& [why, name, encoded, decoded] : kRefusedRows) {
        EXPECT_EQ(Result(DecodeCharset, name, encoded), "refused, former") << why;
        EXPECT_EQ(Result(EncodeCharset, name, decoded), "refused, former") << why;
    }
}

constexpr std::string_view kGuessRows[][5] = {
    {"kanji and kana", "en-US", "N:\x8E\x52\x93\x63", "Shift_JIS", "N:山田"},
    {"a single kanji", "en-US", "N:\x97\xD1;", "Shift_JIS", "N:林;"},
    {"an umlaut", "en-US", "M\xFCller", "windows-1252", "Müller"},
    {"a curly apostrophe", "en-US", "It\x92s", "windows-1252", "It’s"},
    {"an apostrophe apart", "nl-NL", "\x92s avonds", "windows-1252", "’s avonds"},
    {"quotes and accents", "fr-FR", "\x93\xE9l\xE9ments\x94 l\x92\xE9tat", "windows-1252",
     "“éléments” l’état"},
    {"half-width katakana at home", "ja-JP", "\xB1\xB2", "Shift_JIS", "ｱｲ"},
    {"half-width katakana abroad", "de-DE", "\xC4\xD6", "windows-1252", "ÄÖ"},
    {"not Japanese at home either", "ja-JP", "M\xFC-", "windows-1252", "Mü-"},
    {"Cyrillic", "ru-RU", "\xCC\xE8\xF0", "windows-1251", "Мир"},
    {"Central European", "pl-PL", "\xB3", "windows-1250", "ł"},
    {"Greek with a byte of no meaning", "el-GR", "\xC1\xD2", "windows-1253", "Α\u00D2"},
    {"Korean", "ko-KR", "\xB1\xE8", "windows-949", "김"},
    {"not Korean", "ko-KR", "\xE9 ", "windows-1252", "é "},
    {"simplified Chinese", "zh-CN", "\xD6\xD0", "gb18030", "中"},
    {"traditional Chinese", "zh-TW", "\xA4\xA4", "big5", "中"},
    {"too few to tell", "en-US", "\xED\xCF\xD3\xCB\xD7\xC1", "windows-1252", "íÏÓË×Á"},
    {"escapes", "en-US", "\x1B$B;3\x1B(B", "ISO-2022-JP", "山"},
    {"traditional by its script", "zh-Hant", "\xA4\xA4", "big5", "中"},
};

// Long enough to be told by their bytes alone.
constexpr const char* kToldRows[][2] = {
    {"EUC-JP", "東京都千代田区丸の内一丁目 株式会社日本商事 やまだ"},
    {"KOI8-R", "Москва, улица Ленина, дом 5, Общество с ограниченной"},
    {"gb18030", "北京市朝阳区建国路八号中国"},
    {"windows-949", "서울특별시 강남구 테헤란로"},
    {"windows-1251", "Москва, улица Ленина, дом 5"},
};

TEST(Charset, TheGuessFollowsBytesAndLanguage) {
    for (const auto& [why, tag, bytes, name, utf8] : kGuessRows) {
        const LocaleInForce locale(tag);
        EXPECT_EQ(GuessLegacyCharset(bytes), name) << why;
        EXPECT_EQ(DecodeLegacy(bytes), utf8) << why;
    }
    const LocaleInForce english("en-US");
    for (const auto& [name, utf8] : kToldRows) {
        const std::string bytes = Result(EncodeCharset, name, utf8);
        EXPECT_EQ(GuessLegacyCharset(bytes), name);
        EXPECT_EQ(DecodeLegacy(bytes), utf8);
    }
}

TEST(Charset, NoByteOfAWesternTextGoesMissing) {
    const LocaleInForce english("en-US");
    for (int byte = 1; byte < 256; ++byte)
        EXPECT_NE(DecodeLegacy("a" + std::string(1, static_cast<char>(byte)) + " "), "a ") << byte;
}

constexpr std::string_view kMarkRows[][3] = {
    {"UTF-8", "\xEF\xBB\xBFé", "é"},
    {"only a mark", "\xEF\xBB\xBF", ""},
    {"UTF-16, low byte first", {"\xFF\xFE\xE9\0", 4}, "é"},
    {"UTF-16, high byte first", {"\xFE\xFF\0\xE9", 4}, "é"},
    {"UTF-32, low byte first", {"\xFF\xFE\0\0\0\xF6\x01\0", 8}, "😀"},
    {"UTF-32, high byte first", {"\0\0\xFE\xFF\0\x01\xF6\0", 8}, "😀"},
    {"a surrogate pair", {"\xFE\xFF\xD8\x3D\xDE\0", 6}, "😀"},
    {"a surrogate alone", {"\xFE\xFF\xD8\x3D\0a", 6}, "\uFFFDa"},
    {"cut short", {"\xFE\xFF\0ab", 5}, "a\uFFFD"},
    {"no mark, low byte first", {"B\0E\0\x71\x5C", 6}, "BE山"},
    {"no mark, high byte first", {"\0B\0E\x5C\x71", 6}, "BE山"},
};

TEST(Charset, AMarkTellsTheFormOfUnicode) {
    for (const auto& [why, bytes, want] : kMarkRows) {
        EXPECT_EQ(Result(DecodeMarked, bytes), want) << why;
    }
}

TEST(Charset, OtherBytesHaveNoMark) {
    for (const std::string_view bytes :
         {std::string_view(), std::string_view("a"), std::string_view("BEGIN"),
          std::string_view("\0\0\0\0", 4), std::string_view("ab\0cdefgh", 9)}) {
        EXPECT_EQ(Result(DecodeMarked, bytes), "refused, former");
    }
}

}  // namespace
}  // namespace orvo
