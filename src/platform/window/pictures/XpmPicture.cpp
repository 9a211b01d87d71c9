// Pictures in the text form XPM 3, as paint programs write it.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <vector>

#include <platform/window/dialogs/ResourceWords.h>
#include <platform/window/pictures/XpmPicture.h>

namespace orvo {
namespace {

constexpr std::string_view kHead = "/* XPM */";
constexpr std::string_view kWhiteSpace = " \t\r\n";
constexpr std::string_view kExtension = "XPMEXT";
constexpr std::string_view kOutlineExtension = "XPMEXT outline ";
constexpr int kGreatestSide = 4096;
constexpr int kGreatestNameLength = 8;  // characters for one pixel

struct NamedColour {
    std::string_view name;
    COLORREF colour;
};
constexpr NamedColour kNamedColours[] = {
    {"black", RGB(0, 0, 0)},    {"white", RGB(255, 255, 255)}, {"red", RGB(255, 0, 0)},
    {"green", RGB(0, 255, 0)},  {"blue", RGB(0, 0, 255)},      {"yellow", RGB(255, 255, 0)},
    {"cyan", RGB(0, 255, 255)}, {"magenta", RGB(255, 0, 255)},
};

// What a pixel's name stands for; no colour is None.
using Colours = std::map<std::string_view, std::optional<COLORREF>>;

struct Values {
    int width = 0;
    int height = 0;
    int colours = 0;
    int nameLength = 0;
    std::optional<CPoint> hotSpot;
    bool hasExtensions = false;
};

// The texts between quotes, outside comments; nothing where one has no end.
std::optional<std::vector<std::string_view>> QuotedTexts(std::string_view text) {
    std::vector<std::string_view> quoted;
    while (true) {
        const std::size_t comment = text.find("/*");
        const std::size_t quote = text.find('"');
        if (quote == std::string_view::npos) return quoted;
        const bool inComment = comment < quote;
        const std::size_t begin = inComment ? comment + 2 : quote + 1;
        const std::string_view endMark = inComment ? "*/" : "\"";
        const std::size_t end = text.find(endMark, begin);
        if (end == std::string_view::npos) return std::nullopt;
        if (!inComment) quoted.push_back(text.substr(begin, end - begin));
        text.remove_prefix(end + endMark.size());
    }
}

std::optional<Values> ReadValues(std::string_view line) {
    std::vector<std::string_view> words = SplitWords(line);
    const bool hasExtensions = !words.empty() && words.back() == kExtension;
    if (hasExtensions) words.pop_back();
    std::vector<int> numbers;
    for (const std::string_view word : words) {
        const std::optional<int> number = NumberOf(word);
        if (!number) return std::nullopt;
        numbers.push_back(*number);
    }
    if (numbers.size() != 4 && numbers.size() != 6) return std::nullopt;
    Values values{numbers[0], numbers[1], numbers[2], numbers[3], std::nullopt, hasExtensions};
    const auto isWithin = [](int value, int greatest) { return value >= 1 && value <= greatest; };
    if (!isWithin(values.width, kGreatestSide) || !isWithin(values.height, kGreatestSide) ||
        !isWithin(values.colours, kGreatestSide * kGreatestSide) ||
        !isWithin(values.nameLength, kGreatestNameLength)) {
        return std::nullopt;
    }
    if (numbers.size() == 6) values.hotSpot = CPoint{numbers[4], numbers[5]};
    return values;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    const auto small = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::ranges::equal(left, right, {}, small, small);
}

// Hexadecimal digits, of which each part has two or four; the first two of a part count.
std::optional<COLORREF> ReadDigits(std::string_view digits) {
    if (digits.size() != 6 && digits.size() != 12) return std::nullopt;
    const std::size_t partLength = digits.size() / 3;
    const auto isDigit = [](char c) {
        return std::string_view("0123456789abcdefABCDEF").find(c) != std::string_view::npos;
    };
    if (!std::ranges::all_of(digits, isDigit)) return std::nullopt;
    unsigned parts[3] = {};
    for (std::size_t i = 0; i < 3; ++i) {
        const char* const part = digits.data() + i * partLength;
        std::from_chars(part, part + 2, parts[i], 16);
    }
    return RGB(parts[0], parts[1], parts[2]);
}

std::optional<COLORREF> ReadColour(std::string_view word) {
    if (word.starts_with('#')) return ReadDigits(word.substr(1));
    const auto* const found = std::ranges::find_if(kNamedColours, [&](const NamedColour& each) {
        return EqualsIgnoringCase(each.name, word);
    });
    return found == std::end(kNamedColours) ? std::nullopt : std::optional(found->colour);
}

// Adds what a line such as "x c #000000" or "x s mask c None" names.
bool AddColour(std::string_view line, std::size_t nameLength, Colours& colours) {
    if (line.size() < nameLength) return false;
    const std::vector<std::string_view> words = SplitWords(line.substr(nameLength));
    const auto key = std::ranges::find(words, "c");
    if (key == words.end() || key + 1 == words.end()) return false;
    const std::string_view word = *(key + 1);
    const std::optional<COLORREF> colour = ReadColour(word);
    if (!colour && !EqualsIgnoringCase(word, "none")) return false;
    return colours.emplace(line.substr(0, nameLength), colour).second;
}

// The first colour from magenta on that the picture doesn't have.
COLORREF UnusedColour(const Colours& colours) {
    std::set<COLORREF> used;
    for (const auto& [name, colour] : colours) {
        if (colour) used.insert(*colour);
    }
    COLORREF unused = RGB(255, 0, 255);
    while (used.contains(unused)) --unused;
    return unused;
}

bool DrawRow(std::string_view row, int y, const Values& values, const Colours& colours,
             XpmPicture& picture) {
    const auto nameLength = static_cast<std::size_t>(values.nameLength);
    for (int x = 0; x < values.width; ++x) {
        const auto found =
            colours.find(row.substr(static_cast<std::size_t>(x) * nameLength, nameLength));
        if (found == colours.end()) return false;
        picture.pixels.SetPixel({x, y}, found->second.value_or(picture.clear));
    }
    return true;
}

}  // namespace

std::optional<XpmPicture> ReadXpmPicture(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
    if (!text.starts_with(kHead)) return std::nullopt;
    const auto lines = QuotedTexts(text);
    if (!lines || lines->empty()) return std::nullopt;
    const std::optional<Values> values = ReadValues(lines->front());
    if (!values) return std::nullopt;
    const auto colourLines = static_cast<std::size_t>(values->colours);
    const auto nameLength = static_cast<std::size_t>(values->nameLength);
    const std::size_t rowLength = static_cast<std::size_t>(values->width) * nameLength;
    const std::size_t lineCount = 1 + colourLines + static_cast<std::size_t>(values->height);
    if (lines->size() < lineCount || (lines->size() > lineCount && !values->hasExtensions)) {
        return std::nullopt;
    }
    // Checked before anything is made, so that a picture isn't larger than its text.
    const auto firstRow = lines->begin() + 1 + values->colours;
    const auto hasRowLength = [&](std::string_view row) { return row.size() == rowLength; };
    const auto behindRows = firstRow + values->height;
    if (!std::all_of(firstRow, behindRows, hasRowLength)) return std::nullopt;

    Colours colours;
    for (auto line = lines->begin() + 1; line != firstRow; ++line) {
        if (!AddColour(*line, nameLength, colours)) return std::nullopt;
    }
    XpmPicture picture;
    picture.clear = UnusedColour(colours);
    picture.hotSpot = values->hotSpot;
    picture.pixels.Create({values->width, values->height}, picture.clear);
    for (int y = 0; y < values->height; ++y) {
        if (!DrawRow(firstRow[y], y, *values, colours, picture)) return std::nullopt;
    }
    for (auto line = behindRows; line != lines->end(); ++line) {
        if (!line->starts_with(kOutlineExtension)) continue;
        picture.pixels.SetOutline(std::string(line->substr(kOutlineExtension.size())));
    }
    return picture;
}

}  // namespace orvo
