// The program as the service that reminds without a window.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QLocale>
#include <memory>
#include <unistd.h>
#include <vector>

#include <desktop/EndSignals.h>
#include <desktop/instance/BackgroundReminders.h>
#include <desktop/reminder/NoteWindow.h>
#include <desktop/service/ReminderService.h>
#include <desktop/service/RunReminders.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <platform/text/SystemLocale.h>

namespace orvo::desktop {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 2;

std::unique_ptr<QCoreApplication> MakeApplication(bool hasOwnNotes, int& count, char** arguments) {
    if (!hasOwnNotes) return std::make_unique<QCoreApplication>(count, arguments);
    auto application = std::make_unique<QApplication>(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    return application;
}

int Serve(const std::string& store, bool hasOwnNotes, Instance& instance) {
    ReminderService service(
        store,
        {[](int code) { QCoreApplication::exit(code); },
         [hasOwnNotes](const Note& note, const std::function<void(const std::string&)>& answered) {
             if (hasOwnNotes) ShowNote(nullptr, note, answered);
             return hasOwnNotes;
         }});
    const EndSignals endSignals([] { QCoreApplication::exit(kDone); });
    if (!service.Start()) return kFailed;
    instance.SetListener([&service](const StartRequest& request) { service.Take(request); });
    const int code = QCoreApplication::exec();
    instance.SetListener([](const StartRequest&) {});
    return code;
}

// In the place of this process.
int StartAnew(bool hasOwnNotes, int count, char** arguments) {
    static char ownNotes[] = "--own-notes";
    std::vector<char*> again(arguments, arguments + count);
    if (hasOwnNotes) again.push_back(ownNotes);
    again.push_back(nullptr);
    execv("/proc/self/exe", again.data());
    PrintProblem("the program can't be started anew");
    return kFailed;
}

}  // namespace

int RunReminders(const std::string& store, bool hasOwnNotes, int count, char** arguments) {
    std::unique_ptr<Instance> instance = Instance::Claim(ReminderServiceName(store), {});
    if (!instance) return kDone;
    int code = kDone;
    {
        int left = count;
        std::vector<char*> words(arguments, arguments + count + 1);
        const auto application = MakeApplication(hasOwnNotes, left, words.data());
        QCoreApplication::setApplicationName("orvo-desktop");
        UseLanguage(SystemLocale::Language());
        QLocale::setDefault(
            QLocale(QString::fromStdString(SystemLocale::Tag()).section("-u-", 0, 0)));
        code = Serve(store, hasOwnNotes, *instance);
    }
    instance.reset();
    if (code == kRestart) return StartAnew(false, count, arguments);
    if (code != kRestartWithWindows) return code;
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY") ||
                            qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
                            qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (hasDisplay) return StartAnew(true, count, arguments);
    PrintProblem("reminders can be shown neither by a notification service nor on a display");
    return kFailed;
}

}  // namespace orvo::desktop
