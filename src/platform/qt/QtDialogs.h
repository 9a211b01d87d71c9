// Menus and questions on the screen: each waits until the user has answered.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <platform/text/CString.h>
#include <platform/time/CTime.h>
#include <platform/window/dialogs/CMenu.h>

namespace orvo {

// The functions of WindowSystem, with a widget as the owner; null for none.
UINT ShowPopupMenu(const CMenu& menu, UINT flags, CPoint point, QWidget* owner);
int AskInMessageBox(const CString& text, UINT type, QWidget* owner);
bool AskForDay(CTime& day, QWidget* owner);

}  // namespace orvo
