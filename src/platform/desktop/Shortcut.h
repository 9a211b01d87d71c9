// Shortcuts: files that stand for another one.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/Result.h>
#include <platform/text/CString.h>

namespace orvo {

constexpr HRESULT kFileNotFound = ResultOf(0x80070002);

// Paths are in the system's code page. Shortcuts are files whose names end in ".lnk" or ".desktop"
// in whatever case, and symbolic links.
ORVO_API bool IsShortcut(const CString& path);

// Sets `target` to the whole path of the file for which the shortcut stands. A shell link's target
// is looked for first where the link says it lies from its own folder, then at its path on the
// machine where the link was made, then below the link's folder by ever shorter ends of that path.
// Names are matched without regard to case where none is the same, the shortcut's own too. A
// shortcut is followed once, a symbolic link to its end and then, if that is a shortcut, once more.
// Returns:  S_OK.
// Fails:    with `target` empty: kFileNotFound where the shortcut or the target isn't there, E_FAIL
//           where the shortcut is damaged or isn't one.
ORVO_API HRESULT ResolveShortcut(const char* path, CString& target);

}  // namespace orvo
