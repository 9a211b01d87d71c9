// Finding people and to-dos by any part of their texts.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cctype>

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

#include <people/ByteSearch.h>
#include <people/FindText.h>
#include <platform/text/Utf8.h>

namespace orvo {
namespace {

// Of the Unicode block Katakana, those that hiragana has too (U+30A1 to U+30F6), and how far away.
constexpr char32_t kFirstKatakana = 0x30A1;
constexpr char32_t kLastKatakana = 0x30F6;
constexpr char32_t kKanaDistance = 0x60;
// The marks of voiced kana make other letters, unlike accents.
constexpr char32_t kVoicedMark = 0x3099;
constexpr char32_t kSemiVoicedMark = 0x309A;
constexpr char32_t kHalfWidthVoicedMark = 0xFF9E;
constexpr char32_t kHalfWidthSemiVoicedMark = 0xFF9F;
constexpr char32_t kArabicTatweel = 0x0640;

// Two digits are too few to tell a number.
constexpr std::size_t kFewestDigits = 3;

struct Normalizers {
    const icu::Normalizer2* fold;
    const icu::Normalizer2* decompose;
    const icu::Normalizer2* compose;

    static const Normalizers& Get() {
        static const Normalizers all = [] {
            UErrorCode error = U_ZERO_ERROR;
            return Normalizers{icu::Normalizer2::getNFKCCasefoldInstance(error),
                               icu::Normalizer2::getNFDInstance(error),
                               icu::Normalizer2::getNFCInstance(error)};
        }();
        return all;
    }
};

bool IsPassedOver(char32_t c) {
    if (c == kVoicedMark || c == kSemiVoicedMark) return false;
    return c == kArabicTatweel || u_charType(static_cast<UChar32>(c)) == U_NON_SPACING_MARK;
}

// Of text that isn't ASCII.
std::string FoldUnicode(std::string_view utf8) {
    const Normalizers& normalizers = Normalizers::Get();
    UErrorCode error = U_ZERO_ERROR;
    icu::UnicodeString text = icu::UnicodeString::fromUTF8(
        icu::StringPiece(utf8.data(), static_cast<int32_t>(utf8.size())));
    text = normalizers.decompose->normalize(normalizers.fold->normalize(text, error), error);
    icu::UnicodeString kept;
    for (int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        auto c = static_cast<char32_t>(text.char32At(i));
        if (IsPassedOver(c)) continue;
        if (c >= kFirstKatakana && c <= kLastKatakana) c -= kKanaDistance;
        kept.append(static_cast<UChar32>(c));
    }
    std::string folded;
    normalizers.compose->normalize(kept, error).toUTF8String(folded);
    return U_SUCCESS(error) ? folded : std::string(utf8);
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string DigitsOf(std::string_view folded) {
    std::string digits;
    std::copy_if(folded.begin(), folded.end(), std::back_inserter(digits), IsDigit);
    return digits;
}

// True for what people write in a number only.
bool IsNumberText(std::string_view folded) {
    return folded.find_first_not_of("0123456789+-./()# ") == std::string_view::npos;
}

// One that a 0 opens, or 00 before the code of a country, is the same without it.
std::string NumberOf(std::string_view word) {
    if (!IsNumberText(word)) return {};
    std::string digits = DigitsOf(word);
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    return digits.size() < kFewestDigits ? std::string() : digits;
}

bool IsMark(char32_t c) {
    const auto type = u_charType(static_cast<UChar32>(c));
    return type == U_NON_SPACING_MARK || type == U_COMBINING_SPACING_MARK ||
           c == kHalfWidthVoicedMark || c == kHalfWidthSemiVoicedMark;
}

// The length of the character with which a text begins, its marks included.
std::size_t CharacterLength(std::string_view utf8) {
    std::size_t length = FirstCodePoint(utf8).length;
    while (length < utf8.size()) {
        const CodePoint next = FirstCodePoint(utf8.substr(length));
        if (!IsMark(next.value)) break;
        length += next.length;
    }
    return length;
}

}  // namespace

std::string FoldForFind(std::string_view utf8) {
    const std::size_t ascii = AsciiLength(utf8);
    if (ascii != utf8.size()) return FoldUnicode(utf8);
    std::string folded(utf8);
    for (char& c : folded) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return folded;
}

void FindText::Add(std::string_view utf8) {
    if (utf8.empty()) return;
    folded += FoldForFind(utf8);
    folded += '\n';
}

void FindText::AddDigits(std::string_view number) {
    const std::string digits = DigitsOf(FoldForFind(number));
    if (digits.size() < kFewestDigits) return;
    numbers += digits;
    numbers += '\n';
}

FindQuery::FindQuery(std::string_view typed) {
    const std::string folded = FoldForFind(typed);
    for (std::string_view rest = folded; !rest.empty();) {
        const std::size_t begin = std::min(rest.find_first_not_of(" \t\r\n"), rest.size());
        rest.remove_prefix(begin);
        const std::string_view word = rest.substr(0, rest.find_first_of(" \t\r\n"));
        rest.remove_prefix(word.size());
        if (!word.empty()) m_words.push_back({std::string(word), NumberOf(word)});
    }
}

bool FindQuery::Matches(std::string_view folded, std::string_view numbers) const {
    return std::all_of(m_words.begin(), m_words.end(), [&](const Word& word) {
        if (FindBytes(folded, word.folded) != std::string_view::npos) return true;
        return FindBytes(numbers, word.digits) != std::string_view::npos;
    });
}

bool FindQuery::IsWithin(const FindQuery& other) const {
    const auto holds = [](const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    };
    // A word that has become long enough for a number matches in more places than before.
    const auto isWithin = [&](const Word& word, const Word& outer) {
        const bool isWithinDigits = !outer.digits.empty() && holds(word.digits, outer.digits);
        return holds(word.folded, outer.folded) && (word.digits.empty() || isWithinDigits);
    };
    return std::all_of(other.m_words.begin(), other.m_words.end(), [&](const Word& outer) {
        return std::any_of(m_words.begin(), m_words.end(),
                           [&](const Word& word) { return isWithin(word, outer); });
    });
}

std::vector<TextRange> FindQuery::RangesIn(std::string_view utf8) const {
    std::string folded;
    std::string digits;
    std::vector<std::size_t> places;       // of each byte of `folded`, in the text
    std::vector<std::size_t> digitPlaces;  // the same of `digits`
    for (std::size_t place = 0; place < utf8.size();) {
        const std::size_t length = CharacterLength(utf8.substr(place));
        for (const char c : FoldForFind(utf8.substr(place, length))) {
            folded += c;
            places.push_back(place);
            if (!IsDigit(c)) continue;
            digits += c;
            digitPlaces.push_back(place);
        }
        place += length;
    }
    std::vector<TextRange> ranges;
    const auto mark = [&](const std::string& word, const std::string& text,
                          const std::vector<std::size_t>& placesOf) {
        for (std::size_t at = text.find(word); !word.empty() && at != std::string::npos;
             at = text.find(word, at + word.size())) {
            const std::size_t last = placesOf[at + word.size() - 1];
            ranges.push_back({placesOf[at], last + CharacterLength(utf8.substr(last))});
        }
    };
    for (const Word& word : m_words) {
        mark(word.folded, folded, places);
        if (IsNumberText(folded)) mark(word.digits, digits, digitPlaces);
    }
    std::sort(ranges.begin(), ranges.end(),
              [](const TextRange& a, const TextRange& b) { return a.begin < b.begin; });
    std::vector<TextRange> joined;
    for (const TextRange& range : ranges) {
        if (joined.empty() || range.begin > joined.back().end) {
            joined.push_back(range);
        } else {
            joined.back().end = std::max(joined.back().end, range.end);
        }
    }
    return joined;
}

}  // namespace orvo
