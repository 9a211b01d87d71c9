// Fields that the wheel turns only where they have the focus: else it scrolls the form.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWheelEvent>

namespace orvo::desktop {

template <class Field>
class StillWheel : public Field {
public:
    StillWheel() { this->setFocusPolicy(Qt::StrongFocus); }

protected:
    void wheelEvent(QWheelEvent* event) override {
        if (this->hasFocus()) {
            Field::wheelEvent(event);
        } else {
            event->ignore();
        }
    }
};

}  // namespace orvo::desktop
