// The row of the kana table of which a text is.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <desktop/kana/KanaRow.h>

namespace orvo::desktop {
namespace {

using enum KanaRow;

struct Row {
    const char* why;
    const char* in;
    KanaRow want;
};
constexpr Row kCases[] = {
    {"the first character decides", "あべ かおる", A},
    {"a small vowel", "ぁ", A},
    {"a voiced vowel", "ゔぇる", A},
    {"the same in katakana", "ヴェール", A},
    {"half width with a sound mark of its own", "ｳﾞ", A},
    {"hiragana", "くどう", Ka},
    {"voiced", "ごとう", Ka},
    {"half width, voiced", "ｶﾞﾗｽ", Ka},
    {"a small ka", "ゕ", Ka},
    {"a small ke of katakana", "ヶ", Ka},
    {"the last before the next row", "ぞ", Sa},
    {"voiced katakana", "ジョン", Sa},
    {"a small tsu", "っ", Ta},
    {"a small tsu of half width", "ｯ", Ta},
    {"voiced", "どい", Ta},
    {"a row without voiced forms", "ノダ", Na},
    {"half-voiced", "パク", Ha},
    {"voiced", "ぼん", Ha},
    {"half width", "ﾎﾝﾏ", Ha},
    {"the small letters of Ainu", "ㇷ゚", Ha},
    {"between ha and ya", "モリ", Ma},
    {"a small ya", "ゃ", Ya},
    {"a small yo of half width", "ｮ", Ya},
    {"the last of the row", "ろ", Ra},
    {"a small wa", "ゎ", Wa},
    {"an old kana", "ゑ", Wa},
    {"wo of half width, which stands before all others", "ｦ", Wa},
    {"n", "ん", Wa},
    {"n of half width", "ﾝ", Wa},
    {"a voiced wa", "ヷ", Wa},
    {"the long mark says nothing by itself", "ー", Other},
    {"the long mark of half width", "ｰ", Other},
    {"a repetition mark", "ゝ", Other},
    {"the middle dot behind the katakana", "・", Other},
    {"kanji", "阿部", Other},
    {"Latin", "Abe", Other},
    {"Latin of full width", "Ａｂｅ", Other},
    {"a digit", "3", Other},
    {"a character above the first plane", "😀", Other},
    {"nothing", "", Other},
    {"half a character", "\xE3\x81", Other},
};

TEST(KanaRow, IsThatOfTheFirstKanaInEachOfItsForms) {
    for (const Row& row : kCases) EXPECT_EQ(KanaRowOf(row.in), row.want) << row.why;
}

}  // namespace
}  // namespace orvo::desktop
