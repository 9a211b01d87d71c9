// The content lines of one entry, in little memory.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <limits>

#include <exchange/lines/ExchangeError.h>
#include <exchange/lines/LineList.h>

namespace orvo {
namespace {

constexpr std::size_t kUsualLines = 1024;
constexpr std::size_t kLookAhead = 16;

bool IsLineEnd(char c) {
    return c == '\n' || c == '\r';
}

std::string_view WithoutEnd(std::string_view source) {
    while (!source.empty() && IsLineEnd(source.back())) source.remove_suffix(1);
    return source;
}

// To take lines apart once more whenever they are asked for would take as long as the import.
void KeepHead(const ContentLine& line, KeptLine& kept) {
    if (line.name.empty()) return;
    const auto nameStart = static_cast<std::size_t>(line.name.data() - line.text.data());
    const bool fits = nameStart < KeptLine::kLongName && line.name.size() < KeptLine::kLongName;
    kept.nameStart = static_cast<std::uint16_t>(fits ? nameStart : 0);
    kept.nameSize = fits ? static_cast<std::uint16_t>(line.name.size()) : KeptLine::kLongName;
    kept.colon = static_cast<std::uint32_t>(line.text.size() - line.value.size() - 1);
}

void SetHead(const KeptLine& kept, ContentLine& line) {
    line.value = line.text;
    if (kept.nameSize == 0) return;
    const std::string_view head = line.text.substr(0, kept.colon);
    const std::size_t nameEnd = std::size_t{kept.nameStart} + kept.nameSize;
    line.name = head.substr(kept.nameStart, kept.nameSize);
    if (kept.nameStart > 0) line.group = head.substr(0, kept.nameStart - std::size_t{1});
    const std::size_t semicolon = nameEnd < head.size() ? head.find(';', nameEnd) : head.npos;
    if (semicolon != head.npos) line.parameters = head.substr(semicolon + 1);
    line.value = line.text.substr(kept.colon + std::size_t{1});
}

}  // namespace

void LineKeeper::Clear() {
    if (m_lines.capacity() > kUsualLines) m_lines = std::vector<KeptLine>();
    if (m_texts.capacity() > kUsualLines) m_texts = std::vector<std::string_view>();
    m_lines.clear();
    m_texts.clear();
}

// A list that doubles holds all of its lines twice while it grows. Room for as many lines as may
// come next costs nothing until they come.
void LineKeeper::MakeRoom(std::string_view rest) {
    const auto used = static_cast<std::size_t>(rest.data() - m_start);
    rest = rest.substr(0, std::max(used, kUsualLines) * kLookAhead);
    const auto feeds = static_cast<std::size_t>(std::count_if(rest.begin(), rest.end(), IsLineEnd));
    m_lines.reserve(m_lines.size() + feeds + 1);
}

void LineKeeper::Add(const ContentLine& line, bool isNested, std::string_view rest) {
    if (m_lines.empty()) {
        m_start = line.source.data();
        m_number = line.number;
    }
    const auto start = static_cast<std::size_t>(line.source.data() - m_start);
    if (start + line.source.size() > std::numeric_limits<std::uint32_t>::max()) {
        throw ExchangeError("an entry of more than 4 GB can't be read");
    }
    // Empty lines that follow each other are kept as one, as each is shorter than what is kept of
    // it.
    const bool follows = !m_lines.empty() && m_lines.back().start + m_lines.back().size == start;
    if (follows && IsLineEnd(m_start[start]) && IsLineEnd(m_start[m_lines.back().start])) {
        m_lines.back().size += static_cast<std::uint32_t>(line.source.size());
        return;
    }
    if (m_lines.size() == m_lines.capacity() && m_lines.size() >= kUsualLines) MakeRoom(rest);
    KeptLine kept{static_cast<std::uint32_t>(start),
                  static_cast<std::uint32_t>(line.source.size()),
                  static_cast<std::uint32_t>(line.number - m_number),
                  0,
                  0,
                  0,
                  0};
    KeepHead(line, kept);
    const bool isInSource = line.text.data() == line.source.data();
    if (!isInSource) {
        m_texts.push_back(line.text);
        kept.text = static_cast<std::uint32_t>(m_texts.size());
    }
    if (isNested) kept.text |= KeptLine::kNested;
    m_lines.push_back(kept);
}

ContentLine LineKeeper::Line(std::size_t place) const {
    const KeptLine& kept = m_lines[place];
    ContentLine line;
    line.source = {m_start + kept.start, kept.size};
    line.number = m_number + kept.number;
    const std::uint32_t text = kept.text & ~KeptLine::kNested;
    line.text = text != 0 ? m_texts[text - 1] : WithoutEnd(line.source);
    if (kept.nameSize == KeptLine::kLongName) {
        TakeApart(line);
    } else {
        SetHead(kept, line);
    }
    if ((kept.text & KeptLine::kNested) != 0) line.name = {};
    return line;
}

std::string_view LineKeeper::Source() const {
    if (m_lines.empty()) return {};
    const KeptLine& last = m_lines.back();
    return {m_start, std::size_t{last.start} + last.size};
}

}  // namespace orvo
