// The user's own folders in which others could change what the user keeps there.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace orvo {

// Looks at the folder of the settings and, where `store` isn't empty, at the folder of that file.
// Returns:  a line for each that other users could write to or have made, and why.
std::vector<std::string> OpenFolders(const std::string& store);

}  // namespace orvo
