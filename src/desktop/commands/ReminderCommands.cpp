// Reminders while the window is open, and what the user answers to them.
// SPDX-License-Identifier: MIT
#include <desktop/commands/ReminderCommands.h>
#include <desktop/instance/BackgroundReminders.h>
#include <desktop/options/DesktopPreferences.h>
#include <desktop/reminder/NoteWindow.h>
#include <desktop/texts/Problems.h>
#include <platform/text/SystemText.h>
#include <platform/window/base/PlaySound.h>

namespace orvo::desktop {

ReminderCommands::ReminderCommands(CommandContext& context, FormCommands& forms)
    : m_context(context), m_forms(forms) {}

void ReminderCommands::Start() {
    m_notifications = std::make_unique<Notifications>(
        [this](const std::string& answer, const std::string& token) { Answer(answer, token); },
        [this](const Note& note) {
            ShowNote(&m_context.Window(), note,
                     [this](const std::string& answer) { Answer(answer, {}); });
        });
    m_reminders = std::make_unique<SessionReminders>(m_context.Session(), m_context.Options(),
                                                     [this](const Note& note) { Tell(note); });
    m_reminders->Start();
    StartRemindersInBackground(m_context.Session().Path());
}

void ReminderCommands::Stop() {
    if (m_reminders) m_reminders->Stop();
    const bool isServed = IsRemindingInBackground(m_context.Session().Path());
    if (m_notifications && !isServed) m_notifications->CloseAll();
}

void ReminderCommands::TakeOptions() {
    if (m_reminders) m_reminders->TakeOptions();
}

void ReminderCommands::Tell(const Note& note) {
    m_notifications->Show(note);
    const std::string sound = note.sounds ? ReminderSound() : std::string();
    if (!sound.empty()) PlaySoundA(SystemText(sound), nullptr, SND_FILENAME | SND_ASYNC);
}

void ReminderCommands::Answer(const std::string& text, const std::string& token) {
    const std::optional<ReminderAnswer> answer = ReminderAnswer::Of(text);
    if (!answer) return;
    const std::string problem = TakeAnswer(m_context.Session(), m_context.Options(), *answer);
    if (!problem.empty()) return m_context.ReportProblem(problem);
    if (m_context.Frame().IsShowingToDos()) m_context.Frame().Entries().TakeChanges(answer->ids);
    m_context.ShowCounts();
    if (answer->kind != ReminderAnswer::Kind::Open) return;
    m_context.ComeToFront(token);
    m_forms.OpenToDoLater(answer->ids.size() == 1 ? answer->ids.front() : 0);
}

}  // namespace orvo::desktop
