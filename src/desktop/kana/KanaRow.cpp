// The rows of the kana table, by which Japanese lists are looked through.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <desktop/kana/KanaRow.h>
#include <platform/text/Utf8.h>

namespace orvo::desktop {
namespace {

// The characters from here to the next line's first are of the row. A half-width sound mark stands
// behind its kana, and so changes no row.
struct FirstOfRow {
    char32_t character;
    KanaRow row;
};
constexpr FirstOfRow kRows[] = {
    {0, KanaRow::Other},         {U'ぁ', KanaRow::A},         {U'か', KanaRow::Ka},
    {U'さ', KanaRow::Sa},        {U'た', KanaRow::Ta},        {U'な', KanaRow::Na},
    {U'は', KanaRow::Ha},        {U'ま', KanaRow::Ma},        {U'ゃ', KanaRow::Ya},
    {U'ら', KanaRow::Ra},        {U'ゎ', KanaRow::Wa},        {U'ゔ', KanaRow::A},
    {U'ゕ', KanaRow::Ka},        {U'ゖ' + 1, KanaRow::Other}, {U'ァ', KanaRow::A},
    {U'カ', KanaRow::Ka},        {U'サ', KanaRow::Sa},        {U'タ', KanaRow::Ta},
    {U'ナ', KanaRow::Na},        {U'ハ', KanaRow::Ha},        {U'マ', KanaRow::Ma},
    {U'ャ', KanaRow::Ya},        {U'ラ', KanaRow::Ra},        {U'ヮ', KanaRow::Wa},
    {U'ヴ', KanaRow::A},         {U'ヵ', KanaRow::Ka},        {U'ヷ', KanaRow::Wa},
    {U'ヺ' + 1, KanaRow::Other}, {U'ㇰ', KanaRow::Ka},        {U'ㇱ', KanaRow::Sa},
    {U'ㇳ', KanaRow::Ta},        {U'ㇴ', KanaRow::Na},        {U'ㇵ', KanaRow::Ha},
    {U'ㇺ', KanaRow::Ma},        {U'ㇻ', KanaRow::Ra},        {U'ㇿ' + 1, KanaRow::Other},
    {U'ｦ', KanaRow::Wa},         {U'ｧ', KanaRow::A},          {U'ｬ', KanaRow::Ya},
    {U'ｯ', KanaRow::Ta},         {U'ｰ', KanaRow::Other},      {U'ｱ', KanaRow::A},
    {U'ｶ', KanaRow::Ka},         {U'ｻ', KanaRow::Sa},         {U'ﾀ', KanaRow::Ta},
    {U'ﾅ', KanaRow::Na},         {U'ﾊ', KanaRow::Ha},         {U'ﾏ', KanaRow::Ma},
    {U'ﾔ', KanaRow::Ya},         {U'ﾗ', KanaRow::Ra},         {U'ﾜ', KanaRow::Wa},
    {U'ﾞ', KanaRow::Other}};
static_assert(std::ranges::is_sorted(kRows, {}, &FirstOfRow::character));

}  // namespace

KanaRow KanaRowOf(std::string_view utf8) {
    const char32_t first = FirstCodePoint(utf8).value;
    return (std::ranges::upper_bound(kRows, first, {}, &FirstOfRow::character) - 1)->row;
}

}  // namespace orvo::desktop
