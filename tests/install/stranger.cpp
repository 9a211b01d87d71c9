// A program that embeds the library: adds a person and prints the name as lists show it, then what
// stands for a name that is missing, from the installed language module.
// SPDX-License-Identifier: MIT
#include <cstdio>

#include <libraries/quire/MemoryEngine.h>
#include <orvoshare/module/Version.h>
#include <orvoshare/text/NameText.h>
#include <platform/text/SystemLocale.h>

int main() {
    orvo::SystemLocale::Set("de-DE");
    orvo::MemoryEngine engine;
    orvo::CAddressTable table(engine);
    orvo::CAddressRecord record(table);
    record.Set(orvo::AddressField::Name, "Lee");
    record.Set(orvo::AddressField::First, "Ann");
    if (table.Add(record) != 0 || *orvo::OrvoShareVersion() == '\0') return 1;
    orvo::CString name;
    orvo::FormatName(&record, name);
    std::puts(name);
    orvo::CAddressRecord nobody(table);
    orvo::GetFormattedName(&nobody, name, 1);
    std::puts(name);
    return 0;
}
