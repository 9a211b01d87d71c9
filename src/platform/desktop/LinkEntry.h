// Desktop entries that stand for a file: "Type=Link" with a "file:" address.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace orvo {

// Returns:  the path of the file for which the desktop entry stands; empty where it stands for none
//           on this machine.
std::string PathOfLinkEntry(std::string_view entry);

}  // namespace orvo
