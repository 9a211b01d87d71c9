// Where the details of a person lead.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <string_view>

#include <fmt/format.h>

#include <exchange/lines/ContentLine.h>
#include <people/DetailLinks.h>

namespace orvo {
namespace {

constexpr std::array<std::string_view, 5> kSchemes{"tel:", "mailto:", "http://", "https://",
                                                   "geo:"};

constexpr std::string_view kPlaceMark = "%1";

bool IsIn(char c, std::string_view others) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           others.find(c) != std::string_view::npos;
}

std::string Encode(std::string_view text, std::string_view plain) {
    std::string encoded;
    for (const char c : text) {
        if (IsIn(c, plain)) {
            encoded += c;
        } else {
            encoded += fmt::format("%{:02X}", static_cast<unsigned char>(c));
        }
    }
    return encoded;
}

// A text of one of our schemes as it is; what can't stand in an address is encoded.
std::string KnownUri(std::string_view text) {
    const bool isKnown =
        std::any_of(kSchemes.begin(), kSchemes.end(), [&](std::string_view scheme) {
            return StartsIgnoringCase(text, scheme) && text.size() > scheme.size();
        });
    constexpr std::string_view plain = "-._~:/?#[]@!$&'()*+,;=%";
    return isKnown ? Encode(text, plain) : std::string();
}

std::string Call(std::string_view number) {
    constexpr std::size_t fewestDigits = 2;
    std::string dialled;
    std::size_t digits = 0;
    for (const char c : number) {
        const bool isDigit = c >= '0' && c <= '9';
        digits += isDigit ? 1 : 0;
        if (isDigit || c == '*' || (c == '+' && dialled.empty())) dialled += c;
        if (c == '#') dialled += "%23";
        const bool isExtension = IsIn(c, "") && !isDigit;
        if (isExtension && digits > 0) break;
    }
    return digits < fewestDigits ? std::string() : "tel:" + dialled;
}

std::string Write(std::string_view address) {
    const std::size_t at = address.find('@');
    const bool isOne = at != std::string_view::npos && at != 0 && at + 1 != address.size() &&
                       address.find_first_of(" \t\r\n<>\",;") == std::string_view::npos;
    return isOne ? "mailto:" + Encode(address, "-._~@!$'*+/=") : std::string();
}

// People write pages without a scheme, too: "www.example.com".
std::string OpenPage(std::string_view text) {
    std::string known = KnownUri(text);
    if (!known.empty()) return known;
    const std::string_view host = text.substr(0, text.find('/'));
    const bool isHost = host.find('.') != std::string_view::npos && !host.starts_with('.') &&
                        std::all_of(host.begin(), host.end(), [](char c) {
                            return IsIn(c, "-.") || static_cast<unsigned char>(c) >= 0x80;
                        });
    return isHost ? KnownUri("http://" + std::string(text)) : std::string();
}

}  // namespace

bool IsMapAddress(std::string_view text) {
    const std::size_t colon = text.find("://");
    if (!StartsIgnoringCase(text, "http://") && !StartsIgnoringCase(text, "https://")) return false;
    const std::string_view rest = text.substr(colon + 3);
    const std::size_t hostEnd = rest.find_first_of("/?#");
    const bool hasHost = hostEnd != 0 && hostEnd != std::string_view::npos &&
                         rest.substr(0, hostEnd).find_first_of("%@") == std::string_view::npos;
    return hasHost && rest.find(kPlaceMark, hostEnd) != std::string_view::npos;
}

std::string MapLinkOf(const Detail& detail, std::string_view mapAddress) {
    if (detail.kind != DetailKind::Address || !IsMapAddress(mapAddress)) return {};
    std::string place;
    for (const char c : detail.text) place += c == '\n' ? std::string(", ") : std::string(1, c);
    std::string link(mapAddress);
    const std::string encoded = Encode(place, "-._~");
    for (std::size_t at = link.find(kPlaceMark); at != std::string::npos;
         at = link.find(kPlaceMark, at + encoded.size())) {
        link.replace(at, kPlaceMark.size(), encoded);
    }
    return KnownUri(link);
}

std::string LinkOf(const Detail& detail) {
    switch (detail.kind) {
        case DetailKind::Phone:
            return Call(detail.text);
        case DetailKind::Email:
            return Write(detail.text);
        case DetailKind::Page:
            return OpenPage(detail.text);
        default:
            break;
    }
    if (!detail.place.empty()) return "geo:" + detail.place;
    return KnownUri(detail.uri);
}

}  // namespace orvo
