// What a window is to find again at the next start.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <desktop/views/ViewKind.h>

namespace orvo::desktop {

struct WindowSettings {
    QByteArray geometry;  // of the main window, as Qt saves it; empty the first time
    QByteArray panes;     // the same of its panes and bars
    ViewKind view = ViewKind::List;
    int addressOrder = 1;  // kListByCompany or kListByName
    int toDoOrder = 0;     // eSortOrder

    static WindowSettings Load();
    void Save() const;
};

}  // namespace orvo::desktop
