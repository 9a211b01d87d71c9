// The module's own pictures, menus and dialogs, as their files have them.
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

#include <platform/module/Module.h>

namespace orvo {

struct ResourceFile {
    ResourceKind kind;
    unsigned number;
    std::string_view text;
};

// All of them. They are written in resources/, in a folder for each kind, and a file is named by
// its number.
ORVO_API std::span<const ResourceFile> ResourceFiles();

}  // namespace orvo
