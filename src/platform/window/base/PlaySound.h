// Playing sound files.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/window/base/Messages.h>

namespace orvo {

constexpr DWORD SND_ASYNC = 0x00001;
constexpr DWORD SND_PURGE = 0x00040;
constexpr DWORD SND_FILENAME = 0x20000;

// With SND_FILENAME and SND_ASYNC starts to play the file of that path, in place of what is
// playing; the call doesn't wait. With SND_PURGE, or without a path, ends what is playing. No
// module of the system holds sounds: `module` is null.
// Returns:  non-zero where the system took the order, which for a file means that it can play
//           sounds.
// Fails:    with 0 for other flags, too, and changes nothing.
ORVO_API BOOL PlaySoundA(const char* path, const void* module, DWORD flags);

}  // namespace orvo
