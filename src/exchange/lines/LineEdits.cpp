// Edits on the lines of one entry.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <exchange/lines/LineEdits.h>

namespace orvo {
namespace {

// A last line that is broken off in its quoted-printable text would swallow what is added after it.
bool IsBrokenOff(const ContentLine& line) {
    return EndsInSoftBreak(line.value) &&
           EncodingOf(line.parameters) == TransferEncoding::QuotedPrintable;
}

}  // namespace

LineEdits::LineEdits(const LineList& lines, Dialect dialect, std::string_view charset)
    : m_lines(lines),
      m_dialect(dialect),
      m_lineEnd(LineEndOf(lines.front().source)),
      m_decoder(lines, charset) {}

std::string LineEdits::ValueOf(std::ptrdiff_t line) {
    std::string storage;
    return std::string(m_decoder.Decode(Line(line), storage));
}

EditedLine& LineEdits::At(std::ptrdiff_t line) {
    const auto [place, isNew] = m_changes.try_emplace(line);
    EditedLine& edited = place->second;
    if (!isNew) return edited;
    ContentLine old = Line(line);
    // The lines of a component inside the entry have lost their names.
    ContentLineReader reader(old.source);
    if (old.name.empty()) reader.Next(old);
    if (!old.group.empty()) edited.name.append(old.group).append(".");
    edited.name.append(old.name);
    ParameterWalk walk(old.parameters);
    Parameter parameter;
    while (walk.Next(parameter)) {
        if (TellsEncoding(parameter)) continue;
        std::string& kept = edited.parameters.emplace_back(m_decoder.DecodeText(parameter.source));
        // A quote that is never closed would reach for the new value's quotes.
        if (std::count(kept.begin(), kept.end(), '"') % 2 != 0) std::erase(kept, '"');
    }
    edited.value = ValueOf(line);
    return edited;
}

EditedLine& LineEdits::Add(std::string_view name) {
    m_added.emplace_back().name = name;
    return m_added.back();
}

bool LineEdits::IsRemoved(std::ptrdiff_t line) const {
    const auto found = m_changes.find(line);
    return found != m_changes.end() && found->second.isRemoved;
}

void LineEdits::Append(const EditedLine& line, std::string& text) const {
    if (line.isRemoved) return;
    if (line.name.empty()) {  // text that is no line of the format
        text.append(line.value).append(m_lineEnd);
        return;
    }
    std::string head = line.name;
    for (const std::string& parameter : line.parameters) head.append(";").append(parameter);
    text += FormatLine(head, line.value, m_dialect, m_lineEnd);
}

// Behind the last line of the entry itself, as what stands in a component inside it is not the
// entry's own; but not between an AGENT and its card.
std::ptrdiff_t LineEdits::PlaceOfAdded() const {
    auto place = static_cast<std::ptrdiff_t>(m_lines.size()) - 1;
    const auto isOwn = [](const ContentLine& line) {
        return !line.name.empty() && !EqualsIgnoringCase(line.name, "AGENT");
    };
    while (place > 0 && !isOwn(Line(place - 1))) --place;
    // The empty line that ends base64 stays with it, unless what comes next would read as a fold.
    constexpr auto kNpos = std::string_view::npos;
    while (Line(place).source.find_first_not_of(" \t\r\n") == kNpos &&
           Line(place + 1).source.find_first_of(" \t") != 0) {
        ++place;
    }
    return place;
}

void LineEdits::EditLegacyLines() {
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        if (ValueDecoder::IsLegacy(m_lines[i])) At(static_cast<std::ptrdiff_t>(i));
    }
}

std::string LineEdits::Text() {
    if (!IsEmpty()) EditLegacyLines();
    std::string text;
    const std::ptrdiff_t place = PlaceOfAdded();
    for (std::ptrdiff_t i = 0; i < static_cast<std::ptrdiff_t>(m_lines.size()); ++i) {
        if (i == place && !m_added.empty()) {
            const bool isOpen = i > 0 && !m_changes.contains(i - 1) && IsBrokenOff(Line(i - 1));
            if (isOpen) text.append(m_lineEnd);
            for (const EditedLine& line : m_added) Append(line, text);
        }
        const auto change = m_changes.find(i);
        if (change == m_changes.end()) {
            text.append(Line(i).source);
        } else {
            Append(change->second, text);
        }
    }
    return text;
}

std::string_view LineEndOf(std::string_view line) {
    if (line.ends_with("\r\n")) return "\r\n";
    if (line.ends_with('\n')) return "\n";
    return line.ends_with('\r') ? "\r" : "\r\n";
}

}  // namespace orvo
