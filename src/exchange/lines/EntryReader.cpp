// The entries of a file: where each begins and ends.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <exchange/lines/EntryReader.h>

namespace orvo {
namespace {

struct ComponentRule {
    std::string_view name;
    EntryKind kind;
};

constexpr std::string_view kCard = "VCARD";

// The components that are never part of another entry, but for the card of an AGENT.
constexpr std::array<ComponentRule, 6> kComponents{{
    {kCard, EntryKind::Card},
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

bool IsVersion21(const ContentLine& line) {
    return IsNamed(line, "VERSION") && Trimmed(line.value) == "2.1";
}

bool BeginsInside(const ContentLine& agent) {
    return EqualsIgnoringCase(Trimmed(agent.value), "BEGIN:VCARD");
}

}  // namespace

bool OpensAgent(const ContentLine& line) {
    return IsNamed(line, "AGENT") && (Trimmed(line.value).empty() || BeginsInside(line));
}

void EntryReader::Keep(const ContentLine& line, bool isNested) {
    m_lines.Add(line, isNested, m_reader.Rest());
}

void EntryReader::Close(Entry& entry, bool complete) {
    entry.source = m_lines.Source();
    if (m_hasWaited) {
        m_joined.clear();
        for (const ContentLine& line : LineList(m_lines)) m_joined += line.source;
        entry.source = m_joined;
    }
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

bool EntryReader::EndsEntry(std::string_view component) {
    if (EqualsIgnoringCase(component, m_open.back())) {
        m_open.pop_back();
    } else if (EqualsIgnoringCase(component, m_open.front())) {
        m_open.clear();
    }
    return m_open.empty();
}

EntryReader::End EntryReader::ReadComponent(Entry& entry) {
    m_open.assign(1, entry.component);
    bool groupsCards = m_hasWaited;
    bool opensAgent = false;
    ContentLine line;
    while (m_reader.Next(line)) {
        const std::string_view component = Trimmed(line.value);
        const bool isInside = m_open.size() > 1;
        if (IsNamed(line, "BEGIN")) {
            const bool isCard = EqualsIgnoringCase(component, kCard);
            if (!(opensAgent && isCard) && (FindComponent(component) || IsCalendar(component))) {
                m_reader.GoBackTo(line);
                return isCard && groupsCards && !isInside ? End::GroupedCard : End::Missing;
            }
            m_open.push_back(component);
        } else if (OpensAgent(line) && BeginsInside(line)) {
            m_open.push_back(kCard);
        } else if (IsNamed(line, "END")) {
            if (IsCalendar(component)) {
                m_reader.GoBackTo(line);
                return End::Missing;
            }
            if (EndsEntry(component)) {
                Keep(line);
                return End::Found;
            }
        }
        const bool isOwn = entry.kind == EntryKind::Card && !isInside;
        groupsCards = groupsCards || (isOwn && IsVersion21(line));
        if (!IsBlank(line)) opensAgent = OpensAgent(line) && !BeginsInside(line);
        Keep(line,
             isInside || (m_open.size() > 1 && IsNamed(line, "BEGIN")) || IsNamed(line, "END"));
    }
    return End::Missing;
}

void EntryReader::ReadEntry(Entry& entry) {
    End end = ReadComponent(entry);
    while (end == End::GroupedCard) {
        BeginGroupedCard(entry);
        end = ReadComponent(entry);
    }
    Close(entry, end == End::Found);
}

void EntryReader::BeginGroupedCard(Entry& entry) {
    if (auto unfolded = m_reader.TakeUnfolded()) m_unfolded.push_back(std::move(unfolded));
    m_waiting.push_back({entry, std::move(m_lines), std::move(m_unfolded)});
    m_lines = {};
    m_unfolded.clear();
    m_hasWaited = false;
    ContentLine begin;
    m_reader.Next(begin);
    Keep(begin);
    entry.component = Trimmed(begin.value);
}

void EntryReader::GoOnWithCard(Entry& entry) {
    WaitingCard& card = m_waiting.back();
    entry = card.entry;
    m_lines = std::move(card.lines);
    m_unfolded = std::move(card.unfolded);
    m_waiting.pop_back();
    m_hasWaited = true;
    ReadEntry(entry);
}

bool EntryReader::Next(Entry& entry) {
    m_lines.Clear();
    m_reader.Forget();
    m_unfolded.clear();
    m_hasWaited = false;
    if (!m_waiting.empty()) {
        GoOnWithCard(entry);
        return true;
    }
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
        ReadEntry(entry);
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
