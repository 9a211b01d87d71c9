// Reading a file as a whole.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>
#include <string>

#include <platform/Export.h>
#include <platform/io/Descriptor.h>

namespace orvo {

constexpr std::size_t kNoFileIsTooLong = std::numeric_limits<std::size_t>::max();

// Sets `bytes` to what the regular file holds. It never waits, also where a pipe has that name.
// Returns 0, or why not as the system's number: EINVAL where it is no regular file, EFBIG where it
// is longer than `limit`; `bytes` is then empty.
ORVO_API int ReadWholeFile(const std::string& path, std::string& bytes,
                           std::size_t limit = kNoFileIsTooLong);

// The same for a file that is open, from where it stands, whatever its kind.
ORVO_API int ReadToEnd(const Descriptor& file, std::string& bytes,
                       std::size_t limit = kNoFileIsTooLong);

}  // namespace orvo
