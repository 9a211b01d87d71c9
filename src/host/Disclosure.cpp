// What is told of private entries, on each way by which an entry leaves the store.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <host/Disclosure.h>
#include <host/Password.h>

namespace orvo {
namespace {

// What is told of a private entry while such entries are masked, and while they are hidden.
struct WayRow {
    WayOut way;
    Told masking;
    Told hiding;
};
constexpr std::array<WayRow, kWaysOut> kWays{{
    {WayOut::View, Told::Masked, Told::Nothing},
    {WayOut::Paper, Told::Masked, Told::Nothing},
    {WayOut::InfoTip, Told::Nothing, Told::Nothing},
    // What leaves the program would be useless without its content, and betray how much there is.
    {WayOut::Export, Told::Nothing, Told::Nothing},
    {WayOut::Mail, Told::Nothing, Told::Nothing},
    {WayOut::Clipboard, Told::Nothing, Told::Nothing},
    {WayOut::Drag, Told::Nothing, Told::Nothing},
    {WayOut::Duplicates, Told::Nothing, Told::Nothing},
    {WayOut::Trash, Told::Nothing, Told::Nothing},
    // A duty stays one: that something is due is told, and not what.
    {WayOut::Reminder, Told::Masked, Told::Masked},
    {WayOut::Change, Told::Nothing, Told::Nothing},
}};

constexpr bool EachRowStandsAtItsWay() {
    for (std::size_t i = 0; i < kWays.size(); ++i) {
        if (static_cast<std::size_t>(kWays[i].way) != i) return false;
    }
    return true;
}
static_assert(EachRowStandsAtItsWay());

}  // namespace

Privacy PrivacyOf(const COrvoDesktopOptions& options) {
    if (!options.IsShowingPrivate()) return Privacy::Hide;
    return options.IsMaskingPrivate() ? Privacy::Mask : Privacy::Show;
}

void SetPrivacy(COrvoDesktopOptions& options, Privacy privacy) {
    options.SetShowingPrivate(privacy != Privacy::Hide);
    options.SetMaskingPrivate(privacy == Privacy::Mask);
}

bool IsGuarded(const COrvoDesktopOptions& options) {
    return options.IsPasswordRequired() != 0 && IsPasswordSet();
}

Disclosure::Disclosure(const COrvoDesktopOptions& options, bool isPasswordGiven)
    : m_privacy(isPasswordGiven || !IsGuarded(options) ? PrivacyOf(options) : Privacy::Hide) {}

Told Disclosure::Of(WayOut way, bool isPrivate) const {
    if (!isPrivate || m_privacy == Privacy::Show) return Told::Whole;
    const WayRow& row = kWays[static_cast<std::size_t>(way)];
    return m_privacy == Privacy::Mask ? row.masking : row.hiding;
}

Disclosure Disclosure::AtLeast(Privacy privacy) const {
    return Disclosure(std::max(m_privacy, privacy));
}

}  // namespace orvo
