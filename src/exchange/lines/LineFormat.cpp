// The text of content lines: encoding.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <exchange/lines/LineText.h>

namespace orvo {
namespace {

constexpr std::size_t kLongestLine = 75;

bool IsContinuation(char character) {
    return (static_cast<unsigned char>(character) & 0xC0u) == 0x80u;
}

void AppendHex(unsigned char byte, std::string& result) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    result += kDigits[byte >> 4];
    result += kDigits[byte & 0xFu];
}

void AppendFolded(std::string_view line, std::string_view lineEnd, std::string& result) {
    std::size_t room = kLongestLine;
    while (line.size() > room) {
        std::size_t cut = room;
        while (cut > room - 4 && IsContinuation(line[cut])) --cut;
        result.append(line.substr(0, cut)).append(lineEnd).append(" ");
        line.remove_prefix(cut);
        room = kLongestLine - 1;
    }
    result.append(line).append(lineEnd);
}

bool NeedsQuotedPrintable(std::string_view value) {
    return std::any_of(value.begin(), value.end(),
                       [](unsigned char c) { return c < ' ' || c >= 0x7F; });
}

// `used` bytes of the first line are taken by the head.
void AppendQuoted(std::string_view value, std::size_t used, std::string_view lineEnd,
                  std::string& result) {
    for (std::size_t i = 0; i < value.size(); ++i) {
        const auto byte = static_cast<unsigned char>(value[i]);
        // A continued line that begins with a blank would be taken for a fold, and one that begins
        // with BEGIN or END for the line of that name.
        const bool atStart =
            used == 0 && std::string_view(" BbEe").find(value[i]) != std::string_view::npos;
        const bool atEdge = value[i] == ' ' && (i == 0 || i + 1 == value.size());
        const bool plain = byte >= ' ' && byte < 0x7F && byte != '=' && !atEdge && !atStart;
        const std::size_t width = plain ? 1 : 3;
        if (used + width > kLongestLine) {
            result.append("=").append(lineEnd);
            used = 0;
            --i;
            continue;
        }
        if (plain) {
            result += value[i];
            ++used;
        } else {
            result += '=';
            AppendHex(byte, result);
            used += 3;
        }
    }
    result.append(lineEnd);
}

std::string EscapeQuoted(std::string_view text, ValueKind kind) {
    const std::string_view dividers = ";:,";
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
        if (c == '\r' || c == '\n') {
            result += "\r\n";  // as quoted-printable has it
        } else if (c == '\\' && kind == ValueKind::Parts) {
            const std::size_t end = std::min(text.find_first_not_of('\\', i), text.size());
            const bool counts =
                end == text.size() || dividers.find(text[end]) != std::string_view::npos;
            result.append((end - i) * (counts ? 2 : 1), '\\');
            i = end - 1;
        } else {
            const bool isEscaped =
                c == ';' && (kind == ValueKind::Parts || (i > 0 && text[i - 1] == '\\'));
            if (isEscaped) result += '\\';
            result += c;
        }
    }
    return result;
}

}  // namespace

bool TellsEncoding(const Parameter& parameter) {
    if (EqualsIgnoringCase(parameter.name, "ENCODING") ||
        EqualsIgnoringCase(parameter.name, "CHARSET")) {
        return true;
    }
    constexpr std::array<std::string_view, 4> kWords{"QUOTED-PRINTABLE", "BASE64", "8BIT", "7BIT"};
    return parameter.name.empty() &&
           std::any_of(kWords.begin(), kWords.end(), [&](std::string_view word) {
               return EqualsIgnoringCase(parameter.value, word);
           });
}

std::string Escape(std::string_view text, Dialect dialect, ValueKind kind) {
    const bool quoted = IsQuotedDialect(dialect);
    if (quoted) return EscapeQuoted(text, kind);
    std::string result;
    result.reserve(text.size() + 8);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
        if (c == '\r' || c == '\n') {
            result += "\\n";
        } else {
            if (c == '\\' || c == ';' || c == ',') result += '\\';
            result += c;
        }
    }
    return result;
}

std::string EncodeUri(std::string_view text, bool& isEncoded) {
    const auto isForeign = [](unsigned char c) { return c < ' ' || c == 0x7F || c == '\\'; };
    isEncoded = std::any_of(text.begin(), text.end(), isForeign);
    if (!isEncoded) return std::string(text);
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
        const char c = text[i] == '\r' ? '\n' : text[i];
        const auto byte = static_cast<unsigned char>(c);
        if (isForeign(byte) || c == '%') {
            result += '%';
            AppendHex(byte, result);
        } else {
            result += c;
        }
    }
    return result;
}

std::string ReplaceParts(std::string_view value, std::initializer_list<NewPart> parts, char divider,
                         Dialect dialect) {
    std::vector<std::string> all;
    PartWalk walk(value, std::string_view(&divider, 1));
    std::string_view part;
    while (walk.Next(part)) all.emplace_back(part);
    for (const NewPart& change : parts) {
        if (change.number >= all.size() && change.text.empty()) continue;
        if (change.number >= all.size()) all.resize(change.number + 1);
        all[change.number] = Escape(change.text, dialect, ValueKind::Parts);
    }
    std::string result;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (i > 0) result += divider;
        result += all[i];
    }
    return result;
}

std::string FormatLine(std::string_view head, std::string_view value, Dialect dialect,
                       std::string_view lineEnd) {
    std::string result;
    std::string line(head);
    if (!IsQuotedDialect(dialect)) {
        line += ':';
        for (std::size_t i = 0; i < value.size(); ++i) {
            // A value that came in another encoding may hold line ends.
            if (value[i] == '\r' && i + 1 < value.size() && value[i + 1] == '\n') continue;
            if (value[i] == '\r' || value[i] == '\n') {
                line += "\\n";
            } else {
                line += value[i];
            }
        }
        AppendFolded(line, lineEnd, result);
    } else if (NeedsQuotedPrintable(value)) {
        line.append(";ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:");
        result = line;
        AppendQuoted(value, std::min(line.size(), kLongestLine), lineEnd, result);
    } else {
        result.append(head).append(":").append(value).append(lineEnd);
    }
    return result;
}

std::string ToBase64(std::string_view bytes) {
    constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::string_view group = bytes.substr(i, 3);
        std::uint32_t bits = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            bits = bits << 8 | (k < group.size() ? static_cast<unsigned char>(group[k]) : 0u);
        }
        for (std::size_t k = 0; k < 4; ++k) {
            text += k <= group.size() ? digits[bits >> (18 - 6 * k) & 0x3F] : '=';
        }
    }
    return text;
}

std::string QuoteParameter(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"') {
            result += "^'";
        } else if (c == '^') {
            result += "^^";
        } else if (c == '\n') {
            result += "^n";
        } else if (c != '\r') {
            result += c;
        }
    }
    return result + "\"";
}

}  // namespace orvo
