// What stands in the way of a store, in words.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

enum class StoreFault {
    Damaged,
    Foreign,     // no store at all
    Newer,       // of a version that this program doesn't know yet
    Missing,     // its folder isn't there
    NotAllowed,  // the file or its folder
    NoRoom,
    Busy,    // another program is writing
    Taken,   // another program has it for itself
    Moved,   // removed or replaced while it was open
    Gone,    // isn't there after it was
    NoHome,  // the user has no folder of his own for it
    Memory,
    Unreadable,  // anything else
};

// What the fault is, in English, as the end of a line; the window has it in the user's language.
ORVO_API const char* FaultText(StoreFault fault);

// The fault whose text ends the line; nothing for other lines.
ORVO_API std::optional<StoreFault> FaultOfLine(std::string_view line);

}  // namespace orvo
