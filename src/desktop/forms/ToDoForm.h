// The form of a to-do.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <contracts/RecordStore.h>
#include <desktop/forms/FormKeeper.h>
#include <desktop/parts/PartEdits.h>

namespace orvo::desktop {

// As EditAddress, for a to-do.
bool EditToDo(QWidget* parent, CToDoTable& table, CToDoRecord& record,
              FormKeeper* keeper = nullptr);

// The same with the to-do's parts, once it is stored. What is done to them is in the store at once:
// where the form isn't saved, the caller takes that back.
bool EditToDoWithParts(QWidget* parent, CToDoTable& table, CToDoRecord& record, FormKeeper* keeper,
                       const PartsContext& parts);

}  // namespace orvo::desktop
