// A page of the dialog of options: it shows some of them, and gives back what the user chose.
// SPDX-License-Identifier: MIT
#include <desktop/options/OptionsPage.h>

namespace orvo::desktop {

bool OptionsPage::Save(COrvoDesktopOptions& options) const {
    bool isKept = true;
    for (const auto& save : m_saves) isKept = save(options) && isKept;
    return isKept;
}

}  // namespace orvo::desktop
