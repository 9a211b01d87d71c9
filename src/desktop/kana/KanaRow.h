// The rows of the kana table, by which Japanese lists are looked through.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace orvo::desktop {

// Other is for all that doesn't begin with a kana: Latin letters, digits, kanji without a reading.
enum class KanaRow { A, Ka, Sa, Ta, Na, Ha, Ma, Ya, Ra, Wa, Other };
constexpr int kKanaRowCount = 11;

// The row of the first character of a UTF-8 text, whether hiragana or katakana, of full or half
// width, voiced or small. An empty text, one that begins with the long mark or with a broken
// sequence is of the row Other.
KanaRow KanaRowOf(std::string_view utf8);

}  // namespace orvo::desktop
