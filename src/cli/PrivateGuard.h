// What a call may reveal of private entries.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include <host/Disclosure.h>

namespace orvo::cli {

// What the command line says of private entries.
struct PrivateRequest {
    bool showsPrivate = false;
    std::string passwordFile;
};

// Private entries are shown as the user's options say, and hidden where the password that guards
// them wasn't given.
class PrivateGuard {
public:
    // Where all are to be shown, or a password file is named, a password that guards them is asked
    // for at once.
    // Fails:    CommandError, wrong use, where it is wrong or can't be had.
    explicit PrivateGuard(PrivateRequest request);

    // The user's options as they are at the first call; what is wrong with them is reported on
    // standard error.
    const COrvoDesktopOptions& Options();

    Disclosure Disclosed();

    // For what only someone who knows the password may do. Nobody is asked where no password guards
    // private entries, and nobody is asked twice.
    // Fails:    as the constructor.
    void Unlock();
    bool IsUnlocked() const { return m_isUnlocked; }

    // `what` names the record.
    // Fails:    CommandError, wrong use, where the record may not be shown whole.
    void CheckChange(const CBaseRecord& record, const std::string& what);

private:
    PrivateRequest m_request;
    std::optional<COrvoDesktopOptions> m_options;
    bool m_isUnlocked = false;
};

// What is said of private entries that were left out: how many, and how to get them.
std::string LeftOutLine(std::size_t count);

}  // namespace orvo::cli
