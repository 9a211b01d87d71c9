// The options while the window is open, names, and the lock on private entries.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

#include <desktop/commands/CommandContext.h>

namespace orvo::desktop {

class OptionCommands {
public:
    // The context outlives the commands.
    explicit OptionCommands(CommandContext& context) : m_context(context) {}

    // Called where something else may be shown of private entries, or was refused.
    void SetPrivacyListener(std::function<void()> listener) {
        m_privacyShown = std::move(listener);
    }
    // Called after options were changed, and the views filled by them.
    void SetChangeListener(std::function<void()> listener) { m_changed = std::move(listener); }

    // Hides private entries from the start on where a password guards them.
    void LockAtStart();
    bool IsLocked() const { return m_isLocked; }
    // Asks for the password where it is locked.
    void LockOrUnlock();
    void ChoosePrivacy(Privacy privacy);

    void OpenOptions();
    // Those of categories and labels.
    void OpenNames();
    // In the window, and while it is in use in the user's settings.
    void Change(const std::function<void(COrvoDesktopOptions&)>& change);

private:
    COrvoDesktopOptions Stored() const;
    bool Unlock();
    void HoldLock();

    CommandContext& m_context;
    std::function<void()> m_privacyShown;
    std::function<void()> m_changed;
    bool m_isLocked = false;  // private entries are hidden until the password is given
};

}  // namespace orvo::desktop
