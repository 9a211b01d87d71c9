// The keys of commands that the lookup box leaves to the window.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>

class QKeyEvent;
class QLineEdit;

namespace orvo::desktop {

// The box has the keys while the user walks through the list below it. A key that would do nothing
// in its text, such as Delete behind it, is then meant for what is selected in the list.
class LookupKeys : public QObject {
public:
    // It ends with the box. `open` is called for Return, which opens what the lookup has found.
    LookupKeys(QLineEdit& box, std::function<void()> open);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool IsOfNoUse(QKeyEvent& key) const;

    QLineEdit& m_box;
    std::function<void()> m_open;
};

}  // namespace orvo::desktop
