// orvo-desktop: people's addresses and to-dos in a window.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QLocale>
#include <QPixmap>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <memory>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include <desktop/CommandLine.h>
#include <desktop/EndSignals.h>
#include <desktop/commands/PrintCommands.h>
#include <desktop/instance/Instance.h>
#include <desktop/options/Appearance.h>
#include <desktop/options/DesktopPreferences.h>
#include <desktop/rescue/RescueOffer.h>
#include <desktop/rescue/StoreTrouble.h>
#include <desktop/service/RunReminders.h>
#include <desktop/store/MigrationProgress.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <desktop/window/DesktopWindow.h>
#include <host/HostOptions.h>
#include <host/OpenFolders.h>
#include <host/StoreAdvice.h>
#include <libraries/quire/UserStore.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/qt/QtWaiting.h>
#include <platform/qt/QtWindowSystem.h>
#include <platform/text/SystemLocale.h>
#include <platform/time/CTime.h>
#include <platform/window/base/ForeignWindow.h>

namespace orvo::desktop {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 2;
constexpr int kSomeLeftOut = 3;
constexpr int kReopen = -1;

int Fail(const std::string& reason) {
    PrintProblem(reason);
    return kFailed;
}

bool IsSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

// Files are rendered without a display; a window needs one.
bool ChoosePlatform(const CommandLine& line) {
    if (IsSet("QT_QPA_PLATFORM")) return true;
    if (!line.IsOffScreen()) return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY");
    return setenv("QT_QPA_PLATFORM", "offscreen", 1) == 0;
}

// Text in memory stays in the system's code page.
void UsePreferredLanguage() {
    const std::string locale = PreferredLocale();
    if (!locale.starts_with(SystemLocale::Language())) SystemLocale::Set(locale, GetACP());
}

void SetLocale(const CommandLine& line) {
    if (line.locale.empty() && line.codePage == 0) return UsePreferredLanguage();
    const std::string tag = line.locale.empty() ? SystemLocale::Tag() : line.locale;
    if (SystemLocale::Set(tag, line.codePage)) return;
    throw CommandLineError(fmt::format("--locale {} --code-page {}: no such locale or code page",
                                       line.locale, line.codePage));
}

void SetClock(const CommandLine& line) {
    if (line.now.empty()) return;
    const QDateTime now = QDateTime::fromString(QString::fromStdString(line.now), Qt::ISODate);
    if (!now.isValid() || now.toSecsSinceEpoch() < 0) {
        throw CommandLineError(
            fmt::format("--now: \"{}\" is no local time (such as 2026-12-24T18:00)", line.now));
    }
    CTime::SetClock(now.toSecsSinceEpoch());
}

QIcon WindowIcon() {
    QIcon icon;
    for (const int side : {16, 32, 48, 128}) icon.addFile(QString(":/icons/%1.png").arg(side));
    return icon;
}

// Numbers, hours and days in Qt's windows are those of the views.
void UseCountry() {
    const QString tag = QString::fromStdString(SystemLocale::Tag());
    const QLocale locale(tag.section("-u-", 0, 0));
    QLocale::setDefault(locale);
    QApplication::setLayoutDirection(locale.textDirection());
}

COrvoDesktopOptions LoadOptions() {
    return LoadHostOptions(PrintProblem);
}

// Without a display Qt warns of what files don't need.
void TellFailures(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) PrintProblem(text.toStdString());
}

int SaveFiles(DesktopWindow& window, const CommandLine& line) {
    window.show();
    // What is shown may ask for another look.
    QCoreApplication::processEvents();
    window.grab();
    while (!window.Frame().Addresses().HasAllPhotos()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QCoreApplication::processEvents();
    // A picture waits for no keys.
    if (QWidget* focus = QApplication::focusWidget()) focus->clearFocus();
    if (!line.picture.empty() && !window.grab().save(QString::fromStdString(line.picture))) {
        return Fail(fmt::format("{}: the picture can't be written", line.picture));
    }
    if (line.pdf.empty()) return kDone;
    const std::string problem = WriteViewAsPdf(window.Frame(), line.pdf);
    if (!problem.empty()) return Fail(problem);
    const int hidden = window.Frame().Entries().HiddenCount();
    if (hidden == 0) return kDone;
    PrintProblem(fmt::format("{}: {} private {} left out", line.pdf, hidden,
                             hidden == 1 ? "entry was" : "entries were"));
    return kSomeLeftOut;
}

std::string StorePathOf(const CommandLine& line) {
    return line.store.empty() ? UserStorePath() : line.store;
}

// Before the id of a to-do that is to be opened.
constexpr const char* kToDoAction = "todo-";

StartRequest RequestOf(const CommandLine& line) {
    StartRequest request;
    request.files = line.files;
    for (const ViewName& view : kViewNames) {
        if (line.view == view.kind) request.action = view.name;
    }
    if (line.toDo != 0) request.action = kToDoAction + std::to_string(line.toDo);
    for (const char* variable : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"}) {
        if (request.token.empty() && IsSet(variable)) request.token = std::getenv(variable);
    }
    return request;
}

// Does what a later start was asked for.
void Answer(DesktopWindow& window, const StartRequest& request) {
    for (const ViewName& view : kViewNames) {
        if (request.action == view.name) window.ShowView(view.kind);
    }
    window.ComeToFront(request.token);
    const QString action = FromUtf8(request.action);
    if (action.startsWith(kToDoAction)) {
        window.OpenToDoLater(action.mid(QString(kToDoAction).size()).toLongLong());
    }
    if (!request.files.empty()) window.ImportLater(request.files);
}

// The instance is null where no window is shown.
// Returns:  kReopen where the store is to be opened again.
int ShowWindow(StoreSession& session, const CommandLine& line, Instance* instance) {
    COrvoDesktopOptions options = LoadOptions();
    DesktopWindow window(session, options);
    WindowSettings settings = WindowSettings::Load();
    if (line.IsOffScreen()) settings = {};
    if (line.view) settings.view = *line.view;
    const EndSignals endSignals([&window] { window.close(); });
    if (!window.Open(settings)) return Fail("the window can't be made");
    const std::vector<std::string> openFolders =
        OpenFolders(line.store.empty() ? UserStorePath() : std::string());
    if (line.size) window.resize(*line.size);
    if (line.IsOffScreen()) {
        for (const std::string& problem : openFolders) PrintProblem(problem);
        if (!line.files.empty()) window.Import(line.files);
        return SaveFiles(window, line);
    }
    const QtWaiting waiting;
    const PublishedWindow published("Orvo Desktop", window.Frame().GetSafeHwnd());
    window.BeginSession();
    window.show();
    for (const std::string& problem : openFolders) window.TellProblem(problem);
    window.activateWindow();
    window.Frame().LookupBox().SetFocus();
    if (!line.files.empty()) window.ImportLater(line.files);
    if (line.toDo != 0) window.OpenToDoLater(line.toDo);
    if (!session.Damage().empty()) {
        OfferRescueLater(window, session.Path(), session.Damage(),
                         [&window](const std::string& backup) { window.Restore(backup); });
    }
    instance->SetListener([&window](const StartRequest& request) { Answer(window, request); });
    const int code = QApplication::exec();
    instance->SetListener([](const StartRequest&) {});
    return window.IsToReopen() ? kReopen : code;
}

// Behind each window's title; it tells windows of two stores apart.
QString TitleOf(const std::string& store) {
    QString program = "Orvo Desktop";
    if (InstanceName(store) == InstanceName({})) return program;
    const QFileInfo file(FromUtf8(store));
    QString folder = file.absolutePath();
    const QString home = QDir::homePath();
    if (folder == home || folder.startsWith(home + '/')) folder.replace(0, home.size(), '~');
    return QString::fromUtf8("%1 (%2) — %3").arg(file.fileName(), folder, program);
}

void SetUpApplication(const CommandLine& line) {
    QApplication::setApplicationName("orvo-desktop");
    QApplication::setApplicationDisplayName(TitleOf(line.store));
    QGuiApplication::setDesktopFileName("org.orvoshare.OrvoDesktop");
    QApplication::setWindowIcon(WindowIcon());
    UseLanguage(SystemLocale::Language());
    UseCountry();
    SetColours(line.colours.value_or(PreferredColours()));
}

// Opens the store of the line. One that was there and is gone isn't made anew.
// Returns:  null, with the reason in one line in `error` and as the fault.
std::unique_ptr<StoreSession> OpenSession(const CommandLine& line, bool wasThere,
                                          std::string& error, StoreFault& fault) {
    const std::string path = StorePathOf(line);
    if (wasThere && !QFileInfo::exists(FromUtf8(path))) {
        fault = StoreFault::Gone;
        error = fmt::format("{}: {}", path, FaultText(fault));
        return nullptr;
    }
    const StoreProgress progress = line.IsOffScreen() ? nullptr : ShowMigration();
    std::unique_ptr<StoreSession> session = StoreSession::Open(line.store, error, &fault, progress);
    if (!session || line.IsOffScreen() || session->Claim(error)) return session;
    fault = StoreFault::Taken;
    return nullptr;
}

// The same, for a window: where that fails the user is asked for a way on, which may lead to
// another store.
// Returns:  null where he gives it up, or where another program shows the store that he has chosen.
std::unique_ptr<StoreSession> OpenOrAsk(CommandLine& line, bool wasThere,
                                        std::unique_ptr<Instance>& instance) {
    std::string error;
    StoreFault fault{};
    while (true) {
        auto session = OpenSession(line, wasThere, error, fault);
        if (session) return session;
        PrintProblem(WithAdvice(error, StorePathOf(line)));
        if (line.IsOffScreen()) return nullptr;
        const std::string store = StorePathOf(line);
        const std::optional<std::string> next = AskForStore(store, fault);
        if (!next) return nullptr;
        if (*next == store) continue;
        line.store = *next;
        QApplication::setApplicationDisplayName(TitleOf(line.store));
        instance.reset();
        instance = Instance::Claim(InstanceName(line.store), RequestOf(line));
        if (!instance) return nullptr;
    }
}

int RunApplication(CommandLine line, std::unique_ptr<Instance> instance) {
    QtWindowSystem system;
    bool wasThere = false;
    while (true) {
        const std::unique_ptr<StoreSession> session = OpenOrAsk(line, wasThere, instance);
        if (!session) return kFailed;
        WindowSystem::SetCurrent(&system);
        const int code = ShowWindow(*session, line, instance.get());
        AfxSetMainWnd(nullptr);
        WindowSystem::SetCurrent(nullptr);
        if (code != kReopen) return code;
        line.files.clear();
        wasThere = true;
    }
}

int Run(const CommandLine& line, int count, char** arguments) {
    std::unique_ptr<Instance> instance;
    if (!line.IsOffScreen()) {
        instance = Instance::Claim(InstanceName(line.store), RequestOf(line));
        if (!instance) return kDone;
    }
    if (line.IsOffScreen()) qInstallMessageHandler(TellFailures);
    const QApplication application(count, arguments);
    SetUpApplication(line);
    return RunApplication(line, std::move(instance));
}

int Main(int count, char** arguments) {
    try {
        const std::optional<CommandLine> line = ReadCommandLine(count, arguments);
        if (!line) return kDone;
        SetLocale(*line);
        SetClock(*line);
        if (line->isService) {
            OrvoShareMain(OwnModule(), DLL_PROCESS_ATTACH);
            return RunReminders(StorePathOf(*line), line->hasOwnNotes, count, arguments);
        }
        if (!ChoosePlatform(*line)) {
            return Fail(
                "there is no display: --picture FILE renders the window into a file, and --pdf "
                "FILE prints what it shows");
        }
        OrvoShareMain(OwnModule(), DLL_PROCESS_ATTACH);
        return Run(*line, count, arguments);
    } catch (const std::exception& error) {
        return Fail(error.what());
    }
}

}  // namespace
}  // namespace orvo::desktop

int main(int count, char** arguments) {
    // A file that may not grow is a failure to be reported, and no reason to end.
    std::signal(SIGXFSZ, SIG_IGN);
    return orvo::desktop::Main(count, arguments);
}
