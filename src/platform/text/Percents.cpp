// Bytes written as '%' and two hexadecimal digits.
// SPDX-License-Identifier: MIT
#include <platform/text/Percents.h>

namespace orvo {

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

std::string DecodePercents(std::string_view text, bool* isWhole) {
    bool hasStrays = false;
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool hasDigits = text[i] == '%' && i + 2 < text.size();
        const int high = hasDigits ? HexDigit(text[i + 1]) : -1;
        const int low = high < 0 ? -1 : HexDigit(text[i + 2]);
        decoded += low < 0 ? text[i] : static_cast<char>(high * 16 + low);
        if (low >= 0) {
            i += 2;
        } else if (text[i] == '%') {
            hasStrays = true;
        }
    }
    if (isWhole != nullptr) *isWhole = !hasStrays;
    return decoded;
}

}  // namespace orvo
