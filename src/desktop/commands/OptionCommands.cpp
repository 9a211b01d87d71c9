// The options while the window is open, names, and the lock on private entries.
// SPDX-License-Identifier: MIT
#include <desktop/commands/OptionCommands.h>
#include <desktop/dialogs/NamesDialog.h>
#include <desktop/options/Appearance.h>
#include <desktop/options/OptionsDialog.h>
#include <desktop/security/PasswordDialogs.h>
#include <desktop/texts/Texts.h>
#include <host/HostOptions.h>
#include <platform/settings/SettingsStore.h>

namespace orvo::desktop {

COrvoDesktopOptions OptionCommands::Stored() const {
    return LoadHostOptions(
        [this](const std::string& problem) { m_context.ReportProblem(problem); });
}

void OptionCommands::OpenOptions() {
    COrvoDesktopOptions chosen = Stored();
    const Colours before = PreferredColours();
    if (!EditOptions(&m_context.Window(), chosen, m_context.Session().Path())) return;
    if (PreferredColours() != before) SetColours(PreferredColours());
    Change([&chosen](COrvoDesktopOptions& options) { options = chosen; });
}

void OptionCommands::OpenNames() {
    EditNames(&m_context.Window(), m_context.Session());
    m_context.Refresh();
}

void OptionCommands::Change(const std::function<void(COrvoDesktopOptions&)>& change) {
    COrvoDesktopOptions& options = m_context.Options();
    if (m_context.IsInUse()) {
        // What orvo has set since stays.
        const SettingsLock lock;
        options = Stored();
        change(options);
        const std::string problem = SaveHostOptions(options);
        m_context.Refuse(FromUtf8(problem));
    } else {
        change(options);
    }
    HoldLock();
    m_privacyShown();
    m_context.Frame().Entries().Refill();
    m_changed();
}

void OptionCommands::ChoosePrivacy(Privacy privacy) {
    if (privacy != Privacy::Hide && !Unlock()) return m_privacyShown();
    Change([privacy](COrvoDesktopOptions& options) { SetPrivacy(options, privacy); });
}

void OptionCommands::LockAtStart() {
    m_isLocked = IsGuarded(m_context.Options());
    HoldLock();
}

void OptionCommands::LockOrUnlock() {
    if (!m_isLocked) {
        m_isLocked = true;
    } else if (!Unlock()) {
        return;
    }
    // Read again: the lock holds in memory only.
    Change([](COrvoDesktopOptions&) {});
}

bool OptionCommands::Unlock() {
    if (m_isLocked && AskForPassword(&m_context.Window())) m_isLocked = false;
    return !m_isLocked;
}

void OptionCommands::HoldLock() {
    COrvoDesktopOptions& options = m_context.Options();
    if (!IsGuarded(options)) m_isLocked = false;
    SetPrivacy(options, Disclosure(options, !m_isLocked).InForce());
}

}  // namespace orvo::desktop
