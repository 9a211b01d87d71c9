// Writing a to-do record as a VTODO, and the calendar around them.
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <contracts/RecordStore.h>
#include <exchange/CalendarClock.h>
#include <exchange/LineText.h>
#include <exchange/TableTexts.h>

namespace orvo {

class ToDoWriter {
public:
    // The dialect is Calendar10 or Calendar20.
    ToDoWriter(CToDoTable& table, Dialect dialect);

    struct Written {
        std::string timeZones;  // the zones that the to-do names, where its source had them
        std::string toDo;
    };

    // The VTODO that the record was imported from, with the lines of edited fields written anew; a
    // fresh one, which keeps the other one's UID and X- lines, where the record came in another
    // format or wasn't imported. Throws ExchangeError where the store can't be read.
    Written Write(const CToDoRecord& record);

private:
    CToDoTable& m_table;
    Dialect m_dialect;
    CategoryNames m_categories;
    CalendarClock m_clock;
};

// Puts to-dos together to the text of a file. To-dos whose zones differ under the same name go into
// calendars of their own.
class CalendarText {
public:
    explicit CalendarText(Dialect dialect) : m_dialect(dialect) {}

    void Add(const ToDoWriter::Written& written);
    std::string Text() const;

private:
    struct Calendar {
        std::map<std::string, std::string> zones;
        std::string toDos;
    };

    Dialect m_dialect;
    std::vector<Calendar> m_calendars{1};
};

}  // namespace orvo
