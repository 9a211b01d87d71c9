// A strip with the rows of the kana table, each of which leads to its first entry.
// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>
#include <QWidget>
#include <array>
#include <functional>
#include <utility>

#include <desktop/kana/KanaEntries.h>

namespace orvo::desktop {

// A narrow column of buttons. Tab comes to it once; up and down, Home and End go from row to row
// within it, past those that have no entry, and Space or Return press the row.
class KanaIndex : public QWidget {
public:
    explicit KanaIndex(QWidget* parent = nullptr);

    // Called with the row that the user chooses.
    void SetChooseListener(std::function<void(KanaRow)> listener) {
        m_chosen = std::move(listener);
    }

    // Only rows that have an entry can be chosen.
    void ShowEntries(const KanaEntries& entries);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool KeyPressed(int row, int key);
    void GoTo(int row, int step);
    void ChooseTabStop();

    std::array<QToolButton*, kKanaRowCount> m_buttons{};  // Qt's
    int m_current = 0;                                    // where Tab comes to
    std::function<void(KanaRow)> m_chosen;
};

// Selects the first item of the row, alone, and brings it into view.
// Returns:  false where there is none.
bool GoToKanaRow(CDetailViewAddrInf& view, KanaRow row);

}  // namespace orvo::desktop
