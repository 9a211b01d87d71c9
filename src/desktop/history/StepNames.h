// What steps of the history are called, and why they can't be taken back.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "StepChanges.h"

namespace orvo::desktop {

// Names the step by what it does, in UTF-8.
// Requires: it isn't empty.
std::string NameOfStep(const StepChanges& step);

// That another program has changed a row, of which these are images, or has removed it. The row is
// named, but never where it is private.
std::string RowIsOtherwise(TableKind kind, const std::optional<RowImage>& now,
                           const std::optional<RowImage>& before);
// The same of a category or a label.
std::string TextIsOtherwise(const TextKey& key, const TextChange& change);

}  // namespace orvo::desktop
