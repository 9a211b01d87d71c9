// The rows of the list of addresses, as they are printed.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <cli/AddressView.h>
#include <cli/Output.h>

namespace orvo::cli {

// One row as an object, or as cells under the headings; `showsIcons`: as an icon with its label. Of
// a masked row both tell nothing but that it is there.
Json AddressAsJson(AddressView& view, bool showsIcons, int row);
std::vector<std::string> AddressHeadings(CDetailViewAddrList& list, bool showsIcons);
std::vector<std::string> AddressAsCells(AddressView& view, bool showsIcons, int row);

}  // namespace orvo::cli
