// What commands print.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

namespace orvo::cli {

using Json = nlohmann::ordered_json;

// Writes one line to standard output or standard error. Text from files and stores may hold control
// characters; each is written as its picture (U+2400 and up), so that no name can steer a terminal
// or break a line.
void PrintLine(std::string_view utf8);
void PrintError(std::string_view utf8);
// The same behind the program's name.
void PrintWarning(std::string_view utf8);

// Writes the lines of a text, which are separated by line feeds, with their tabs.
void PrintTabbedText(std::string_view utf8);

// The text, with blanks behind it up to a width on a terminal; one blank at least.
std::string PaddedCell(std::string_view utf8, std::size_t width);

// One JSON value in one line, UTF-8.
void PrintJson(const Json& value);

// Lines of cells, each column as wide as its widest cell on a terminal; wide East Asian characters
// count two.
class TextTable {
public:
    explicit TextTable(std::vector<std::string> headings);

    void Add(std::vector<std::string> cells);
    void Print() const;

private:
    std::vector<std::vector<std::string>> m_rows;
};

// False where standard output could not take all that was printed.
bool FlushOutput();

}  // namespace orvo::cli
