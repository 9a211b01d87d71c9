// The text of content lines: decoding.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <exchange/lines/LineText.h>
#include <platform/text/Percents.h>

namespace orvo {
namespace {

int Base64Digit(char c) {
    if (c >= 'A' && c <= 'Z') return c - 'A';
    if (c >= 'a' && c <= 'z') return c - 'a' + 26;
    if (c >= '0' && c <= '9') return c - '0' + 52;
    if (c == '+') return 62;
    return c == '/' ? 63 : -1;
}

// Backslashes count in pairs only where they stand before a divider or at the end of a part.
void UnescapeQuoted(std::string_view part, ValueKind kind, std::string& text) {
    const std::string_view dividers = kind == ValueKind::Parts ? ";:," : ";";
    for (std::size_t i = 0; i < part.size(); ++i) {
        if (part[i] == '\r') {
            text += '\n';
            if (i + 1 < part.size() && part[i + 1] == '\n') ++i;
            continue;
        }
        if (part[i] != '\\') {
            text += part[i];
            continue;
        }
        const std::size_t end = std::min(part.find_first_not_of('\\', i), part.size());
        std::size_t count = end - i;
        if (end < part.size() && dividers.find(part[end]) != std::string_view::npos) {
            count = kind == ValueKind::Parts ? count / 2 : count - 1;
        } else if (end == part.size() && kind == ValueKind::Parts) {
            count -= count / 2;
        }
        text.append(count, '\\');
        i = end - 1;
    }
}

bool HasBareParameter(std::string_view parameters) {
    ParameterWalk walk(parameters);
    Parameter parameter;
    while (walk.Next(parameter)) {
        if (parameter.name.empty() && !parameter.value.empty()) return true;
    }
    return false;
}

}  // namespace

Dialect DialectOfCard(const LineList& lines) {
    for (const ContentLine& line : lines) {
        if (!EqualsIgnoringCase(line.name, "VERSION")) continue;
        const std::string_view version = Trimmed(line.value);
        if (version.starts_with('2')) return Dialect::Card21;
        return version.starts_with('4') ? Dialect::Card40 : Dialect::Card30;
    }
    const bool isOld = std::any_of(lines.begin(), lines.end(), [](const ContentLine& line) {
        return HasBareParameter(line.parameters) ||
               EncodingOf(line.parameters) == TransferEncoding::QuotedPrintable;
    });
    return isOld ? Dialect::Card21 : Dialect::Card30;
}

void AppendQuotedPrintable(std::string_view text, std::string& bytes) {
    bytes.reserve(bytes.size() + text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '=' && i + 2 < text.size() ? HexDigit(text[i + 1]) : -1;
        const int low = high < 0 ? -1 : HexDigit(text[i + 2]);
        if (low >= 0) {
            bytes += static_cast<char>(high * 16 + low);
            i += 2;
        } else if (text[i] == '=' &&
                   text.find_first_not_of(" \t", i + 1) == std::string_view::npos) {
            return;  // a soft break behind which nothing follows
        } else {
            bytes += text[i];
        }
    }
}

void AppendBase64(std::string_view text, std::string& bytes) {
    bytes.reserve(bytes.size() + text.size() / 4 * 3);
    unsigned held = 0;
    int bits = 0;
    for (const char character : text) {
        const int digit = Base64Digit(character);
        if (digit < 0) continue;
        held = (held << 6 | static_cast<unsigned>(digit)) & 0xFFFFu;
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            bytes += static_cast<char>(held >> bits & 0xFFu);
        }
    }
}

bool PartWalk::Next(std::string_view& part) {
    if (m_over) return false;
    std::size_t end = 0;
    while (end < m_rest.size() && m_dividers.find(m_rest[end]) == std::string_view::npos) {
        end += m_rest[end] == '\\' ? 2 : 1;
    }
    m_over = end >= m_rest.size();
    part = m_rest.substr(0, end);
    m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
    return true;
}

std::string_view PartOf(std::string_view value, std::size_t number, char divider) {
    PartWalk walk(value, std::string_view(&divider, 1));
    std::string_view part;
    for (std::size_t i = 0; i <= number; ++i) {
        if (!walk.Next(part)) return {};
    }
    return part;
}

void Unescape(std::string_view part, Dialect dialect, std::string& text, ValueKind kind) {
    text.clear();
    if (part.find_first_of("\\\r") == std::string_view::npos) {
        text = part;
        return;
    }
    if (IsQuotedDialect(dialect)) {
        UnescapeQuoted(part, kind, text);
        return;
    }
    constexpr std::string_view kEscaped = "\\;,:\"";
    for (std::size_t i = 0; i < part.size(); ++i) {
        const char next = i + 1 < part.size() ? part[i + 1] : '\0';
        if (part[i] == '\\' && (next == 'n' || next == 'N')) {
            text += '\n';
            ++i;
        } else if (part[i] == '\\' && kEscaped.find(next) != std::string_view::npos) {
            text += next;
            ++i;
        } else if (part[i] == '\r') {
            text += '\n';
            if (next == '\n') ++i;
        } else {
            text += part[i];
        }
    }
}

std::string DecodeParameter(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char next = value[i] == '^' && i + 1 < value.size() ? value[i + 1] : '\0';
        const bool escaped = next == 'n' || next == '^' || next == '\'';
        text += !escaped ? value[i] : next == 'n' ? '\n' : next == '^' ? '^' : '"';
        if (escaped) ++i;
    }
    return text;
}

std::string_view FirstLineOf(std::string_view text) {
    return text.substr(0, text.find_first_of("\r\n"));
}

bool IsSameText(std::string_view left, std::string_view right) {
    if (left == right) return true;
    std::string leftText;
    std::string rightText;
    const auto normalise = [](std::string_view text, std::string& result) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
            result += text[i] == '\r' ? '\n' : text[i];
        }
    };
    normalise(left, leftText);
    normalise(right, rightText);
    return leftText == rightText;
}

}  // namespace orvo
