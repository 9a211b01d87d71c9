// Reminds the user while no window is open.
// SPDX-License-Identifier: MIT
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <tuple>
#include <utility>

#include <fmt/format.h>

#include <desktop/instance/BackgroundReminders.h>
#include <desktop/options/DesktopPreferences.h>
#include <desktop/service/ReminderService.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <host/Disclosure.h>
#include <host/HostOptions.h>
#include <orvoshare/shared/DataSetClaim.h>
#include <platform/settings/SettingsStore.h>

namespace orvo::desktop {
namespace {

constexpr int kFailed = 2;

// Nobody can give a password to a service.
COrvoDesktopOptions LoadLocked() {
    COrvoDesktopOptions options = LoadHostOptions(PrintProblem);
    SetPrivacy(options, Disclosure(options, false).InForce());
    return options;
}

// What reminders depend on.
using OptionsInUse = std::tuple<int, int, int, int, Privacy>;

OptionsInUse InUse(const COrvoDesktopOptions& options) {
    return {options.IsAlarmSet(), options.GetAlarmAdvance(), options.GetAlarmAdvUnit(),
            options.GetWorkDayBegins(), PrivacyOf(options)};
}

}  // namespace

// What is held while no window is open.
struct ReminderService::Work {
    Work(std::unique_ptr<StoreSession> opened, const std::function<void(const Note&)>& tell,
         const std::function<void()>& lookAtStore)
        : session(std::move(opened)),
          options(LoadLocked()),
          reminders(*session, options, tell),
          watch(session->Path(), lookAtStore) {}

    std::unique_ptr<StoreSession> session;
    COrvoDesktopOptions options;
    SessionReminders reminders;
    std::optional<int> birthdayAdvance = BirthdayAdvance();
    StoreWatch watch;
    QFileSystemWatcher settings;
};

ReminderService::ReminderService(std::string store, Hooks hooks)
    : m_store(std::move(store)), m_hooks(std::move(hooks)) {
    m_change.setSingleShot(true);
    QObject::connect(&m_change, &QTimer::timeout, [this] { LookForWindow(); });
}

ReminderService::~ReminderService() {
    if (m_notifications) m_notifications->CloseAll();
}

bool ReminderService::Start() {
    m_bus = SessionBus::Open();
    if (!m_bus) {
        PrintProblem("there is no session bus, by which reminders are told");
        return false;
    }
    m_notifications = std::make_unique<Notifications>(
        [this](const std::string& answer, const std::string& token) { Answer(answer, token); },
        [this](const Note& note) { ShowOwn(note); });
    m_bus->SetEndListener([this] { m_hooks.end(0); });
    const std::string window = InstanceName(m_store);
    m_bus->WatchName(window, [this](bool hasOwner) {
        m_hasWindow = hasOwner;
        m_change.start(0);
    });
    m_hasWindow = m_bus->HasOwner(window);
    m_notifications->TakeAll(!m_hasWindow);
    return m_hasWindow || Begin();
}

void ReminderService::LookForWindow() {
    m_notifications->TakeAll(!m_hasWindow);
    if (m_hasWindow) {
        m_work.reset();
    } else if (!m_work && !Begin()) {
        m_hooks.end(kFailed);
    }
}

// A store that isn't there isn't made.
bool ReminderService::Begin() {
    std::string error = fmt::format("{}: there is no such store", m_store);
    std::unique_ptr<StoreSession> session;
    if (QFileInfo::exists(FromUtf8(m_store))) session = StoreSession::Open(m_store, error);
    if (!session) {
        PrintProblem(error);
        return false;
    }
    m_work = std::make_unique<Work>(
        std::move(session), [this](const Note& note) { Tell(note); }, [this] { LookAtStore(); });
    m_work->watch.Start(false);
    m_work->settings.addPath(QFileInfo(FromUtf8(SettingsStore::Path())).path());
    QObject::connect(&m_work->settings, &QFileSystemWatcher::directoryChanged, &m_change,
                     [this] { LookAtOptions(); });
    m_work->reminders.Start();
    return true;
}

// Another store in its place is opened from the event loop, as this one is in use here.
void ReminderService::LookAtStore() {
    if (!m_work->session->HasMoved()) {
        static_cast<void>(m_work->session->TakeForeignChanges());
    } else if (!m_change.isActive() && QFileInfo::exists(FromUtf8(m_store))) {
        m_hooks.end(kRestart);
    }
}

// Reminders that were told are kept among the settings, too.
void ReminderService::LookAtOptions() {
    const OptionsInUse before = InUse(m_work->options);
    const std::optional<int> advance = std::exchange(m_work->birthdayAdvance, BirthdayAdvance());
    m_work->options = LoadLocked();
    if (InUse(m_work->options) == before && m_work->birthdayAdvance == advance) return;
    m_work->reminders.TakeOptions();
}

void ReminderService::Tell(const Note& note) {
    m_notifications->Show(note);
    const std::string sound = note.sounds ? ReminderSound() : std::string();
    if (!sound.empty()) m_sound.Play(FromUtf8(sound));
}

void ReminderService::Take(const StartRequest& request) {
    if (request.action == kEndService) m_hooks.end(0);
}

// Without windows of its own it starts anew with them; the user wasn't told then.
void ReminderService::ShowOwn(const Note& note) {
    if (m_hooks.showNote(note, [this](const std::string& answer) { Answer(answer, {}); })) return;
    if (const std::optional<ReminderAnswer> answer = ReminderAnswer::Of(note.closed)) {
        ToldReminders told(m_store);
        for (const std::int64_t id : answer->ids) told.Set(id, answer->told - 1);
        told.Keep();
    }
    m_hooks.end(kRestartWithWindows);
}

void ReminderService::Answer(const std::string& text, const std::string& token) {
    const std::optional<ReminderAnswer> answer = ReminderAnswer::Of(text);
    // Each service hears what the user answers to those of other stores.
    if (!answer || answer->store != DataSetUser(m_store)) return;
    std::string error;
    std::unique_ptr<StoreSession> opened;
    if (!m_work) opened = StoreSession::Open(m_store, error);
    StoreSession* session = m_work ? m_work->session.get() : opened.get();
    if (session != nullptr) error = TakeAnswer(*session, LoadLocked(), *answer);
    if (!error.empty()) PrintProblem(error);
    if (answer->kind == ReminderAnswer::Kind::Open) Open(*answer, token);
}

void ReminderService::Open(const ReminderAnswer& answer, const std::string& token) const {
    const bool isOne = answer.ids.size() == 1;
    const std::string argument = isOne ? "--todo" : "--view";
    const std::string value = isOne ? std::to_string(answer.ids.front()) : "todos";
    if (!StartWindow(m_store, argument, value, token)) PrintProblem("the window can't be started");
}

}  // namespace orvo::desktop
