// An address in one line.
// SPDX-License-Identifier: MIT
#include <array>
#include <string_view>

#include <orvoshare/addresslist/AddressLine.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemLocale.h>

namespace orvo {
namespace {

constexpr std::size_t kPartCount = 5;
using PartsInOrder = std::array<const CString*, kPartCount>;

PartsInOrder InOrder(const AddressParts& parts) {
    if (GetACP() == kJapaneseCodePage) {
        return {&parts.zipCode, &parts.state, &parts.city, &parts.address, &parts.country};
    }
    return {&parts.address, &parts.city, &parts.state, &parts.zipCode, &parts.country};
}

// Reads the "%12s" with which the text begins; false for anything else.
bool TakePlace(std::string_view& text, std::size_t& width) {
    constexpr std::size_t kMostDigits = 2;
    constexpr std::size_t kBase = 10;
    std::size_t end = text.find_first_not_of("0123456789", 1);
    if (end == std::string_view::npos || text[end] != 's' || end > 1 + kMostDigits) return false;
    width = 0;
    for (const char digit : text.substr(1, end - 1)) {
        width = width * kBase + static_cast<std::size_t>(digit - '0');
    }
    text.remove_prefix(end + 1);
    return true;
}

// By bytes: a percent sign is no trail byte.
bool Fill(std::string_view format, const PartsInOrder& parts, std::string& line) {
    std::size_t used = 0;
    while (true) {
        const std::size_t place = format.find('%');
        line += format.substr(0, place);
        if (place == std::string_view::npos) return used == kPartCount;
        format.remove_prefix(place);

        std::size_t width = 0;
        if (used == kPartCount || !TakePlace(format, width)) return false;
        const std::string& part = parts[used++]->Bytes();
        if (part.size() < width) line.append(width - part.size(), ' ');
        line += part;
    }
}

}  // namespace

CString AddressLine(const AddressParts& parts, const CString& format) {
    CString line;
    if (!Fill(format.View(), InOrder(parts), line.Bytes())) {
        line.Empty();
        Fill(kAddressFormat, InOrder(parts), line.Bytes());
    }
    line.Replace(" ,", "");
    line.TrimRight(" ,");
    line.TrimLeft();
    return line;
}

}  // namespace orvo
