// The options while the window is open, and the lock on private entries.
// SPDX-License-Identifier: MIT
#include <desktop/dialogs/NamesDialog.h>
#include <desktop/options/OptionsDialog.h>
#include <desktop/security/PasswordDialogs.h>
#include <desktop/texts/Texts.h>
#include <desktop/window/Appearance.h>
#include <desktop/window/DesktopWindow.h>
#include <host/HostOptions.h>

namespace orvo::desktop {

COrvoDesktopOptions DesktopWindow::StoredOptions() {
    return LoadHostOptions([this](const std::string& problem) { TellProblem(problem); });
}

void DesktopWindow::OpenOptions() {
    COrvoDesktopOptions chosen = StoredOptions();
    const Colours before = PreferredColours();
    if (!EditOptions(this, chosen)) return;
    if (PreferredColours() != before) SetColours(PreferredColours());
    ChangeOptions([&chosen](COrvoDesktopOptions& options) { options = chosen; });
}

void DesktopWindow::OpenNames() {
    EditNames(this, m_session);
    FillCategoryBox();
    m_frame.Refill();
}

void DesktopWindow::ChoosePrivacy(Privacy privacy) {
    if (privacy != Privacy::Hide && !Unlock()) return ShowPrivacy();
    ChangeOptions([privacy](COrvoDesktopOptions& options) { SetPrivacy(options, privacy); });
}

void DesktopWindow::LockOrUnlock() {
    if (!m_isLocked) {
        m_isLocked = true;
    } else if (!Unlock()) {
        return;
    }
    // Read again: the lock holds in memory only.
    ChangeOptions([](COrvoDesktopOptions&) {});
}

bool DesktopWindow::Unlock() {
    if (m_isLocked && AskForPassword(this)) m_isLocked = false;
    return !m_isLocked;
}

void DesktopWindow::HoldLock() {
    if (!IsGuarded(m_options)) m_isLocked = false;
    SetPrivacy(m_options, Disclosure(m_options, !m_isLocked).InForce());
}

void DesktopWindow::ShowPrivacy() {
    m_privacies.actions().at(static_cast<int>(PrivacyOf(m_options)))->setChecked(true);
    m_lock->setVisible(IsGuarded(m_options));
    m_lock->setText(m_isLocked ? Text("&Unlock private entries...")
                               : Text("Loc&k private entries"));
}

}  // namespace orvo::desktop
