// The form of a to-do.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <contracts/RecordStore.h>
#include <desktop/forms/FormKeeper.h>

namespace orvo::desktop {

// As EditAddress, for a to-do.
bool EditToDo(QWidget* parent, CToDoTable& table, CToDoRecord& record,
              FormKeeper* keeper = nullptr);

}  // namespace orvo::desktop
