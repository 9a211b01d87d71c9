// The module's own texts, English, by their numbers.
// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include <platform/Export.h>
#include <platform/module/Module.h>

namespace orvo {

constexpr unsigned kStringUncategorized = 279;
constexpr unsigned kStringPrivateColumn = 9186;
constexpr unsigned kStringNoteColumn = 9187;
constexpr unsigned kStringUnnamed = 9189;
constexpr unsigned kStringPrivate = 32804;
constexpr unsigned kStringLookUp = 33010;

struct NumberedString {
    unsigned number;
    const char* text;
};

// All texts, by rising number. They are written in lang/en.po.
ORVO_API std::span<const NumberedString> EnglishStrings();

// The module's own handle, which finds these texts, and the resources of ResourceTable.h.
ORVO_API HINSTANCE OwnModule();

}  // namespace orvo
