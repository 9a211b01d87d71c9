// The values of content lines as UTF-8, whatever set other programs wrote them in.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <exchange/lines/ContentLine.h>
#include <exchange/lines/LineList.h>

namespace orvo {

// Text is of a legacy set where it isn't UTF-8 and its line names no usable set.

// The legacy set that all lines of a file together point to; empty where none is of one. The text
// is that of the whole file.
std::string_view GuessFileCharset(std::string_view text);

// The legacy set of the lines of one entry: one that another of its lines names, else the file's,
// else the one that its bytes together point to; empty where no line is of one.
std::string LegacyCharsetOf(const LineList& lines, std::string_view fileCharset);

// The values of the lines of one entry. Transfer encoding and CHARSET are undone.
class ValueDecoder {
public:
    // `charset` is the entry's legacy set; where it is empty, the lines themselves decide. The
    // lines must outlive it.
    explicit ValueDecoder(const LineList& lines, std::string_view charset = {})
        : m_lines(lines), m_charset(charset) {}

    // The value with its escapes and dividers as they are. Valid as long as the line and `storage`.
    std::string_view Decode(const ContentLine& line, std::string& storage);

    // Text that stands in no value, such as a parameter.
    std::string DecodeText(std::string_view bytes);

    // True where the line's value or a parameter is of a legacy set. Base64 isn't looked into.
    static bool IsLegacy(const ContentLine& line);

private:
    bool IsOfLegacySet(std::string_view bytes);

    LineList m_lines;
    std::string m_charset;
};

}  // namespace orvo
