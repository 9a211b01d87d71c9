// UTF-8 steps: broken sequences, lone surrogates, and the way there and back.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <platform/text/Charset.h>
#include <platform/text/Utf8.h>

namespace orvo {

namespace {

struct BrokenRow {
    const char *why, *in;
    std::u16string_view want;
};
constexpr BrokenRow kBrokenRows[] = {
    {"a lone trail byte", "a\x80z", u"a\uFFFDz"},
    {"a character cut short gives one for each byte", "\xE3\x81", u"\uFFFD\uFFFD"},
    {"an overlong form", "\xC0\xAF", u"\uFFFD\uFFFD"},
    {"a surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
    {"above U+10FFFF", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"the next character is read on its own", "\xE3あ", u"\uFFFDあ"},
};

TEST(Utf8, EachBrokenByteIsReplaced) {
    for (const BrokenRow& row : kBrokenRows) {
        EXPECT_EQ(Utf8ToUtf16(row.in), row.want) << row.why;
        EXPECT_FALSE(IsValidUtf8(row.in)) << row.why;
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

}  // namespace

}  // namespace orvo
