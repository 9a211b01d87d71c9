// The entries of a file: where each begins and ends.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <exchange/EntryReader.h>

namespace orvo {
namespace {

struct ComponentRule {
    std::string_view name;
    EntryKind kind;
};

// The components that are never part of another entry, but for the card of an AGENT.
constexpr std::array<ComponentRule, 6> kComponents{{
    {"VCARD", EntryKind::Card},
    {"VTODO", EntryKind::ToDo},
    {"VTIMEZONE", EntryKind::TimeZone},
    {"VEVENT", EntryKind::OtherComponent},
    {"VJOURNAL", EntryKind::OtherComponent},
    {"VFREEBUSY", EntryKind::OtherComponent},
}};

const ComponentRule* FindComponent(std::string_view name) {
    const auto* const found = std::find_if(
        kComponents.begin(), kComponents.end(),
        [&](const ComponentRule& rule) { return EqualsIgnoringCase(rule.name, name); });
    return found == kComponents.end() ? nullptr : found;
}

bool IsNamed(const ContentLine& line, std::string_view name) {
    return EqualsIgnoringCase(line.name, name);
}

bool IsBlank(const ContentLine& line) {
    return line.name.empty() && Trimmed(line.value).empty();
}

bool IsCalendar(std::string_view component) {
    return EqualsIgnoringCase(component, "VCALENDAR");
}

}  // namespace

void EntryReader::Keep(const ContentLine& line, bool isNested) {
    m_lines.Add(line, isNested, m_reader.Rest());
}

void EntryReader::Close(Entry& entry, bool complete) {
    entry.source = m_lines.Source();
    entry.number = m_lines.Line(0).number;
    entry.complete = complete;
    entry.lines = LineList(m_lines);
}

void EntryReader::ReadStray(Entry& entry) {
    ContentLine line;
    std::size_t used = m_lines.Size();
    while (m_reader.Next(line)) {
        if (IsNamed(line, "BEGIN") || (m_inCalendar && !line.name.empty())) {
            m_reader.GoBackTo(line);
            break;
        }
        Keep(line);
        if (!IsBlank(line)) used = m_lines.Size();
    }
    m_lines.Cut(used);
    entry.component = {};
    entry.kind = EntryKind::Stray;
    Close(entry, true);
}

bool EntryReader::ReadComponent(Entry& entry) {
    m_open.assign(1, entry.component);
    bool opensAgent = false;
    ContentLine line;
    while (m_reader.Next(line)) {
        const std::string_view component = Trimmed(line.value);
        if (IsNamed(line, "BEGIN")) {
            const bool isAgent = opensAgent && EqualsIgnoringCase(component, "VCARD");
            if (!isAgent && (FindComponent(component) || IsCalendar(component))) {
                m_reader.GoBackTo(line);
                return false;
            }
            m_open.push_back(component);
        } else if (IsNamed(line, "END")) {
            if (IsCalendar(component)) {
                m_reader.GoBackTo(line);
                return false;
            }
            if (EqualsIgnoringCase(component, m_open.back())) {
                m_open.pop_back();
            } else if (EqualsIgnoringCase(component, m_open.front())) {
                m_open.clear();
            }
            if (m_open.empty()) {
                Keep(line);
                return true;
            }
        }
        if (!IsBlank(line)) opensAgent = IsNamed(line, "AGENT") && component.empty();
        Keep(line, m_open.size() > 1 || IsNamed(line, "END"));
    }
    return false;
}

bool EntryReader::Next(Entry& entry) {
    m_lines.Clear();
    m_reader.Forget();
    ContentLine line;
    do {
        if (!m_reader.Next(line)) return false;
    } while (IsBlank(line));
    Keep(line);
    entry.component = Trimmed(line.value);
    if (IsNamed(line, "BEGIN") && IsCalendar(entry.component)) {
        m_inCalendar = true;
        entry.kind = EntryKind::CalendarBegin;
        Close(entry, true);
    } else if (IsNamed(line, "BEGIN")) {
        const ComponentRule* const rule = FindComponent(entry.component);
        entry.kind = rule ? rule->kind : EntryKind::OtherComponent;
        Close(entry, ReadComponent(entry));
    } else if (m_inCalendar && IsNamed(line, "END") && IsCalendar(entry.component)) {
        m_inCalendar = false;
        entry.kind = EntryKind::CalendarEnd;
        Close(entry, true);
    } else if (m_inCalendar && !line.name.empty() && !IsNamed(line, "END")) {
        entry.kind = EntryKind::CalendarProperty;
        Close(entry, true);
    } else {
        ReadStray(entry);
    }
    return true;
}

}  // namespace orvo
