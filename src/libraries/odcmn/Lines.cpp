// Text of several lines.
// SPDX-License-Identifier: MIT
#include <string_view>

#include <contracts/TextServices.h>

namespace orvo {
namespace {

struct FirstLine {
    std::size_t length;  // without the line end
    std::size_t next;    // where the next line begins
};

// By bytes: no code page has a character with a carriage return or a line feed as a trail byte.
FirstLine FindFirstLine(std::string_view text) {
    const std::size_t end = text.find_first_of("\r\n");
    if (end == std::string_view::npos) return {text.size(), text.size()};
    const bool isPair = text.substr(end).starts_with("\r\n");
    return {end, end + (isPair ? 2 : 1)};
}

}  // namespace

std::string_view TakeFirstLine(std::string_view& text) {
    const FirstLine first = FindFirstLine(text);
    const std::string_view line = text.substr(0, first.length);
    text.remove_prefix(first.next);
    return line;
}

void GetFirstLine(CString& text, CString& line) {
    const FirstLine first = FindFirstLine(text.View());
    line.Bytes() = text.Bytes().substr(0, first.length);
    text.Bytes().erase(0, first.next);
}

int IsMultiline(const CString& text) {
    return FindFirstLine(text.View()).next < text.View().size() ? 1 : 0;
}

}  // namespace orvo
