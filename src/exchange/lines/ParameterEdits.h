// Edits on the parameters of a line.
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <exchange/lines/ContentLine.h>
#include <exchange/lines/LineText.h>

namespace orvo {

// The parameter split at its "=".
Parameter TakeApart(const std::string& source);

// Takes the words out of the parameters that list types.
void RemoveTypes(std::vector<std::string>& parameters, std::span<const std::string_view> words);

// Adds a word that says what the line is for, in the dialect's way.
void AddType(std::vector<std::string>& parameters, std::string_view word, Dialect dialect);

// Takes away each parameter of that name.
void RemoveParameter(std::vector<std::string>& parameters, std::string_view name);

}  // namespace orvo
