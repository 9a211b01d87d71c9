// Reading card and calendar files into the store.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <contracts/RecordStore.h>
#include <exchange/lines/ExchangeError.h>
#include <exchange/lines/ImportReport.h>

namespace orvo {

// Reads a vCard (2.1, 3.0, 4.0), vCalendar 1.0 or iCalendar file; the content decides, not the
// name. New records get rising ids and placement positions in the file's order. An entry whose UID
// the store holds updates that record where it is newer, property by property.
// Requires: the caller has a transaction open if the import must be all or nothing.
// Fails:    ExchangeError where the file can't be read, is no card or calendar file, or the store
//           refuses to write; ImportCancelled where `progress` returns false.
ImportReport ImportFile(const std::string& path, CAddressTable& addresses, CToDoTable& toDos,
                        const ImportProgress& progress = nullptr,
                        KnownEntry known = KnownEntry::Update);

// Why the file can't be imported, in one line without its name; empty for a card or calendar file,
// and for a pipe, which would be empty afterwards.
std::string WhyNotImportable(const std::string& path);

// The same as ImportFile for bytes that the caller has read.
ImportReport ImportBytes(std::string_view bytes, CAddressTable& addresses, CToDoTable& toDos,
                         const ImportProgress& progress = nullptr,
                         KnownEntry known = KnownEntry::Update);

}  // namespace orvo
