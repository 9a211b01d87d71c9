// A message that the desktop shows beside all windows.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

namespace orvo::desktop {

// By the notification service of the session bus; where there is none, by a window of its own,
// which stops nothing and ends with the parent. Plain text. It doesn't wait.
void ShowNotification(QWidget& parent, const QString& title, const QString& body);

}  // namespace orvo::desktop
