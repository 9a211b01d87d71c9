// What permissions a new file with people's records gets.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <sys/types.h>

#include <platform/Export.h>

namespace orvo {

// For the user alone, whatever the process masks; in a folder that hands its group on (setgid) the
// group may read.
ORVO_API mode_t NewFileMode(const std::string& folder);

// Makes the empty file `path`, with those permissions, where nothing is there. Where that fails
// whoever opens the file next learns why.
ORVO_API void MakePrivateFile(const std::string& path);

}  // namespace orvo
