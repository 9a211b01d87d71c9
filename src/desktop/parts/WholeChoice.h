// The choice of the to-do that others become parts of.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <cstdint>
#include <optional>
#include <vector>

#include <desktop/parts/PartEdits.h>

namespace orvo::desktop {

// Asks for one that isn't completed, and is none of those `parts` nor below any of them.
// Returns:  nothing where the user leaves it.
std::optional<std::int64_t> ChooseWhole(QWidget* parent, const PartsContext& context,
                                        const std::vector<std::int64_t>& parts);

}  // namespace orvo::desktop
