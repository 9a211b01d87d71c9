// A user who does something at random, with windows that ask him answered at random, too.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <random>
#include <string>

#include <desktop/window/DesktopWindow.h>

namespace orvo::desktop {

class RandomUser {
public:
    RandomUser(DesktopWindow& window, unsigned seed);

    // Does one thing; no menu, no question and no form is open afterwards.
    // Gives:  what it was, for the reader of a failed test.
    std::string Act();

    // From 0 to `count` - 1.
    int Roll(int count);

private:
    std::string TriggerCommand();
    std::string PressKey();
    std::string ClickView();
    std::string ChooseCategory();
    std::string DropFile();

    void Answer();
    void Press(QWidget& window, int key, const QString& text = {});

    DesktopWindow& m_window;
    std::mt19937 m_random;
    QTimer m_answers;
    int m_answersToOne = 0;  // since the window that asks came up
    QWidget* m_asking = nullptr;
};

}  // namespace orvo::desktop
