// The to-dos of a file that belong to a series: dates that differ from its rule.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <exchange/calendar/ToDoText.h>

namespace orvo {

// True for a VTODO that stands for one date of a series.
bool IsInstance(std::string_view toDo);

// Of texts of VTODOs, by the place of each one that others belong to, as they have its UID and a
// RECURRENCE-ID (RFC 5545, 3.8.4.4): the places of those, in the order of the texts. One whose
// series isn't there belongs to nothing.
std::map<std::size_t, std::vector<std::size_t>> InstancesOfSeries(
    const std::vector<std::string_view>& toDos);

// Puts an instance, a text that ends with a line end, behind a series, in the place of one with the
// same RECURRENCE-ID.
// Returns:  false where the series holds the same text already.
bool SetInstance(ToDoText& series, std::string_view instance);

}  // namespace orvo
