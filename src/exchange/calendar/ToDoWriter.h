// Writing a to-do record as a VTODO, and the calendar around them.
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <contracts/RecordStore.h>
#include <exchange/calendar/CalendarClock.h>
#include <exchange/calendar/ToDoFields.h>
#include <exchange/cards/TableTexts.h>
#include <exchange/lines/LineText.h>

namespace orvo {

// The origin, in older stores, of a record that came from no file: its source holds nothing but the
// UID that it was exported with, which is that of the record.
constexpr std::string_view kOnlyExported = "exported";

class ToDoWriter {
public:
    // The dialect is Calendar10 or Calendar20.
    ToDoWriter(CToDoTable& table, Dialect dialect);

    struct Written {
        // The opening and the zones that its source had (ToDoSource).
        std::vector<SharedText> timeZones;
        std::string toDo;
        std::string instances;  // to-dos with a RECURRENCE-ID; none in vCalendar, which has no such
    };

    // The VTODO that the record was imported from, with the lines of edited fields written anew and
    // the stamps that tell when; a
    // fresh one, which keeps the other one's lines as far as both formats have them, where the
    // record came in another format or wasn't imported, with the record's uid. Where the store
    // can't read the record's note and what it was imported from, the to-do goes without them and
    // `loss` says why in one line; without a `loss`, throws ExchangeError.
    Written Write(const CToDoRecord& record, std::string* loss = nullptr);

    // What a to-do without an origin would get if it were imported now.
    Origin OriginHere(const ToDoFields& fields);

private:
    CToDoTable& m_table;
    Dialect m_dialect;
    CategoryNames m_categories;
    CalendarClock m_clock;
};

// Puts to-dos together to the text of a file. To-dos of calendars that differ in their TZ, or in
// their zones under the same name, go into calendars of their own.
class CalendarText {
public:
    explicit CalendarText(Dialect dialect) : m_dialect(dialect) {}

    void Add(const ToDoWriter::Written& written);
    std::string Text() const;

private:
    struct Calendar {
        std::string zoneLine;
        std::map<std::string, SharedText> zones;
        std::string toDos;
    };

    Dialect m_dialect;
    std::vector<Calendar> m_calendars{1};
};

}  // namespace orvo
