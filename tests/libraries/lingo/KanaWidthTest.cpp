// Japanese script is told from other text, and folded to one form, on both code pages.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <contracts/TextServices.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemText.h>
#include <support/LocaleInForce.h>

namespace orvo {

namespace {

struct FoldRow {
    const char *why, *in, *want;
};
constexpr FoldRow kFoldRows[] = {
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

struct ScriptRow {
    const char *why, *in;
    bool want;
};
constexpr ScriptRow kScriptRows[] = {
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
    for (const FoldRow& row : kFoldRows) {
        CString text = SystemText(row.in);
        ToFullwidthAndHira(text);
        EXPECT_EQ(text, SystemText(row.want)) << row.why;
    }
}

TEST_P(Japanese, KanjiAndKanaAreTold) {
    for (const ScriptRow& row : kScriptRows)
        EXPECT_EQ(is_kanji_or_kana_string(SystemText(row.in)), row.want) << row.why;
    EXPECT_FALSE(is_kanji_or_kana_string(nullptr));
}

TEST_P(Japanese, BytesThatStandForNothingAreNotTouchedByFolding) {
    CString text("a\x81");
    ToFullwidthAndHira(text);
    EXPECT_EQ(text, "a\x81");
}

}  // namespace

}  // namespace orvo
