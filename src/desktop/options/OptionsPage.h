// A page of the dialog of options: it shows some of them, and gives back what the user chose.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include <orvoshare/options/DesktopOptions.h>

namespace orvo::desktop {

class OptionsPage : public QWidget {
public:
    // Asks for what must be known before the user's choices may hold, such as a password.
    // Returns:  false where the dialog is to stay.
    virtual bool Confirm() { return true; }

    // Takes the choices over into the options and to where they are kept.
    // Returns:  false where something can't be kept.
    bool Save(COrvoDesktopOptions& options) const;

protected:
    void OnSave(std::function<bool(COrvoDesktopOptions&)> save) {
        m_saves.push_back(std::move(save));
    }

private:
    std::vector<std::function<bool(COrvoDesktopOptions&)>> m_saves;
};

}  // namespace orvo::desktop
