// The folder in which processes of one user meet.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

// The folder orvo in $XDG_RUNTIME_DIR, or in the user's folder below /run/user; else
// /tmp/orvo-USER. Made where it isn't there. Nobody but the user can look into it or put anything
// there, so that what lies there is the user's own.
// Returns:  an empty text where there is none of these, with the reason in one line in `error`.
ORVO_API std::string RuntimeFolder(std::string& error);

// A file name for any bytes, of at most 200 characters: of a long text it has the start, and a hash
// that distinguishes it from others.
ORVO_API std::string FileNameOf(std::string_view text);

}  // namespace orvo
