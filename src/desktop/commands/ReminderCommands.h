// Reminders while the window is open, and what the user answers to them.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include <desktop/commands/FormCommands.h>
#include <desktop/reminder/Notifications.h>
#include <desktop/store/SessionReminders.h>

namespace orvo::desktop {

class ReminderCommands {
public:
    // Both outlive the commands.
    ReminderCommands(CommandContext& context, FormCommands& forms);

    void Start();
    // Answers are taken only by the service after that, where it runs.
    void Stop();
    // The options aren't as they were.
    void TakeOptions();

private:
    void Tell(const Note& note);
    void Answer(const std::string& text, const std::string& token);

    CommandContext& m_context;
    FormCommands& m_forms;
    // From the start on: a window that is only drawn has none.
    std::unique_ptr<Notifications> m_notifications;
    std::unique_ptr<SessionReminders> m_reminders;
};

}  // namespace orvo::desktop
