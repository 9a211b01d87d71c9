// What is told of reminders, and what the user may answer.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvo::desktop {

// An answer to a reminder. As a text it goes through the notification service and comes back, so
// that any of our programs understands it, whichever has told the reminder.
struct ReminderAnswer {
    enum class Kind : std::uint8_t { Complete, TenMinutes, OneHour, Tomorrow, Open, Seen };
    Kind kind = Kind::Seen;
    std::string store;                // what tells stores apart: DataSetUser
    std::int64_t told = 0;            // the moment up to which the user was reminded
    std::vector<std::int64_t> ids{};  // of the to-dos

    std::string Text() const;
    static std::optional<ReminderAnswer> Of(std::string_view text);
};

// A message with buttons, in plain text.
struct Note {
    struct Button {
        QString label;
        std::string answer;
    };
    QString title;
    QString body;
    bool sounds = false;  // with the sound that the user has chosen
    std::vector<Button> buttons{};
    std::string opened{};  // the answer of a click on the message itself; empty for none
    std::string closed{};  // the answer where the user closes it; empty for none
};

}  // namespace orvo::desktop
