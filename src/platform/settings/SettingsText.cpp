// The text of a settings file.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <platform/settings/SettingsText.h>

namespace orvo {

namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trim(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

bool IsComment(std::string_view content) {
    return content.starts_with(';') || content.starts_with('#');
}

}  // namespace

SettingsText::SettingsText(std::string bytes) : m_bytes(std::move(bytes)) {
    Index();
}

void SettingsText::Index() {
    m_sections.clear();
    Section* section = nullptr;
    std::size_t begin = m_bytes.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    while (begin < m_bytes.size()) {
        const std::size_t end = std::min(m_bytes.find('\n', begin), m_bytes.size());
        const std::size_t next = std::min(end + 1, m_bytes.size());
        section = ReadLine({begin, end - begin}, next, section);
        begin = next;
    }
}

// Gives the section to which the next line belongs; null where the last heading can't be read.
SettingsText::Section* SettingsText::ReadLine(Range line, std::size_t next, Section* section) {
    const std::string_view bytes = std::string_view(m_bytes).substr(line.begin, line.length);
    const std::string_view content = Trim(bytes);
    if (content.starts_with('[')) {
        const std::size_t close = content.find(']');
        if (close == std::string_view::npos) return nullptr;
        section = &m_sections[std::string(Trim(content.substr(1, close - 1)))];
        section->end = next;
        return section;
    }
    const std::size_t sign = bytes.find('=');
    if (section == nullptr || sign == std::string_view::npos || IsComment(content)) return section;
    const std::string_view value = Trim(bytes.substr(sign + 1));
    const std::size_t valueBegin =
        value.empty() ? line.begin + sign + 1
                      : line.begin + static_cast<std::size_t>(value.data() - bytes.data());
    section->values.try_emplace(std::string(Trim(bytes.substr(0, sign))),
                                Range{valueBegin, value.size()});
    section->end = next;
    return section;
}

const SettingsText::Section* SettingsText::FindSection(std::string_view name) const {
    const auto found = m_sections.find(name);
    return found == m_sections.end() ? nullptr : &found->second;
}

bool SettingsText::HasSectionFrom(std::string_view start) const {
    const auto found = m_sections.lower_bound(start);
    return found != m_sections.end() && found->first.starts_with(start);
}

std::optional<std::string_view> SettingsText::Find(std::string_view section,
                                                   std::string_view key) const {
    const Section* in = FindSection(section);
    if (in == nullptr) return std::nullopt;
    const auto found = in->values.find(key);
    if (found == in->values.end()) return std::nullopt;
    return std::string_view(m_bytes).substr(found->second.begin, found->second.length);
}

std::string_view SettingsText::LineEnd() const {
    const std::size_t end = m_bytes.find('\n');
    const bool isPair = end != std::string::npos && end > 0 && m_bytes[end - 1] == '\r';
    return isPair ? "\r\n" : "\n";
}

void SettingsText::InsertLines(std::size_t position, std::string lines) {
    if (position > 0 && m_bytes[position - 1] != '\n') lines.insert(0, LineEnd());
    m_bytes.insert(position, lines);
}

std::string SettingsText::Heading(std::string_view section) const {
    const std::string_view gap = m_bytes.empty() ? std::string_view() : LineEnd();
    return std::string(gap).append("[").append(section).append("]").append(LineEnd());
}

void SettingsText::Set(std::string_view section, std::string_view key, std::string_view value) {
    const std::string line = std::string(key).append("=").append(value).append(LineEnd());
    const Section* in = FindSection(section);
    if (in == nullptr) {
        InsertLines(m_bytes.size(), Heading(section) + line);
    } else if (const auto found = in->values.find(key); found != in->values.end()) {
        m_bytes.replace(found->second.begin, found->second.length, value);
    } else {
        InsertLines(in->end, line);
    }
    Index();
}

void SettingsText::AddSection(std::string_view section) {
    if (HasSection(section)) return;
    InsertLines(m_bytes.size(), Heading(section));
    Index();
}

void SettingsText::Remove(std::string_view section, std::string_view key) {
    // The first value hides the others of its name, which would count as soon as it is gone.
    while (const std::optional<std::string_view> value = Find(section, key)) {
        const auto position = static_cast<std::size_t>(value->data() - m_bytes.data());
        const std::size_t begin = m_bytes.rfind('\n', position - 1) + 1;
        const std::size_t end = std::min(m_bytes.find('\n', position), m_bytes.size() - 1);
        m_bytes.erase(begin, end + 1 - begin);
        Index();
    }
}

}  // namespace orvo
