// How many entries there are and are selected, in the status bar.
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>

#include <desktop/views/ShownEntries.h>

namespace orvo::desktop {

class StatusCounts {
public:
    // While the bar shows a message the counts make room for it.
    void PutInto(QStatusBar& bar);
    void Show(ShownEntries& entries);

private:
    void ShowReading(std::optional<int> percent);

    QLabel m_label;
    QProgressBar m_read;      // how much is read of what the view shows
    QElapsedTimer m_reading;  // since when, while something is
};

}  // namespace orvo::desktop
