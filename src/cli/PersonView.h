// What only a person's card says, as `show` prints it.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <cli/Output.h>
#include <people/Person.h>

namespace orvo::cli {

// A field in a line of its own; the further lines of its text stand below the first. Nothing for an
// empty text.
void PrintField(const std::string& title, std::string text);

// All that no field of the record shows, but for its UID, which is that of the record.
void PrintPerson(const Person& person);

// The same and what the fields show: the parts of the name, "department", "role", "uid", "photo",
// and an object for each detail under "details".
Json PersonAsJson(const Person& person);

}  // namespace orvo::cli
