// The words and numbers of which resources in text form consist.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include <platform/module/Module.h>
#include <platform/text/CString.h>

namespace orvo {

// The words of one line, between blanks and tabs.
std::vector<std::string_view> SplitWords(std::string_view line);

// The words of each line; empty lines, and those that begin with "#", are passed over.
std::vector<std::vector<std::string_view>> SplitLines(std::string_view text);

// The number that makes up the whole word.
std::optional<int> NumberOf(std::string_view word);

// The module's string of that number in the system's code page; empty where it holds none.
CString StringOf(const Module& module, unsigned number);

}  // namespace orvo
