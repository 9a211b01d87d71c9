// What becomes of private records in views.
// SPDX-License-Identifier: MIT
#pragma once

#include <orvoshare/options/DesktopOptions.h>

namespace orvo::desktop {

enum class Privacy { Show, Mask, Hide };

inline Privacy PrivacyOf(const COrvoDesktopOptions& options) {
    if (!options.IsShowingPrivate()) return Privacy::Hide;
    return options.IsMaskingPrivate() ? Privacy::Mask : Privacy::Show;
}

inline void SetPrivacy(COrvoDesktopOptions& options, Privacy privacy) {
    options.SetShowingPrivate(privacy != Privacy::Hide);
    options.SetMaskingPrivate(privacy == Privacy::Mask);
}

// Private entries may only be seen by who gives the password.
bool IsLockable(const COrvoDesktopOptions& options);

}  // namespace orvo::desktop
