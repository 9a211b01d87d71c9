// Storing the to-dos of a calendar as records.
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <contracts/RecordStore.h>
#include <exchange/calendar/CalendarClock.h>
#include <exchange/cards/TableTexts.h>
#include <exchange/lines/EntryReader.h>
#include <exchange/lines/KnownEntries.h>
#include <exchange/lines/ProgressMeter.h>

namespace orvo {

// Takes the entries of a calendar one after the other. To-dos wait until the calendar is over, as
// its version and its zones may stand after them. The text that was read must outlive it.
class CalendarReader {
public:
    // `fileCharset` is the legacy set of the file, empty where it has none. The meter counts the
    // to-dos that are stored.
    CalendarReader(CToDoTable& table, ImportReport& report, std::string_view fileCharset,
                   ProgressMeter& meter, KnownEntry known);

    void Take(const Entry& entry);
    // Stores the to-dos that wait.
    // Fails:    ExchangeError where the store refuses to write.
    void Finish();
    bool IsWaiting() const { return !m_waiting.empty(); }

private:
    struct WaitingToDo {
        std::string_view source;
        std::size_t number;
    };
    // A to-do, or a series with the dates that differ from its rule.
    struct Series {
        Entry toDo;
        std::string instances;  // texts of VTODOs
        Dialect dialect = Dialect::Calendar20;
    };

    // Those that belong to a series of the same calendar go with it.
    void StoreWaiting(Dialect dialect);
    void Store(const Series& series);
    // An instance whose series is in the store.
    // Returns:  false where it isn't.
    bool StoreInstance(const Series& series);
    void Fill(const Series& series, Origin& origin, CToDoRecord& record);
    void Update(const Entry& toDo, const CToDoRecord& row, CToDoRecord& record);
    KnownEntries::Comparison Compare(const Series& series, std::string_view charset,
                                     const CToDoRecord& row);
    long FillBase(const CToDoRecord& row, CToDoRecord& base);
    // As it is told; of a private one nothing is.
    static std::string NameOf(const CToDoRecord& row);
    void Check(long status, const Entry& toDo) const;
    // The opening of its calendar, where it has one, and the zones that its to-dos name.
    std::vector<SharedText> SharedOf(const Series& series) const;
    void TakeZone(std::string_view source);
    void Skip(const Entry& entry);

    CToDoTable& m_table;
    ImportReport& m_report;
    ProgressMeter& m_meter;
    CategoryNames m_categories;
    std::string m_fileCharset;
    bool m_updates;  // what the store holds already
    KnownEntries m_known;
    CalendarClock m_clock;
    std::string m_version;
    std::string m_zoneLine;  // the TZ of the calendar
    std::vector<WaitingToDo> m_waiting;
    std::map<std::string, SharedText, std::less<>> m_zones;  // by TZID
    std::optional<SharedText> m_opening;                     // of a calendar of vCalendar
};

}  // namespace orvo
