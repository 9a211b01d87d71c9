// Work on files that may take long, while the window goes on to be drawn.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace orvo::desktop {

// Runs the work in another thread and waits for its end. What the user types or clicks meanwhile
// waits, too; after a moment a window says what is going on.
void RunInBackground(QWidget* parent, const QString& text, const std::function<void()>& work);

}  // namespace orvo::desktop
