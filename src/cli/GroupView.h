// Groups of people, as `show` tells of them.
// SPDX-License-Identifier: MIT
#pragma once

#include <cli/Output.h>
#include <cli/Store.h>
#include <people/Person.h>

namespace orvo::cli {

// Puts the names of people in the place of the addresses by which a group knows its members.
void NameMembers(Store& store, Person& person);

// The id and the name of each group that the address is in. Reads all addresses of the store.
Json GroupsOf(Store& store, std::int64_t id);

}  // namespace orvo::cli
