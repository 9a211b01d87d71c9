// Writing the store to card and calendar files.
// SPDX-License-Identifier: MIT
#include <utility>

#include <fmt/core.h>

#include <exchange/calendar/ToDoWriter.h>
#include <exchange/cards/CardWriter.h>
#include <exchange/files/ExportFile.h>
#include <exchange/files/NewFile.h>
#include <exchange/lines/ContentLine.h>

namespace orvo {
namespace {

constexpr std::size_t kWriteChunk = 1u << 20;

enum class FileKind { Cards, OldCalendar, Calendar };

std::string_view Ending(std::string_view path) {
    const std::size_t dot = path.find_last_of("./");
    return dot == std::string_view::npos ? std::string_view() : path.substr(dot);
}

FileKind KindOf(const std::string& path) {
    const std::string_view ending = Ending(path);
    if (IsCardFile(path)) return FileKind::Cards;
    if (EqualsIgnoringCase(ending, ".ics")) return FileKind::Calendar;
    if (EqualsIgnoringCase(ending, ".vcs")) return FileKind::OldCalendar;
    throw ExchangeError(fmt::format(
        "{}: the name of a card file ends in .vcf, of a calendar in .ics or .vcs", path));
}

// Calls `write` for each record that is wanted and not damaged. It says in the text that it is
// given what it couldn't write.
template <class Record, class Iterator, class Table, class Write>
void ForEach(Table& table, const IsWanted& isWanted, ExportReport& report, Write write) {
    constexpr long kEnd = static_cast<long>(StoreStatus::End);
    Record record(table);
    Iterator iterator(table);
    for (long status = iterator.FindFirst(record); status != kEnd;
         status = iterator.FindNext(record)) {
        if (status != 0 && !iterator.IsAtDamage()) {
            throw ExchangeError("the store can't be read: " + table.LastError());
        }
        if (status != 0) {
            report.leftOut.push_back(table.LastError());
            continue;
        }
        if (!isWanted(record)) continue;
        std::string loss;
        write(record, loss);
        ++report.written;
        if (!loss.empty()) report.leftOut.push_back(std::move(loss));
    }
}

}  // namespace

bool IsCardFile(const std::string& path) {
    return EqualsIgnoringCase(Ending(path), ".vcf");
}

ExportReport ExportFile(const std::string& path, CAddressTable& addresses, CToDoTable& toDos,
                        int category) {
    return ExportFile(path, addresses, toDos, [category](const CBaseRecord& record) {
        int own = kNoCategory;
        record.GetCategoryId(own);
        return category == kAllCategories || own == category;
    });
}

ExportReport ExportFile(const std::string& path, CAddressTable& addresses, CToDoTable& toDos,
                        const IsWanted& isWanted) {
    const FileKind kind = KindOf(path);
    try {
        NewFile file(path);
        ExportReport report;
        if (kind == FileKind::Cards) {
            CardWriter writer(addresses);
            std::string text;
            ForEach<CAddressRecord, CAddressIterator>(
                addresses, isWanted, report, [&](const CAddressRecord& record, std::string& loss) {
                    text += writer.Write(record, &loss);
                    if (!text.ends_with('\n') && !text.ends_with('\r')) text += "\r\n";
                    if (text.size() < kWriteChunk) return;
                    file.Write(text);
                    text.clear();
                });
            file.Write(text);
        } else {
            const Dialect dialect =
                kind == FileKind::Calendar ? Dialect::Calendar20 : Dialect::Calendar10;
            ToDoWriter writer(toDos, dialect);
            CalendarText calendar(dialect);
            ForEach<CToDoRecord, CToDoIterator>(toDos, isWanted, report,
                                                [&](const CToDoRecord& record, std::string& loss) {
                                                    calendar.Add(writer.Write(record, &loss));
                                                });
            file.Write(calendar.Text());
        }
        if (report.written != 0) file.Replace();
        return report;
    } catch (const ExchangeError& error) {
        throw ExchangeError(fmt::format("{}: {}", path, error.what()));
    }
}

std::string ExportCard(CAddressRecord& record, CAddressTable& table) {
    return CardWriter(table).Write(record);
}

}  // namespace orvo
