// The kana index beside the address views.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <utility>

#include <desktop/kana/KanaIndex.h>
#include <desktop/views/ViewFrame.h>

namespace orvo::desktop {

// Without a place it does nothing, as where the user's language isn't Japanese.
class KanaPane {
public:
    // The frame outlives it.
    explicit KanaPane(ViewFrame& frame) : m_frame(frame) {}

    // Puts it beside the central widget, which holds the views.
    void PutInto(QMainWindow& window);

    // Shows where the rows of the view begin.
    void Show();

private:
    ViewFrame& m_frame;
    KanaIndex* m_index = nullptr;      // Qt's
    std::pair<int, int> m_rows{0, 0};  // which it shows: how often filled, and how many
};

}  // namespace orvo::desktop
