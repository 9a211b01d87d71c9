// A message as an address of the kind "mailto:", by which desktops open a composer.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include <platform/desktop/MailUri.h>

namespace orvo {
namespace {

constexpr std::string_view kProtocol = "SMTP:";

constexpr bool IsControl(char character) {
    return (character >= '\0' && character < ' ') || character == '\x7F';
}

constexpr char AsciiUpper(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                : character;
}

constexpr bool IsUnreserved(char character) {
    const char upper = AsciiUpper(character);
    return (upper >= 'A' && upper <= 'Z') || (character >= '0' && character <= '9') ||
           std::string_view("-._~").find(character) != std::string_view::npos;
}

// `also` may stand as they are beside the characters that always may.
std::string Encoded(std::string_view text, std::string_view also = {}) {
    std::string encoded;
    for (const char character : text) {
        if (IsUnreserved(character) || also.find(character) != std::string_view::npos) {
            encoded += character;
        } else {
            fmt::format_to(std::back_inserter(encoded), "%{:02X}",
                           static_cast<unsigned char>(character));
        }
    }
    return encoded;
}

std::string OneLine(std::string_view text) {
    std::string line(text);
    std::replace_if(line.begin(), line.end(), IsControl, ' ');
    return line;
}

// CR LF, a lone CR and a lone LF each end a line.
std::string MailLines(std::string_view text) {
    std::string lines;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char character = text[i];
        if (character == '\r' || character == '\n') {
            lines += "\r\n";
            if (text.substr(i, 2) == "\r\n") ++i;
        } else {
            lines += IsControl(character) && character != '\t' ? ' ' : character;
        }
    }
    return lines;
}

bool HasProtocol(std::string_view address) {
    return address.size() >= kProtocol.size() &&
           std::equal(kProtocol.begin(), kProtocol.end(), address.begin(),
                      [](char wanted, char given) { return wanted == AsciiUpper(given); });
}

}  // namespace

std::string PlainMailAddress(std::string_view address) {
    if (HasProtocol(address)) address.remove_prefix(kProtocol.size());
    std::string plain;
    std::copy_if(address.begin(), address.end(), std::back_inserter(plain),
                 [](char character) { return !IsControl(character); });
    const std::size_t sign = plain.rfind('@');
    const bool namesOne = sign != std::string::npos && sign > 0 && sign + 1 < plain.size() &&
                          plain.find_first_of(" ,;<>") == std::string::npos;
    return namesOne ? plain : std::string();
}

std::string MailUri(const MailDraft& draft) {
    std::string uri = "mailto:";
    for (const std::string& address : draft.to) {
        if (&address != &draft.to.front()) uri += ',';
        uri += Encoded(address, "@");
    }
    char separator = '?';
    const auto add = [&](std::string_view field, const std::string& encoded) {
        if (encoded.empty()) return;
        fmt::format_to(std::back_inserter(uri), "{}{}={}", separator, field, encoded);
        separator = '&';
    };
    add("subject", Encoded(OneLine(draft.subject)));
    add("body", Encoded(MailLines(draft.body)));
    for (const std::string& path : draft.attachments) add("attach", Encoded(path, "/"));
    return uri;
}

}  // namespace orvo
