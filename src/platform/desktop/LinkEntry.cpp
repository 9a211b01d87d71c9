// Desktop entries that stand for a file: "Type=Link" with a "file:" address.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>

#include <platform/desktop/LinkEntry.h>
#include <platform/text/Percents.h>

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

// Empty where the path can't be read, or has a zero byte.
std::string DecodePath(std::string_view path) {
    bool isWhole = false;
    std::string decoded = DecodePercents(path, &isWhole);
    return isWhole && decoded.find('\0') == std::string::npos ? decoded : std::string();
}

std::string PathOfAddress(std::string_view address) {
    for (const std::string_view start : kAddressStarts) {
        if (!address.starts_with(start)) continue;
        const std::string_view path = address.substr(start.size() - 1);
        const bool hasHost = path.starts_with("//");
        return hasHost ? std::string() : DecodePath(path);
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
