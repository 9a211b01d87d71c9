// Tables of a store in memory, and the text of their records.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <gmock/gmock.h>

#include <exchange/files/ImportFile.h>
#include <support/AddressFixture.h>

namespace orvo {

using testing::ElementsAre;
using testing::HasSubstr;
using Strings = std::vector<std::string>;

// All records in their order.
std::vector<std::unique_ptr<CAddressRecord>> All(CAddressTable& table);
std::vector<std::unique_ptr<CToDoRecord>> All(CToDoTable& table);

struct Tables {
    Tables() = default;
    explicit Tables(std::string_view text) { Import(text); }

    ImportReport Import(std::string_view bytes) { return ImportBytes(bytes, addresses, toDos); }
    std::string Export(CAddressRecord& record);

    // A record by its place from 0, which must be there.
    std::unique_ptr<CAddressRecord> Address(std::size_t place = 0);
    std::unique_ptr<CToDoRecord> ToDo(std::size_t place = 0);

    MemoryEngine engine;
    CAddressTable addresses{engine};
    CToDoTable toDos{engine};
};

// The fields of a record that aren't empty, divided by " | "; of a to-do the description first.
std::string Describe(const CAddressRecord& record);
std::string Describe(const CToDoRecord& record);

// Each record of the tables, or of those that a text becomes.
Strings DescribeAll(Tables& tables);
Strings DescribeAll(std::string_view text);

// An entry of that version around the lines, which "\n" divides; in the file "\r\n" ends each.
std::string Card(std::string_view lines, std::string_view version = "3.0");
std::string Calendar(std::string_view lines, std::string_view version = "2.0");
// A to-do for a calendar.
std::string ToDo(std::string_view lines);

// The text of a file, each of whose lines must end in "\r\n", with "\n" instead.
std::string Plain(std::string_view text);

// Any text made of up to so many pieces.
template <class Pieces, class Random>
std::string AnyText(const Pieces& pieces, unsigned most, Random& random) {
    std::string text;
    for (unsigned i = random() % most; i > 0; --i) text += pieces[random() % std::size(pieces)];
    return text;
}

}  // namespace orvo
