// A dialog in which the user chooses a category.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <optional>

#include <contracts/RecordStore.h>

namespace orvo::desktop {

// Returns:  the index of the category of `table` that the user has chosen; nothing where he has
//           chosen none.
std::optional<int> ChooseCategory(QWidget* parent, CBaseTable& table);

}  // namespace orvo::desktop
