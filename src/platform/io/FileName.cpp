// Names of files that are made from texts of others.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <platform/io/FileName.h>

namespace orvo {
namespace {

constexpr std::size_t kLongest = 120;
constexpr std::size_t kLongestEnding = 10;
constexpr std::string_view kSigns = ".-_";
constexpr std::string_view kNoStart = " .-";
constexpr std::string_view kNoEnd = " .";

// The next character from `at` on, which moves behind it; below 0 for bytes that are none.
UChar32 Next(std::string_view text, std::size_t& at) {
    UChar32 character = 0;
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    U8_NEXT(bytes, at, text.size(), character);
    return character;
}

bool IsPlain(UChar32 character) {
    constexpr std::uint32_t kPlain = U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK;
    if (character < 0x80 && character >= 0) {
        const char ascii = static_cast<char>(character);
        return (U_MASK(u_charType(character)) & kPlain) != 0 ||
               kSigns.find(ascii) != std::string_view::npos;
    }
    return character >= 0 && (U_MASK(u_charType(character)) & kPlain) != 0;
}

std::string OfPlainCharacters(std::string_view text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const UChar32 character = Next(text, at);
        if (IsPlain(character)) {
            plain += text.substr(start, at - start);
        } else if (character >= 0 && u_charType(character) == U_SPACE_SEPARATOR) {
            plain += ' ';
        } else if (character >= 0 && u_charType(character) == U_FORMAT_CHAR) {
            continue;
        } else if (!plain.ends_with('_')) {
            plain += '_';
        }
    }
    return plain;
}

void Trim(std::string& name) {
    name.erase(0, std::min(name.find_first_not_of(kNoStart), name.size()));
    name.erase(name.find_last_not_of(kNoEnd) + 1);
}

// The first bytes of `text`, with no character cut.
std::string_view Start(std::string_view text, std::size_t bytes) {
    while (bytes > 0 && U8_IS_TRAIL(static_cast<std::uint8_t>(text[bytes]))) --bytes;
    return text.substr(0, bytes);
}

}  // namespace

std::string PlainFileName(std::string_view text) {
    std::string name = OfPlainCharacters(text);
    Trim(name);
    if (name.size() > kLongest) {
        const std::size_t point = name.rfind('.');
        const bool hasEnding =
            point != std::string::npos && point > 0 && name.size() - point <= kLongestEnding;
        const std::string ending = hasEnding ? name.substr(point) : std::string();
        name = std::string(Start(name, kLongest - ending.size()));
        Trim(name);
        name += ending;
    }
    return name.empty() ? "_" : name;
}

bool IsPlainPath(std::string_view path) {
    char before = '/';
    for (std::size_t at = 0; at < path.size();) {
        const char first = path[at];
        const UChar32 character = Next(path, at);
        const bool isStartOfOption = first == '-' && before == '/';
        if (isStartOfOption || (first != '/' && first != ' ' && !IsPlain(character))) return false;
        before = first;
    }
    return true;
}

}  // namespace orvo
