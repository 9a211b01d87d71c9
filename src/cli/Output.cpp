// What commands print.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdio>

#include <fmt/format.h>
#include <unicode/uchar.h>

#include <cli/Output.h>
#include <platform/text/Utf8.h>

namespace orvo::cli {
namespace {

// A cell wider than this is cut in a table; the JSON form has all of it.
constexpr std::size_t kWidestCell = 40;

// Characters that end a line or turn the direction of the text behind them, though they aren't
// control characters.
constexpr bool Steers(char32_t character) {
    return (character >= 0x202A && character <= 0x202E) ||
           (character >= 0x2066 && character <= 0x2069) || character == 0x2028 ||
           character == 0x2029;
}

void AppendPrintable(char32_t character, std::string& text) {
    constexpr char32_t kPictures = 0x2400;
    if (character < 0x20) {
        AppendCodePoint(kPictures + character, text);
    } else if (character == 0x7F) {
        AppendCodePoint(0x2421, text);
    } else if ((character >= 0x80 && character < 0xA0) || Steers(character)) {
        AppendCodePoint(0xFFFD, text);
    } else {
        AppendCodePoint(character, text);
    }
}

std::string Printable(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const CodePoint next = FirstCodePoint(utf8);
        AppendPrintable(next.value, text);
        utf8.remove_prefix(next.length);
    }
    return text;
}

std::size_t Columns(char32_t character) {
    const auto codePoint = static_cast<UChar32>(character);
    const int type = u_charType(codePoint);
    if (type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK || type == U_FORMAT_CHAR) return 0;
    const int width = u_getIntPropertyValue(codePoint, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_FULLWIDTH || width == U_EA_WIDE ? 2 : 1;
}

std::size_t Width(std::string_view utf8) {
    std::size_t width = 0;
    while (!utf8.empty()) {
        const CodePoint next = FirstCodePoint(utf8);
        width += Columns(next.value);
        utf8.remove_prefix(next.length);
    }
    return width;
}

// The start of a printable text that fits the widest cell, with an ellipsis where something is
// missing.
std::string Elided(const std::string& text) {
    if (text.size() <= kWidestCell || Width(text) <= kWidestCell) return text;
    std::string_view rest = text;
    std::size_t width = 0;
    for (;;) {
        const CodePoint next = FirstCodePoint(rest);
        if (width + Columns(next.value) >= kWidestCell) break;
        width += Columns(next.value);
        rest.remove_prefix(next.length);
    }
    return text.substr(0, text.size() - rest.size()) + "…";
}

void WriteLine(std::FILE* file, std::string_view line) {
    std::fwrite(line.data(), 1, line.size(), file);
    std::fputc('\n', file);
}

}  // namespace

void PrintLine(std::string_view utf8) {
    WriteLine(stdout, Printable(utf8));
}

void PrintTabbedText(std::string_view utf8) {
    std::string printable;
    while (!utf8.empty()) {
        const std::size_t end = std::min(utf8.find_first_of("\t\n"), utf8.size());
        printable += Printable(utf8.substr(0, end));
        if (end < utf8.size()) printable += utf8[end];
        utf8.remove_prefix(std::min(end + 1, utf8.size()));
    }
    if (!printable.empty()) WriteLine(stdout, printable);
}

void PrintError(std::string_view utf8) {
    std::fflush(stdout);
    WriteLine(stderr, Printable(utf8));
}

void PrintWarning(std::string_view utf8) {
    PrintError(fmt::format("orvo: {}", utf8));
}

std::string PaddedCell(std::string_view utf8, std::size_t width) {
    std::string cell(utf8);
    const std::size_t used = Width(Printable(utf8));
    return cell.append(used < width ? width - used : 1, ' ');
}

void PrintJson(const Json& value) {
    WriteLine(stdout, value.dump(-1, ' ', false, Json::error_handler_t::replace));
}

TextTable::TextTable(std::vector<std::string> headings) {
    m_rows.push_back(std::move(headings));
}

void TextTable::Add(std::vector<std::string> cells) {
    for (std::string& cell : cells) cell = Elided(Printable(cell));
    m_rows.push_back(std::move(cells));
}

void TextTable::Print() const {
    std::vector<std::size_t> widths(m_rows.front().size());
    for (const auto& row : m_rows) {
        for (std::size_t column = 0; column < widths.size(); ++column) {
            widths[column] = std::max(widths[column], Width(row[column]));
        }
    }
    for (const auto& row : m_rows) {
        std::string line;
        std::size_t lineEnd = 0;  // blanks after the last text of a line are left out
        for (std::size_t column = 0; column < widths.size(); ++column) {
            line += row[column];
            if (!row[column].empty()) lineEnd = line.size();
            line.append(widths[column] - Width(row[column]) + 2, ' ');
        }
        WriteLine(stdout, std::string_view(line).substr(0, lineEnd));
    }
}

bool FlushOutput() {
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

}  // namespace orvo::cli
