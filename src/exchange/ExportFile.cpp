// Writing the store to card and calendar files.
// SPDX-License-Identifier: MIT
#include <fmt/core.h>

#include <exchange/CardWriter.h>
#include <exchange/ContentLine.h>
#include <exchange/ExportFile.h>
#include <exchange/NewFile.h>
#include <exchange/ToDoWriter.h>

namespace orvo {
namespace {

constexpr std::size_t kChunk = 1u << 20;

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

// Calls `write` for each record of the category; gives their number.
template <class Record, class Iterator, class Table, class Write>
std::size_t ForEach(Table& table, int category, Write write) {
    Record record(table);
    Iterator iterator(table);
    std::size_t count = 0;
    long status = iterator.FindFirst(record);
    for (; status == 0; status = iterator.FindNext(record)) {
        int own = kNoCategory;
        record.GetCategoryId(own);
        if (category != kAllCategories && own != category) continue;
        write(record);
        ++count;
    }
    if (status != static_cast<long>(StoreStatus::End)) {
        throw ExchangeError("the store can't be read: " + table.LastError());
    }
    return count;
}

}  // namespace

bool IsCardFile(const std::string& path) {
    return EqualsIgnoringCase(Ending(path), ".vcf");
}

std::size_t ExportFile(const std::string& path, CAddressTable& addresses, CToDoTable& toDos,
                       int category) {
    const FileKind kind = KindOf(path);
    try {
        NewFile file(path);
        std::size_t count = 0;
        if (kind == FileKind::Cards) {
            CardWriter writer(addresses);
            std::string text;
            count = ForEach<CAddressRecord, CAddressIterator>(
                addresses, category, [&](const CAddressRecord& record) {
                    text += writer.Write(record);
                    if (!text.ends_with('\n') && !text.ends_with('\r')) text += "\r\n";
                    if (text.size() < kChunk) return;
                    file.Write(text);
                    text.clear();
                });
            file.Write(text);
        } else {
            const Dialect dialect =
                kind == FileKind::Calendar ? Dialect::Calendar20 : Dialect::Calendar10;
            ToDoWriter writer(toDos, dialect);
            CalendarText calendar(dialect);
            count = ForEach<CToDoRecord, CToDoIterator>(
                toDos, category,
                [&](const CToDoRecord& record) { calendar.Add(writer.Write(record)); });
            file.Write(calendar.Text());
        }
        if (count != 0) file.Replace();
        return count;
    } catch (const ExchangeError& error) {
        throw ExchangeError(fmt::format("{}: {}", path, error.what()));
    }
}

std::string ExportCard(CAddressRecord& record, CAddressTable& table) {
    return CardWriter(table).Write(record);
}

}  // namespace orvo
