// Content lines: reading, unfolding and taking apart.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstring>
#include <optional>

#include <exchange/lines/ContentLine.h>

namespace orvo {
namespace {

constexpr std::size_t kLongestStructureLine = 80;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

char Upper(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                : character;
}

bool IsBase64Character(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' ||
           c == '/' || c == '=';
}

// The colon that ends the head. Quotes hide colons, unless the last quote is never closed.
std::size_t FindColon(std::string_view text) {
    const std::size_t first = text.find(':');
    if (first == std::string_view::npos ||
        text.substr(0, first).find('"') == std::string_view::npos)
        return first;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') {
            quoted = !quoted;
        } else if (text[i] == ':' && !quoted) {
            return i;
        }
    }
    return first;
}

}  // namespace

void TakeApart(ContentLine& line) {
    const std::string_view text = line.text;
    line.group = line.name = line.parameters = {};
    line.value = text;
    const std::size_t colon = FindColon(text);
    if (colon == std::string_view::npos) return;
    std::string_view head = text.substr(0, colon);
    const std::size_t semicolon = head.find(';');
    std::string_view name = Trimmed(head.substr(0, semicolon));
    const std::size_t dot = name.find('.');
    if (dot != std::string_view::npos) {
        line.group = name.substr(0, dot);
        name.remove_prefix(dot + 1);
    }
    if (name.empty() || text[0] == ' ' || text[0] == '\t') {
        line.group = {};
        return;
    }
    line.name = name;
    if (semicolon != std::string_view::npos) line.parameters = head.substr(semicolon + 1);
    line.value = text.substr(colon + 1);
}

std::string_view ContentLineReader::TakePhysicalLine() {
    if (!m_lineFeedKnown || m_lineFeed < m_position) {
        m_lineFeed = std::min(m_text.find('\n', m_position), m_text.size());
        m_lineFeedKnown = true;
    }
    const std::string_view upToFeed = m_text.substr(m_position, m_lineFeed - m_position);
    const std::size_t length = std::min(upToFeed.find('\r'), upToFeed.size());
    m_position += length;
    if (m_position < m_text.size() && m_text[m_position] == '\r') ++m_position;
    if (m_position == m_lineFeed && m_position < m_text.size()) ++m_position;
    ++m_number;
    return upToFeed.substr(0, length);
}

bool ContentLineReader::NextIsFold() const {
    return m_position < m_text.size() && (m_text[m_position] == ' ' || m_text[m_position] == '\t');
}

bool ContentLineReader::NextIsBase64() {
    if (m_position == m_text.size() || !IsBase64Character(m_text[m_position])) return false;
    const char* const begin = m_text.data() + m_position;
    const char* const end = m_text.data() + m_text.size();
    const char* const other = std::find_if_not(begin, end, IsBase64Character);
    return other == end || *other == '\r' || *other == '\n';
}

bool ContentLineReader::NextIsStructure() {
    std::string_view rest = m_text.substr(m_position, kLongestStructureLine);
    rest = rest.substr(0, rest.find_first_of("\r\n"));
    const bool begins = StartsIgnoringCase(rest, "BEGIN:");
    if (!begins && !StartsIgnoringCase(rest, "END:")) return false;
    return std::all_of(rest.begin() + (begins ? 6 : 4), rest.end(), [](char c) {
        return c == '-' || (IsBase64Character(c) && c != '+' && c != '/' && c != '=');
    });
}

void ContentLineReader::Unfold(std::string_view first) {
    m_joined.assign(first);
    std::string_view last = first;
    std::size_t searched = 0;
    std::optional<TransferEncoding> encoding;  // known once the head is whole
    while (m_position < m_text.size()) {
        if (!encoding && m_joined.find(':', searched) != std::string_view::npos) {
            ContentLine line;
            line.text = m_joined;
            TakeApart(line);
            encoding = EncodingOf(line.parameters);
        }
        searched = m_joined.size();
        if (encoding == TransferEncoding::QuotedPrintable && EndsInSoftBreak(last)) {
            if (NextIsStructure()) break;
            m_joined.erase(m_joined.rfind('='));
            last = TakePhysicalLine();
        } else if (NextIsFold()) {
            last = TakePhysicalLine().substr(1);
        } else if (encoding == TransferEncoding::Base64 && NextIsBase64()) {
            last = TakePhysicalLine();
        } else {
            break;
        }
        m_joined.append(last);
    }
}

bool ContentLineReader::Next(ContentLine& line) {
    while (m_text.substr(m_position).starts_with(kByteOrderMark)) {
        m_position += kByteOrderMark.size();
    }
    if (m_position == m_text.size()) return false;
    const std::size_t start = m_position;
    line.number = m_number;
    std::string_view text = TakePhysicalLine();
    const bool mayGoOn = !text.empty() && m_position < m_text.size() &&
                         (NextIsFold() || EndsInSoftBreak(text) || NextIsBase64());
    if (mayGoOn) {
        const std::size_t firstEnd = m_position;
        Unfold(text);
        if (m_position != firstEnd) {
            if (!m_unfolded) m_unfolded = std::make_unique<std::pmr::monotonic_buffer_resource>();
            char* const kept =
                static_cast<char*>(m_unfolded->allocate(m_joined.size() + 1, alignof(char)));
            std::memcpy(kept, m_joined.data(), m_joined.size());
            text = {kept, m_joined.size()};
        }
    }
    line.source = m_text.substr(start, m_position - start);
    line.text = text;
    TakeApart(line);
    return true;
}

void ContentLineReader::GoBackTo(const ContentLine& line) {
    m_position = static_cast<std::size_t>(line.source.data() - m_text.data());
    m_number = line.number;
    const std::size_t feed = line.source.find('\n');
    if (feed != std::string_view::npos) m_lineFeed = m_position + feed;
}

bool ParameterWalk::Next(Parameter& parameter) {
    if (m_rest.empty()) return false;
    std::size_t end = m_rest.find(';');
    const std::size_t quote = m_rest.substr(0, end).find('"');
    if (quote != std::string_view::npos) {
        bool quoted = false;
        std::size_t i = quote;
        while (i < m_rest.size() && (quoted || m_rest[i] != ';')) {
            if (m_rest[i] == '"') quoted = !quoted;
            ++i;
        }
        if (!quoted) end = i;
    }
    end = std::min(end, m_rest.size());
    parameter.source = m_rest.substr(0, end);
    m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
    const std::size_t equals = parameter.source.find('=');
    parameter.name = equals == std::string_view::npos ? std::string_view()
                                                      : Trimmed(parameter.source.substr(0, equals));
    parameter.value =
        Trimmed(parameter.source.substr(equals == std::string_view::npos ? 0 : equals + 1));
    return true;
}

std::string_view FindParameter(std::string_view parameters, std::string_view name) {
    ParameterWalk walk(parameters);
    Parameter parameter;
    while (walk.Next(parameter)) {
        if (EqualsIgnoringCase(parameter.name, name)) return Unquoted(parameter.value);
    }
    return {};
}

TransferEncoding EncodingOf(std::string_view parameters) {
    TransferEncoding encoding = TransferEncoding::None;
    ParameterWalk walk(parameters);
    Parameter parameter;
    while (walk.Next(parameter)) {
        const bool isBare = parameter.name.empty();
        if (!isBare && !EqualsIgnoringCase(parameter.name, "ENCODING")) continue;
        const std::string_view value = Unquoted(parameter.value);
        if (EqualsIgnoringCase(value, "QUOTED-PRINTABLE")) {
            encoding = TransferEncoding::QuotedPrintable;
        } else if (EqualsIgnoringCase(value, "BASE64") ||
                   (!isBare && EqualsIgnoringCase(value, "B"))) {
            encoding = TransferEncoding::Base64;
        }
    }
    return encoding;
}

bool EndsInSoftBreak(std::string_view text) {
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text.ends_with('=');
}

bool HasType(std::string_view parameters, std::string_view word) {
    ParameterWalk walk(parameters);
    Parameter parameter;
    while (walk.Next(parameter)) {
        if (!parameter.name.empty() && !EqualsIgnoringCase(parameter.name, "TYPE")) continue;
        std::string_view list = Unquoted(parameter.value);
        std::string_view item;
        while (NextListItem(list, item)) {
            if (EqualsIgnoringCase(item, word)) return true;
        }
    }
    return false;
}

bool NextListItem(std::string_view& list, std::string_view& item) {
    if (list.empty()) return false;
    const std::size_t comma = std::min(list.find(','), list.size());
    item = Unquoted(Trimmed(list.substr(0, comma)));
    list.remove_prefix(std::min(comma + 1, list.size()));
    return true;
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

std::string_view Unquoted(std::string_view text) {
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
        text.remove_prefix(1);
        text.remove_suffix(1);
    }
    return text;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    return left.size() == right.size() && StartsIgnoringCase(left, right);
}

bool StartsIgnoringCase(std::string_view text, std::string_view start) {
    return text.size() >= start.size() &&
           std::equal(start.begin(), start.end(), text.begin(),
                      [](char a, char b) { return Upper(a) == Upper(b); });
}

}  // namespace orvo
