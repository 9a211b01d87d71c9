// How many entries there are and are selected, in the status bar.
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QStatusBar>

#include <desktop/views/ShownEntries.h>

namespace orvo::desktop {

class StatusCounts {
public:
    // While the bar shows a message the counts make room for it.
    void PutInto(QStatusBar& bar);
    void Show(ShownEntries& entries);

private:
    QLabel m_label;
};

}  // namespace orvo::desktop
