// Any bytes go in without harm; what went in comes out as it was, and an edit can be read again.
// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include <exchange/calendar/ToDoFields.h>
#include <exchange/calendar/ToDoWriter.h>
#include <exchange/cards/CardWriter.h>
#include <exchange/files/ImportFile.h>
#include <libraries/quire/MemoryEngine.h>

namespace orvo {
namespace {

struct Tables {
    MemoryEngine engine;
    CAddressTable addresses{engine};
    CToDoTable toDos{engine};
};

void Require(bool condition) {
    if (!condition) std::abort();
}

void CheckAddresses(Tables& tables) {
    CardWriter writer(tables.addresses);
    CAddressRecord record(tables.addresses);
    CAddressIterator iterator(tables.addresses);
    for (long s = iterator.FindFirst(record); s == 0; s = iterator.FindNext(record)) {
        std::string source;
        record.GetSource(source);
        Require(writer.Write(record) == source);

        constexpr std::string_view edited = "Edited; \xC3\xA9\nEND:VCARD";
        Require(record.SetUtf8(AddressField::Name, edited) == 0);
        Require(record.SetUtf8(AddressField::Title, edited) == 0);
        Require(record.SetUtf8(PhoneField(1), edited) == 0);
        Tables copies;
        ImportBytes(writer.Write(record), copies.addresses, copies.toDos);
        CAddressRecord copy(copies.addresses);
        Require(copies.addresses.GetCount() == 1);
        Require(CAddressIterator(copies.addresses).FindFirst(copy) == 0);
        Require(copy.Utf8(AddressField::Name) == edited);
        Require(copy.Utf8(AddressField::Title) == edited);
        Require(copy.Utf8(PhoneField(1)) == edited);
    }
}

void CheckToDos(Tables& tables) {
    CToDoRecord record(tables.toDos);
    CToDoIterator iterator(tables.toDos);
    for (long s = iterator.FindFirst(record); s == 0; s = iterator.FindNext(record)) {
        ToDoParts parts;
        record.GetSourceParts(parts.shared, parts.rest);
        EntryReader reader(parts.rest);
        ToDoSource source;
        Require(ReadToDoSource(parts, reader, source));
        ToDoWriter writer(tables.toDos, source.dialect);
        Require(writer.Write(record).toDo == source.toDo.source);

        Require(record.SetDescriptionUtf8("Edited; \xC3\xA9\nEND:VTODO") == 0);
        Require(record.SetDueDate(12345678) == 0);
        for (const Dialect dialect : {Dialect::Calendar10, Dialect::Calendar20}) {
            CalendarText calendar(dialect);
            calendar.Add(ToDoWriter(tables.toDos, dialect).Write(record));
            Tables copies;
            ImportBytes(calendar.Text(), copies.addresses, copies.toDos);
            CToDoRecord copy(copies.toDos);
            Require(CToDoIterator(copies.toDos).FindFirst(copy) == 0);
            Require(copy.DescriptionUtf8() == record.DescriptionUtf8());
        }
    }
}

}  // namespace
}  // namespace orvo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    orvo::Tables tables;
    try {
        const std::string bytes(data, data + size);
        orvo::ImportBytes(bytes, tables.addresses, tables.toDos);
    } catch (const orvo::ExchangeError&) {
        return 0;
    }
    orvo::CheckAddresses(tables);
    orvo::CheckToDos(tables);
    return 0;
}
