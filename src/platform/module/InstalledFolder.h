// Where the folders that are installed with the library lie.
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace orvo {

// The folder that the environment variable names; where it isn't set, the folder `belowPrefix` of
// the prefix in which this library or the program lies, and where there is none, that of /usr,
// whether it is there or not.
std::filesystem::path InstalledFolder(const char* variable,
                                      const std::filesystem::path& belowPrefix);

}  // namespace orvo
