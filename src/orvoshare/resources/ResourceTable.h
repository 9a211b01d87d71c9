// The module's own pictures, menus and dialogs, as their files have them.
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

#include <platform/module/Module.h>

namespace orvo {

constexpr unsigned kBitmapPrivate = 1000;
constexpr unsigned kBitmapNote = 1001;
constexpr unsigned kBitmapCheck = 1002;
constexpr unsigned kCursorHand = 1003;
constexpr unsigned kIconPrivate = 15140;
constexpr unsigned kIconNote = 15141;
constexpr unsigned kIconCompleted = 15142;

struct ResourceFile {
    ResourceKind kind;
    unsigned number;
    std::string_view text;
};

// All of them. They are written in resources/, in a folder for each kind, and a file is named by
// its number.
ORVO_API std::span<const ResourceFile> ResourceFiles();

}  // namespace orvo
