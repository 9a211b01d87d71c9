// The controls of a dialog template as a row of widgets.
// SPDX-License-Identifier: MIT
#pragma once

#include <QGridLayout>
#include <QWidget>
#include <functional>
#include <map>

#include <platform/window/base/Messages.h>
#include <platform/window/dialogs/DialogTemplate.h>

namespace orvo {

// Widgets by the numbers of their controls; those without a number of their own are left out.
using QtControls = std::map<UINT, QWidget*>;

// Adds the controls below the rows of a grid with labels on the left: a label that begins the
// template stands below those. Texts get the room that they need. `clicked` is called with the
// number of each button that is clicked.
// Owner:    the widget of the grid.
QtControls AddControlRow(QGridLayout& grid, const DialogTemplate& dialog,
                         const std::function<void(UINT id)>& clicked);

}  // namespace orvo
