// Names, cuts, white space, and the kana and widths of Japanese.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <contracts/TextServices.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemText.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

constexpr const char* kNameRows[][6] = {
    {"family name first in a list", "en-US", "Ann", "Lee", "Lee, Ann", "Ann Lee"},
    {"no first name", "en-US", "", "Lee", "Lee", "Lee"},
    {"no family name", "en-US", "Ann", "", "Ann", "Ann"},
    {"no name", "en-US", "", "", "", ""},
    {"Hungarian", "hu-HU", "Anna", "Nagy", "Nagy Anna", "Nagy Anna"},
    {"Japanese, on its own code page", "ja-JP", "\x89\xD4", "\x8E\x52", "\x8E\x52 \x89\xD4",
     "\x8E\x52 \x89\xD4"},
    {"no separator at the end", "hu-HU", "", "Nagy", "Nagy", "Nagy"},
    {"Cantonese", "yue-HK", "Tai Man", "Chan", "Chan Tai Man", "Chan Tai Man"},
};

TEST(FullName, FollowsTheLanguageAndLeavesNoSeparatorBesideAnEmptyPart) {
    for (const auto& [why, tag, first, name, list, reading] : kNameRows) {
        const LocaleInForce locale(tag);
        EXPECT_EQ(FullName(first, name, true), list) << why;
        EXPECT_EQ(FullName(first, name, false), reading) << why;
    }
}

TEST(Cut, ASplitCharacterGoesOrStays) {
    const LocaleInForce locale("en-US", 932);
    for (const auto& [limit, shorter, longer] :
         {std::tuple{2, "a", "a\x82\xA0"}, {3, "a\x82\xA0", "a\x82\xA0"}, {-5, "", ""}}) {
        CString without("a\x82\xA0");
        CString with(without);
        LeftAndValidateDec(without, limit);
        LeftAndValidateInc(with, limit);
        EXPECT_EQ(without, shorter) << limit;
        EXPECT_EQ(with, longer) << limit;
    }
}

using TextRow = std::tuple<const char*, unsigned, std::string, std::string>;

TEST(AppendBackslash, EndsTheTextWithOneBackslash) {
    const TextRow rows[] = {
        {"none yet", 932, "C:\\a", "C:\\a\\"},
        {"there already", 932, "C:\\", "C:\\"},
        {"a trail byte is none", 932, "C:\\\x95\x5C", "C:\\\x95\x5C\\"},
        {"a character before it", 932, "\x82\xA0\\", "\x82\xA0\\"},
        {"on another page it is one", 1252, "\x95\x5C", "\x95\x5C"},
        {"nothing", 932, "", "\\"},
    };
    for (const auto& [why, page, in, want] : rows) {
        const LocaleInForce locale("en-US", page);
        CString text(in);
        AppendBackslash(text);
        EXPECT_EQ(text, CString(want)) << why;
    }
}

TEST(RemoveLeadingSpacesEx, LeavesTheStartOfTheFirstLineWithText) {
    const std::string longText(256, 'x');
    const TextRow rows[] = {
        {"ordinary text", 65001, "buy milk", "buy milk"},
        {"all kinds of leading white space", 65001, " \t\r\n\n a b ", "a b "},
        {"ends at a carriage return", 65001, " a\r\nb", "a"},
        {"ends at a tab", 65001, "a\tb", "a"},
        {"a line feed alone stays", 65001, "a\nb", "a\nb"},
        {"a vertical tab is no blank", 65001, "\va", "\va"},
        {"nor is a wide one", 65001, "　a", "　a"},
        {"nor one of two bytes", 932, "\x81\x40z", "\x81\x40z"},
        {"only white space", 65001, " \t\r\n", ""},
        {"nothing", 65001, "", ""},
        {"256 bytes fit", 65001, longText, longText},
        {"the rest goes", 65001, " " + longText + "y", longText},
        {"no character is split", 65001, longText.substr(1) + "é", longText.substr(1)},
        {"no pair is split", 932, longText.substr(1) + "\x82\xA0", longText.substr(1)},
    };
    for (const auto& [why, page, in, want] : rows) {
        const LocaleInForce locale("en-US", page);
        CString text(in);
        RemoveLeadingSpacesEx(text);
        EXPECT_EQ(text, CString(want)) << why;
    }
}

constexpr const char* kFoldRows[][3] = {
    {"katakana", "タナカ", "たなか"},
    {"half-width katakana", "ﾀﾅｶ ﾕｳｺ", "たなか ゆうこ"},
    {"a sound mark joins its kana", "ｶﾞﾎﾞﾊﾟｳﾞ", "がぼぱゔ"},
    {"a sound mark that can't join stands alone", "ﾅﾞﾞｶﾟﾟ", "な゛゛か゜゜"},
    {"a sound mark joins half-width kana only", "カﾞ", "か゛"},
    {"the long mark stays", "ハート", "はーと"},
    {"the half-width long mark", "ﾊｰﾄ", "はーと"},
    {"half-width marks", "｡｢｣､･", "。「」、・"},
    {"small kana", "ｧｯｮヵヶ", "ぁっょゕゖ"},
    {"what has no hiragana stays", "ヷヺ・", "ヷヺ・"},
    {"iteration marks", "ヽヾ", "ゝゞ"},
    {"the wide forms of ASCII", "Ａｚ０！～　", "Az0!~ "},
    {"kanji, hiragana and letters stay", "山あaé\\", "山あaé\\"},
    {"beyond the first plane", "😀ア", "😀あ"},
    {"ASCII", "abc", "abc"},
    {"nothing", "", ""},
};

constexpr std::tuple<const char*, const char*, bool> kScriptRows[] = {
    {"hiragana", "abcあ", true},
    {"katakana", "ア", true},
    {"half-width katakana", "ｱ", true},
    {"kanji", "山", true},
    {"rare kanji", "𠮷", true},
    {"the repeat mark", "々", true},
    {"the closing mark", "〆", true},
    {"wide letters are none", "Ａ１", false},
    {"marks are none", "、。・", false},
    {"other letters are none", "éЖ한", false},
    {"ASCII", "abc", false},
    {"nothing", "", false},
};

class Japanese : public testing::TestWithParam<unsigned> {
    LocaleInForce m_locale{"ja-JP", GetParam()};
};
INSTANTIATE_TEST_SUITE_P(CodePages, Japanese, testing::Values(kUtf8CodePage, kJapaneseCodePage));

TEST_P(Japanese, WidthAndKanaFoldToOneForm) {
    for (const auto& [why, in, want] : kFoldRows) {
        CString text = SystemText(in);
        ToFullwidthAndHira(text);
        EXPECT_EQ(text, SystemText(want)) << why;
    }
}

TEST_P(Japanese, KanjiAndKanaAreTold) {
    for (const auto& [why, in, want] : kScriptRows)
        EXPECT_EQ(is_kanji_or_kana_string(SystemText(in)), want) << why;
    EXPECT_FALSE(is_kanji_or_kana_string(nullptr));
}

TEST_P(Japanese, BytesThatStandForNothingAreNotTouchedByFolding) {
    CString text("a\x81");
    ToFullwidthAndHira(text);
    EXPECT_EQ(text, "a\x81");
}

}  // namespace
}  // namespace orvo
