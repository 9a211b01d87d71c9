// Desktop entries that stand for a file: "Type=Link" with a "file:" address.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <system_error>

#include <platform/desktop/LinkEntry.h>

namespace orvo {
namespace {

constexpr std::string_view kGroup = "[Desktop Entry]";

// A file of this machine has no host before its path, or this one.
constexpr std::string_view kAddressStarts[] = {"file://localhost/", "file:///", "file:/"};

constexpr std::string_view kBlanks = " \t\r";

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Nothing where a '%' has no two hexadecimal digits behind it, or there is a zero byte.
std::optional<std::string> PercentDecoded(std::string_view text) {
    std::string decoded;
    if (text.find('\0') != std::string_view::npos) return std::nullopt;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        const std::string_view digits = text.substr(i + 1, 2);
        unsigned byte = 0;
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
        if (error != std::errc() || end != digits.data() + 2 || byte == 0) return std::nullopt;
        decoded += static_cast<char>(byte);
        i += 2;
    }
    return decoded;
}

std::string PathOfAddress(std::string_view address) {
    for (const std::string_view start : kAddressStarts) {
        if (!address.starts_with(start)) continue;
        const std::string_view path = address.substr(start.size() - 1);
        const bool hasHost = path.starts_with("//");
        return hasHost ? std::string() : PercentDecoded(path).value_or(std::string());
    }
    return {};
}

}  // namespace

std::string PathOfLinkEntry(std::string_view entry) {
    bool isInGroup = false;
    std::string_view type;
    std::string_view address;
    while (!entry.empty()) {
        const std::string_view line = Trimmed(entry.substr(0, entry.find('\n')));
        entry.remove_prefix(std::min(entry.size(), entry.find('\n')));
        if (!entry.empty()) entry.remove_prefix(1);
        if (line.starts_with('[')) isInGroup = line == kGroup;
        const std::size_t sign = line.find('=');
        if (!isInGroup || sign == std::string_view::npos) continue;
        const std::string_view key = Trimmed(line.substr(0, sign));
        const std::string_view value = Trimmed(line.substr(sign + 1));
        if (key == "Type") type = value;
        if (key == "URL") address = value;
    }
    return type == "Link" ? PathOfAddress(address) : std::string();
}

}  // namespace orvo
