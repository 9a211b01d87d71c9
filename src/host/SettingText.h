// Texts of the settings file, as programs read and write them.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace orvo {

// In UTF-8, cut behind 8191 bytes of the system's code page; empty where there is none.
std::string SettingText(const char* section, const char* key);

// Keeps it in the file before it returns.
// Returns:  false where the file can't be written; it stays as it was.
bool SetSettingText(const char* section, const char* key, std::string_view utf8);

}  // namespace orvo
