// Character sets of files: strict decoding, the guess, and byte order marks.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <platform/text/Charset.h>
#include <support/LocaleInForce.h>

namespace orvo {

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
        std::string utf8 = "former";
        std::string bytes = "former";
        EXPECT_TRUE(DecodeCharset(name, encoded, utf8)) << why;
        EXPECT_EQ(utf8, decoded) << why;
        EXPECT_TRUE(EncodeCharset(name, decoded, bytes)) << why;
        EXPECT_EQ(bytes, encoded) << why;
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
        std::string utf8 = "former";
        std::string bytes = "former";
        EXPECT_FALSE(DecodeCharset(name, encoded, utf8)) << why;
        EXPECT_FALSE(EncodeCharset(name, decoded, bytes)) << why;
        EXPECT_EQ(utf8, "former") << why;
        EXPECT_EQ(bytes, "former") << why;
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
    {"bytes that tell EUC-JP", "en-US",
     "\xC5\xEC\xB5\xFE\xC5\xD4\xC0\xE9\xC2\xE5\xC5\xC4\xB6\xE8\xB4\xDD\xA4\xCE\xC6\xE2\xB0\xEC\xC3"
     "\xFA\xCC\xDC \xB3\xF4\xBC\xB0\xB2\xF1\xBC\xD2\xC6\xFC\xCB\xDC\xBE\xA6\xBB\xF6 "
     "\xA4\xE4\xA4\xDE\xA4\xC0",
     "EUC-JP", "東京都千代田区丸の内一丁目 株式会社日本商事 やまだ"},
    {"bytes that tell KOI8-R", "en-US",
     "\xED\xCF\xD3\xCB\xD7\xC1, \xD5\xCC\xC9\xC3\xC1 \xEC\xC5\xCE\xC9\xCE\xC1, \xC4\xCF\xCD 5, "
     "\xEF\xC2\xDD\xC5\xD3\xD4\xD7\xCF \xD3 \xCF\xC7\xD2\xC1\xCE\xC9\xDE\xC5\xCE\xCE\xCF\xCA",
     "KOI8-R", "Москва, улица Ленина, дом 5, Общество с ограниченной"},
    {"bytes that tell gb18030", "en-US",
     "\xB1\xB1\xBE\xA9\xCA\xD0\xB3\xAF\xD1\xF4\xC7\xF8\xBD\xA8\xB9\xFA\xC2\xB7\xB0\xCB\xBA\xC5\xD6"
     "\xD0\xB9\xFA",
     "gb18030", "北京市朝阳区建国路八号中国"},
    {"bytes that tell windows-949", "en-US",
     "\xBC\xAD\xBF\xEF\xC6\xAF\xBA\xB0\xBD\xC3 \xB0\xAD\xB3\xB2\xB1\xB8 "
     "\xC5\xD7\xC7\xEC\xB6\xF5\xB7\xCE",
     "windows-949", "서울특별시 강남구 테헤란로"},
    {"bytes that tell windows-1251", "en-US",
     "\xCC\xEE\xF1\xEA\xE2\xE0, \xF3\xEB\xE8\xF6\xE0 \xCB\xE5\xED\xE8\xED\xE0, \xE4\xEE\xEC 5",
     "windows-1251", "Москва, улица Ленина, дом 5"},
    {"too few to tell", "en-US", "\xED\xCF\xD3\xCB\xD7\xC1", "windows-1252", "íÏÓË×Á"},
    {"escapes", "en-US", "\x1B$B;3\x1B(B", "ISO-2022-JP", "山"},
    {"traditional by its script", "zh-Hant", "\xA4\xA4", "big5", "中"},
};

TEST(Charset, TheGuessFollowsBytesAndLanguage) {
    for (const auto& [why, tag, bytes, name, utf8] : kGuessRows) {
        const LocaleInForce locale(tag);
        EXPECT_EQ(GuessLegacyCharset(bytes), name) << why;
        EXPECT_EQ(DecodeLegacy(bytes), utf8) << why;
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
        std::string utf8;
        EXPECT_TRUE(DecodeMarked(bytes, utf8)) << why;
        EXPECT_EQ(utf8, want) << why;
    }
}

TEST(Charset, OtherBytesHaveNoMark) {
    for (const std::string_view bytes :
         {std::string_view(), std::string_view("a"), std::string_view("BEGIN"),
          std::string_view("\0\0\0\0", 4), std::string_view("ab\0cdefgh", 9)}) {
        std::string utf8 = "former";
        EXPECT_FALSE(DecodeMarked(bytes, utf8));
        EXPECT_EQ(utf8, "former");
    }
}

}  // namespace orvo
