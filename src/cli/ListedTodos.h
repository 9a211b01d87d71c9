// The rows of the list of to-dos, as they are printed.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <cli/Output.h>
#include <cli/TodoView.h>

namespace orvo::cli {

// A record's date as "2026-12-24"; null for none.
Json DayAsJson(long date);

// One row as an object, or as cells under the headings of its list (TableHeadings). Of a masked row
// both tell nothing but that it is there.
Json TodoAsJson(TodoView& view, int row);
std::vector<std::string> TodoAsCells(TodoView& view, int row);

}  // namespace orvo::cli
