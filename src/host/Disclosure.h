// What is told of private entries, on each way by which an entry leaves the store.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/RecordStore.h>
#include <orvoshare/options/DesktopOptions.h>

namespace orvo {

// What the user wants to become of private entries, from the freest to the strictest.
enum class Privacy { Show, Mask, Hide };

Privacy PrivacyOf(const COrvoDesktopOptions& options);
void SetPrivacy(COrvoDesktopOptions& options, Privacy privacy);

// True where private entries may only be seen by whoever gives the password.
bool IsGuarded(const COrvoDesktopOptions& options);

enum class WayOut {
    View,   // a row, a card or a field on a screen, as text, as JSON, or told to a screen reader
    Paper,  // printed, or a PDF file
    InfoTip,
    Export,  // a file of cards or of a calendar
    Mail,    // as a recipient or as a card
    Clipboard,
    Drag,        // to another program
    Duplicates,  // a search that shows whole entries side by side
    Trash,
    Reminder,  // a message before a to-do is due
    Change,    // an edit, which shows what it is about
};
constexpr int kWaysOut = static_cast<int>(WayOut::Change) + 1;

// A masked entry keeps its place and tells nothing but that it is there.
enum class Told { Whole, Masked, Nothing };

// The one place that decides it. An entry that isn't private is told whole everywhere.
class Disclosure {
public:
    explicit Disclosure(Privacy privacy) : m_privacy(privacy) {}
    // Of options in which the lock holds already.
    explicit Disclosure(const COrvoDesktopOptions& inForce) : m_privacy(PrivacyOf(inForce)) {}
    // As the options say. Where a password guards private entries they stay hidden until it was
    // given.
    Disclosure(const COrvoDesktopOptions& options, bool isPasswordGiven);

    Told Of(WayOut way, bool isPrivate = true) const;
    Told Of(WayOut way, const CBaseRecord& record) const {
        return Of(way, record.IsPrivate() != 0);
    }

    // The stricter of this and `privacy`.
    Disclosure AtLeast(Privacy privacy) const;

    Privacy InForce() const { return m_privacy; }
    // For views: whether they leave private entries out, and whether they mask them.
    int Hides() const { return m_privacy == Privacy::Hide ? 1 : 0; }
    int Masks() const { return m_privacy == Privacy::Mask ? 1 : 0; }

private:
    Privacy m_privacy;
};

}  // namespace orvo
