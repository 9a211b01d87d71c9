// Taking a step of the history back.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "StepChanges.h"

namespace orvo::desktop {

// Sets all rows and texts of the step to what they were before it.
// Returns:  true, with the way back in `inverse`; taking that back does the step again.
// Requires: the engine has a transaction open. The caller drops it where this fails.
// Fails:    with a line in `reason`, where something isn't as the step left it or the store fails.
bool TakeBack(StoreEngine& engine, const StepChanges& step, StepChanges& inverse,
              std::string& reason);

}  // namespace orvo::desktop
