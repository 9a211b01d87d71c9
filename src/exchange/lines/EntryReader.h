// The entries of a file: cards, to-dos and the other components that stand in it.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <exchange/lines/ContentLine.h>
#include <exchange/lines/LineList.h>

namespace orvo {

enum class EntryKind {
    Card,              // VCARD
    ToDo,              // VTODO
    TimeZone,          // VTIMEZONE
    OtherComponent,    // what is neither, such as VEVENT
    CalendarBegin,     // the line that opens a calendar
    CalendarProperty,  // a line of the calendar itself
    CalendarEnd,
    Stray,  // lines outside of everything, other than empty ones
};

struct Entry {
    EntryKind kind;
    std::string_view component;  // its name as written, such as "VEVENT"
    std::string_view source;     // all of its lines as they came; valid as they are
    std::size_t number;          // of its first line, from 1
    bool complete;               // false where its END is missing
    // Valid until the next entry is read. Lines of components inside it have no name.
    LineList lines;
};

// True for the line of an AGENT whose card follows it, or begins in it.
bool OpensAgent(const ContentLine& line);

// Reads the entries of a text one after the other. It stays where it is while an entry is in use. A
// component inside another one, such as the card of an AGENT or an alarm, is part of the outer one.
// But the cards that version 2.1 groups in another card are entries of their own, which come before
// that one. An entry that has no END ends where the next one begins.
class EntryReader {
public:
    explicit EntryReader(std::string_view text, std::size_t firstNumber = 1)
        : m_text(text), m_reader(text, firstNumber) {}

    // Returns:  false at the end of the text.
    bool Next(Entry& entry);

private:
    enum class End { Found, Missing, GroupedCard };

    // A card in which another one begins waits until that one was read.
    struct WaitingCard {
        Entry entry;
        LineKeeper lines;
        std::vector<ContentLineReader::Unfolded> unfolded;
    };

    void ReadEntry(Entry& entry);
    End ReadComponent(Entry& entry);
    bool EndsEntry(std::string_view component);
    void ReadStray(Entry& entry);
    void BeginGroupedCard(Entry& entry);
    void GoOnWithCard(Entry& entry);
    void Keep(const ContentLine& line, bool isNested = false);
    void Close(Entry& entry, bool complete);

    std::string_view m_text;
    ContentLineReader m_reader;
    LineKeeper m_lines;
    std::vector<std::string_view> m_open;  // the names of the components that are open
    bool m_inCalendar = false;
    std::vector<WaitingCard> m_waiting;  // from the outermost one on
    // Of an entry that has waited: what its lines before that were unfolded to, and its source.
    std::vector<ContentLineReader::Unfolded> m_unfolded;
    bool m_hasWaited = false;
    std::string m_joined;
};

}  // namespace orvo
