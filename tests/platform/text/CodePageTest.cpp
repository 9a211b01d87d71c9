// UTF-8 and the code pages: what each byte and character becomes, and where texts are cut.
// SPDX-License-Identifier: MIT
#include <thread>
#include <tuple>

#include <gtest/gtest.h>

#include <platform/text/Charset.h>
#include <platform/text/CodePage.h>
#include <platform/text/CodePage932.h>
#include <platform/text/Utf8.h>

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
std::string LackingCharacters(std::size_t count) {
    constexpr char32_t kFirstEmoji = 0x1F300;
    std::string utf8;
    for (std::size_t i = 0; i < count; ++i)
        AppendCodePoint(kFirstEmoji + static_cast<char32_t>(i), utf8);
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

}  // namespace
}  // namespace orvo
