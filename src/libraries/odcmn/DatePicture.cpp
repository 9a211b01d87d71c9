// Date pictures: taken apart, made from CLDR's patterns, and filled with a date.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <fmt/format.h>

#include <libraries/odcmn/DatePicture.h>
#include <libraries/odcmn/Era.h>
#include <platform/text/Utf8.h>

namespace orvo {
namespace {

constexpr std::string_view kPictureLetters = "dMyg";
constexpr std::string_view kPatternLetters = "dMLyuG";

void AddText(std::vector<PictureItem>& items, std::string_view text) {
    if (items.empty() || items.back().letter != 0) items.push_back({0, 0, {}});
    items.back().text += text;
}

void AddLetter(std::vector<PictureItem>& items, char letter) {
    if (items.empty() || items.back().letter != letter) items.push_back({letter, 0, {}});
    ++items.back().count;
}

std::vector<PictureItem> Split(std::string_view picture, std::string_view letters) {
    std::vector<PictureItem> items;
    bool quoted = false;
    for (std::size_t i = 0; i < picture.size(); ++i) {
        const char c = picture[i];
        if (c == '\'' && picture.substr(i, 2) == "''") {
            AddText(items, "'");
            ++i;
        } else if (c == '\'') {
            quoted = !quoted;
        } else if (!quoted && letters.find(c) != std::string_view::npos) {
            AddLetter(items, c);
        } else {
            AddText(items, {&c, 1});
        }
    }
    return items;
}

std::string PlainText(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const CodePoint point = FirstCodePoint(text);
        const bool isDirection =
            point.value == U'\u200E' || point.value == U'\u200F' || point.value == U'\u061C';
        const bool isBlank = point.value == U'\u00A0' || point.value == U'\u202F';
        if (isBlank) {
            plain += ' ';
        } else if (!isDirection) {
            plain += text.substr(0, point.length);
        }
        text.remove_prefix(point.length);
    }
    return plain;
}

// Only a text with a letter of pictures needs quotes.
std::string QuotedText(std::string_view text) {
    std::string quoted;
    for (const char c : text) quoted += c == '\'' ? "''" : std::string(1, c);
    if (text.find_first_of(kPictureLetters) == std::string_view::npos) return quoted;
    return "'" + quoted + "'";
}

std::string YearLetters(int count, bool japanese) {
    if (count == 2) return "yy";
    return japanese ? "y" : "yyyy";
}

std::string Utf8Name(const Era& era) {
    std::string utf8;
    for (const char32_t c : era.name) AppendCodePoint(c, utf8);
    return utf8;
}

std::string FilledField(const PictureItem& field, const CivilTime& date, const Era* era,
                        const MonthNames& names) {
    const auto number = [&](int value) {
        return field.count == 1 ? fmt::format("{}", value) : fmt::format("{:02}", value);
    };
    const std::size_t month = static_cast<std::size_t>(date.month - 1);
    switch (field.letter) {
        case 'g':
            return era == nullptr ? std::string() : Utf8Name(*era);
        case 'd':
            return number(date.day);
        case 'M':
            if (field.count <= 2) return number(date.month);
            return field.count == 3 ? names.abbreviated[month] : names.full[month];
        default: {
            const int year = era == nullptr ? date.year : date.year - era->firstDay.year + 1;
            if (field.count == 2) return fmt::format("{:02}", year % 100);
            const int digits = era == nullptr ? field.count : 1;
            return fmt::format("{:0{}}", year, digits);
        }
    }
}

}  // namespace

std::vector<PictureItem> SplitPicture(std::string_view picture) {
    return Split(picture, kPictureLetters);
}

bool HasEra(const std::vector<PictureItem>& items) {
    return std::any_of(items.begin(), items.end(),
                       [](const PictureItem& item) { return item.letter == 'g'; });
}

std::string SeparatorOf(const std::vector<PictureItem>& items) {
    bool afterField = false;
    for (const PictureItem& item : items) {
        if (afterField && item.letter == 0) return item.text;
        afterField = item.letter != 0 && item.letter != 'g';
    }
    return "/";
}

std::string PictureOfPattern(std::string_view pattern, bool japanese) {
    std::string picture;
    bool afterEra = false;
    for (const PictureItem& item : Split(pattern, kPatternLetters)) {
        const bool isYear = item.letter == 'y' || item.letter == 'u';
        if (item.letter == 0) {
            std::string text = PlainText(item.text);
            if (afterEra && !japanese && text.starts_with(' ')) text.erase(0, 1);
            picture += QuotedText(text);
        } else if (item.letter == 'G') {
            picture += japanese ? "gg" : "";
        } else if (isYear) {
            // The blank ends the era's name for those who read the text.
            if (afterEra && japanese) picture += ' ';
            picture += YearLetters(item.count, japanese);
        } else {
            picture.append(static_cast<std::size_t>(item.count), item.letter == 'd' ? 'd' : 'M');
        }
        afterEra = item.letter == 'G';
    }
    return picture;
}

std::string FillPicture(const std::vector<PictureItem>& items, const CivilTime& date,
                        const MonthNames& names) {
    const Era* era = HasEra(items) ? EraOfDay(date) : nullptr;
    std::string text;
    for (const PictureItem& item : items) {
        text += item.letter == 0 ? item.text : FilledField(item, date, era, names);
    }
    return text;
}

}  // namespace orvo
