// What a call may reveal of private entries.
// SPDX-License-Identifier: MIT
#include <utility>

#include <fmt/format.h>

#include <cli/CommandError.h>
#include <cli/Output.h>
#include <cli/PasswordInput.h>
#include <cli/PrivateGuard.h>
#include <host/HostOptions.h>
#include <host/Password.h>
#include <platform/settings/SettingsStore.h>

namespace orvo::cli {

PrivateGuard::PrivateGuard(PrivateRequest request) : m_request(std::move(request)) {
    if (m_request.showsPrivate || !m_request.passwordFile.empty()) Unlock();
}

const COrvoDesktopOptions& PrivateGuard::Options() {
    if (!m_options) {
        // So that no save of another process is seen half-way; without it, what is there counts.
        const SettingsLock lock;
        m_options = LoadHostOptions(PrintWarning);
    }
    return *m_options;
}

Disclosure PrivateGuard::Disclosed() {
    return m_request.showsPrivate ? Disclosure(Privacy::Show) : Disclosure(Options(), m_isUnlocked);
}

void PrivateGuard::Unlock() {
    if (m_isUnlocked || !IsGuarded(Options())) return;
    std::string password =
        m_request.passwordFile.empty() ? AskForPassword() : ReadPassword(m_request.passwordFile);
    m_isUnlocked = IsPassword(TypedPassword(password));
    Wipe(password);
    if (!m_isUnlocked) throw CommandError(kWrongUse, "the password of private entries is wrong");
}

void PrivateGuard::CheckChange(const CBaseRecord& record, const std::string& what) {
    const Disclosure disclosure = Disclosed();
    if (disclosure.Of(WayOut::Change, record) == Told::Whole) return;
    throw CommandError(kWrongUse, fmt::format("{} is private and {}: change it with --show-private",
                                              what, disclosure.Hides() ? "hidden" : "masked"));
}

std::string LeftOutLine(std::size_t count) {
    return fmt::format("{} private {} left out: --show-private takes {} in", count,
                       count == 1 ? "entry was" : "entries were", count == 1 ? "it" : "them");
}

}  // namespace orvo::cli
