// CString and arrays of texts: positions, changes, characters of several bytes, case.
// SPDX-License-Identifier: MIT
#include <stdexcept>
#include <tuple>

#include <gtest/gtest.h>

#include <platform/text/Arrays.h>
#include <platform/text/CString.h>
#include <support/LocaleInForce.h>

namespace orvo {

// In page 932 the second byte of this character is a backslash.
constexpr char kTrailIsBackslash[] = "\x95\x5C";

TEST(CString, APositionOutsideTheTextGivesNothing) {
    const CString text("abc");

    EXPECT_EQ(text.Left(-1) + text.Right(-2147483647 - 1) + text.Mid(3) + text.Mid(-1), "");
    EXPECT_EQ(text.Left(9), "abc");
    EXPECT_EQ(text.Right(9), "abc");
    EXPECT_EQ(text.Mid(1, 2147483647), "bc");
    EXPECT_EQ(text.GetAt(3), '\0');
    EXPECT_EQ(text.Find('a', 4), -1);
    EXPECT_EQ(text.Find("a", -1), -1);
}

TEST(CString, ChangesCountAndTellTheNewLength) {
    CString text("a-b-c");

    EXPECT_EQ(text.Replace("-", "--"), 2);
    EXPECT_EQ(text.Replace('a', 'a'), 0);
    EXPECT_EQ(text.Remove('-'), 4);
    EXPECT_EQ(text, "abc");
    EXPECT_EQ(text.Insert(99, "de"), 5);
    EXPECT_EQ(text.Insert(-1, '_'), 6);
    EXPECT_EQ(text.Delete(0), 5);
    EXPECT_EQ(text.Delete(3, 99), 3);
    EXPECT_EQ(text.Delete(3), 3);
    EXPECT_EQ(text, "abc");
}

TEST(CString, AZeroByteIsAByteLikeOthers) {
    CString text("a\0b", 3);

    EXPECT_EQ(text.Find('b'), 2);
    EXPECT_EQ(text.Remove('\0'), 1);
}

TEST(CString, FormatMayUseTheTextItself) {
    CString text("ab");
    text.Format("%s-%s-%d%%", static_cast<const char*>(text), static_cast<const char*>(text), 7);

    EXPECT_EQ(text, "ab-ab-7%");
}

TEST(CString, TrimmingTakesOnlyTheEnds) {
    CString text("\t\r\n a b \v\f");
    text.TrimLeft();
    text.TrimRight();
    EXPECT_EQ(text, "a b");
    CString path("//a/b//");
    path.TrimLeft("/");
    path.TrimRight("/");
    EXPECT_EQ(path, "a/b");
    path.TrimRight("ab/");
    EXPECT_EQ(path, "");
}

TEST(CString, ATrailByteIsNoCharacter) {
    const LocaleInForce japanese("ja-JP", 932);
    const CString name = CString(kTrailIsBackslash) + "\\x" + kTrailIsBackslash;

    EXPECT_EQ(name.Find('\\'), 2);
    EXPECT_EQ(name.ReverseFind('\\'), 2);
    EXPECT_EQ(name.Find("\\x"), 2);
    EXPECT_EQ(name.FindOneOf("x\\"), 2);
    EXPECT_EQ(name.SpanExcluding("\\"), kTrailIsBackslash);
    EXPECT_EQ(name.SpanIncluding(kTrailIsBackslash), kTrailIsBackslash);

    CString changed = name;
    EXPECT_EQ(changed.Replace('\\', '/'), 1);
    EXPECT_EQ(changed.Replace("/", "\\\\"), 1);
    EXPECT_EQ(changed.Remove('\\'), 2);
    EXPECT_EQ(changed, CString(kTrailIsBackslash) + "x" + kTrailIsBackslash);
    changed.TrimRight("\\");
    EXPECT_EQ(changed.GetLength(), 5);
    const LocaleInForce western("de-DE", 1252);
    EXPECT_EQ(CString(kTrailIsBackslash).Find('\\'), 1) << "a byte of its own on other pages";
}

constexpr std::tuple<const char*, const char*, unsigned, const char*, const char*> kCaseRows[] = {
    {"letters of UTF-8", "de-DE", 65001, "añ1ж", "AÑ1Ж"},
    {"no letter becomes two", "de-DE", 65001, "straße", "STRAßE"},
    {"broken bytes stay", "de-DE", 65001, "a\xFF\xC3z", "A\xFF\xC3Z"},
    {"letters of an 8-bit page", "de-DE", 1252, "a\xE4", "A\xC4"},
    {"the page lacks the capital", "de-DE", 28591, "a\xFF", "A\xFF"},
    {"a trail byte is no letter", "ja-JP", 932, "a\x83\x61\x82\x81", "A\x83\x61\x82\x60"},
};

TEST(CString, CaseIsMappedByCharacter) {
    for (const auto& [why, tag, codePage, in, upper] : kCaseRows) {
        const LocaleInForce locale(tag, codePage);
        CString text(in);
        text.MakeUpper();
        EXPECT_EQ(text, upper) << why;
        EXPECT_EQ(CString(in).CompareNoCase(upper), 0) << why;
    }
    const LocaleInForce locale("en-US");
    CString lower("ÄB");
    lower.MakeLower();
    EXPECT_EQ(lower, "äb");
}

TEST(CString, ComparisonKeepsTheOrderOfLetters) {
    EXPECT_LT(CString("a_").CompareNoCase("AB"), 0);
    EXPECT_LT(CString("ab").CompareNoCase("ABC"), 0);
    EXPECT_GT(CString("ä").CompareNoCase("Z"), 0);
    EXPECT_LT(CString("a").Compare("\xFF"), 0);
}

TEST(Array, RemovingEndsAtTheEndAndInsertingBehindItFillsUp) {
    CStringArray texts;
    EXPECT_EQ(texts.Add("a"), 0);
    texts.InsertAt(2, "c");
    texts.InsertAt(0, "_");
    ASSERT_EQ(texts.GetSize(), 4);
    EXPECT_EQ(texts[2], "");
    EXPECT_EQ(texts[3], "c");

    texts.RemoveAt(1, -1);
    EXPECT_EQ(texts.GetSize(), 4);
    texts.RemoveAt(1, 2147483647);
    EXPECT_EQ(texts.GetUpperBound(), 0);
}

TEST(Array, APositionOutsideIsAFaultOfTheCaller) {
    CStringArray texts;
    texts.Add("a");

    EXPECT_THROW(texts.GetAt(1), std::out_of_range);
    EXPECT_THROW(texts.SetAt(-1, ""), std::out_of_range);
    EXPECT_THROW(texts.RemoveAt(1), std::out_of_range);
    EXPECT_THROW(texts.InsertAt(-1, ""), std::out_of_range);
}

}  // namespace orvo
