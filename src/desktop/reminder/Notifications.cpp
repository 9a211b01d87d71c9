// Messages that the desktop shows beside all windows, and what the user answers.
// SPDX-License-Identifier: MIT
#include <chrono>
#include <utility>
#include <vector>

#include <desktop/reminder/Notifications.h>

namespace orvo::desktop {
namespace {

constexpr char kService[] = "org.freedesktop.Notifications";
constexpr char kPath[] = "/org/freedesktop/Notifications";
constexpr char kDefault[] = "default";  // the action of a click on the message
// One that the bus has to start first takes its time.
constexpr std::chrono::seconds kTimeLimit{10};
constexpr std::int32_t kAsTheServiceLikes = -1;  // how long it is shown
constexpr std::int32_t kUntilClosed = 0;
constexpr std::uint32_t kClosedByUser = 2;

}  // namespace

Notifications::Notifications(Answered answered, Unserved unserved)
    : m_answered(std::move(answered)), m_unserved(std::move(unserved)), m_bus(SessionBus::Open()) {
    m_later.setSingleShot(true);
    QObject::connect(&m_later, &QTimer::timeout, [this] { Deliver(); });
    if (!m_bus) return;
    try {
        Listen();
    } catch (const sdbus::Error&) {
        m_service.reset();
    }
}

Notifications::~Notifications() = default;

void Notifications::Listen() {
    m_service = sdbus::createProxy(m_bus->Connection(), kService, kPath);
    m_service->uponSignal("ActionInvoked")
        .onInterface(kService)
        .call([this](std::uint32_t id, const std::string& action) { TakeAction(id, action); });
    m_service->uponSignal("ActivationToken")
        .onInterface(kService)
        .call([this](std::uint32_t, const std::string& token) { m_token = token; });
    m_service->uponSignal("NotificationClosed")
        .onInterface(kService)
        .call([this](std::uint32_t id, std::uint32_t reason) {
            const auto found = m_shown.find(id);
            if (found == m_shown.end()) return;
            const std::string answer = found->second.closed;
            m_shown.erase(found);
            if (reason == kClosedByUser) Pass(answer, {});
        });
    m_service->finishRegistration();
}

void Notifications::TakeAction(std::uint32_t id, const std::string& action) {
    const std::string token = std::exchange(m_token, {});
    const auto found = m_shown.find(id);
    const bool isOwn = found != m_shown.end();
    if (!isOwn && !m_takesAll) return;
    const std::string answer = isOwn && action == kDefault ? found->second.opened : action;
    if (isOwn) m_shown.erase(found);
    if (answer == kDefault) return;
    Pass(answer, token);
    // Not every service does so by itself.
    if (isOwn) Close(id);
}

void Notifications::Pass(const std::string& answer, const std::string& token) {
    if (answer.empty()) return;
    m_answers.emplace_back(answer, token);
    m_later.start(0);
}

void Notifications::Deliver() {
    for (const auto& [answer, token] : std::exchange(m_answers, {})) m_answered(answer, token);
    for (const Note& note : std::exchange(m_unservedNotes, {})) m_unserved(note);
}

void Notifications::Show(const Note& note) {
    if (!m_service) return m_unserved(note);
    try {
        Send(note);
    } catch (const sdbus::Error&) {
        m_unserved(note);
    }
}

void Notifications::Send(const Note& note) {
    std::vector<std::string> actions;
    if (!note.opened.empty()) actions = {kDefault, note.buttons.back().label.toStdString()};
    for (const Note::Button& button : note.buttons) {
        actions.push_back(button.answer);
        actions.push_back(button.label.toStdString());
    }
    const std::map<std::string, sdbus::Variant> hints{
        {"desktop-entry", sdbus::Variant(std::string("org.orvoshare.OrvoDesktop"))}};
    // The service reads the body as markup.
    m_service->callMethodAsync("Notify")
        .onInterface(kService)
        .withTimeout(kTimeLimit)
        .withArguments(std::string("Orvo Desktop"), std::uint32_t{0},
                       std::string("org.orvoshare.OrvoDesktop"), note.title.toStdString(),
                       note.body.toHtmlEscaped().toStdString(), actions, hints,
                       note.closed.empty() ? kAsTheServiceLikes : kUntilClosed)
        .uponReplyInvoke([this, note](const sdbus::Error* error, std::uint32_t id) {
            if (error == nullptr) {
                m_shown[id] = note;
                return;
            }
            m_unservedNotes.push_back(note);
            m_later.start(0);
        });
    m_bus->Await(kTimeLimit);
}

void Notifications::CloseAll() {
    for (const auto& [id, note] : std::exchange(m_shown, {})) {
        if (!note.closed.empty()) Close(id);
    }
}

void Notifications::Close(std::uint32_t id) {
    try {
        m_service->callMethod("CloseNotification")
            .onInterface(kService)
            .withArguments(id)
            .dontExpectReply();
    } catch (const sdbus::Error&) {
        // The bus has gone, and what it showed with it.
    }
}

}  // namespace orvo::desktop
