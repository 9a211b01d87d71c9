// The one line of a text that a list shows.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>
#include <string_view>

#include <contracts/TextServices.h>
#include <platform/text/CodePage.h>

namespace orvo {

namespace {

bool IsSkipped(char byte) {
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}
bool EndsLine(char byte) {
    return byte == '\r' || byte == '\t';
}

}  // namespace

void RemoveLeadingSpacesEx(CString& text) {
    constexpr std::size_t kMostBytes = 256;
    const std::string_view whole = text.View();
    const auto begin = std::find_if_not(whole.begin(), whole.end(), IsSkipped);
    const std::string_view line(begin, std::find_if(begin, whole.end(), EndsLine));
    const std::string_view shown =
        line.substr(0, CutLength(CodePage::System(), line, kMostBytes, false));
    if (shown.size() != whole.size()) text.Bytes() = std::string(shown);
}

}  // namespace orvo
