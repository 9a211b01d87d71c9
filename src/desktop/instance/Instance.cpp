// One program a store: a later start hands what it was asked for to the one that runs.
// SPDX-License-Identifier: MIT
#include <QSocketNotifier>
#include <algorithm>
#include <array>
#include <chrono>
#include <fcntl.h>
#include <map>
#include <sdbus-c++/sdbus-c++.h>
#include <string_view>
#include <unistd.h>
#include <utility>

#include <fmt/format.h>

#include <desktop/instance/FileUri.h>
#include <desktop/instance/Instance.h>
#include <libraries/quire/UserStore.h>
#include <orvoshare/shared/DataSetClaim.h>
#include <platform/io/Descriptor.h>

namespace orvo::desktop {
namespace {

constexpr char kName[] = "org.orvoshare.OrvoDesktop";
constexpr char kInterface[] = "org.freedesktop.Application";
constexpr char kToken[] = "activation-token";
constexpr char kStartupId[] = "desktop-startup-id";

// How long an answer is waited for.
constexpr std::chrono::seconds kTimeLimit{3};

// How often a place whose owner has just left is asked for again.
constexpr int kTries = 5;

using Values = std::map<std::string, sdbus::Variant>;

std::string PathOfName(std::string name) {
    std::replace(name.begin(), name.end(), '.', '/');
    return "/" + name;
}

std::string TokenOf(const Values& values) {
    for (const char* key : {kToken, kStartupId}) {
        const auto value = values.find(key);
        if (value == values.end() || !value->second.containsValueOfType<std::string>()) continue;
        return value->second.get<std::string>();
    }
    return {};
}

Values ValuesOf(const std::string& token) {
    if (token.empty()) return {};
    return {{kToken, sdbus::Variant(token)}, {kStartupId, sdbus::Variant(token)}};
}

bool IsOneOf(const sdbus::Error& error, std::initializer_list<std::string_view> names) {
    return std::find(names.begin(), names.end(), error.getName()) != names.end();
}

// Nobody has that name any more, or whoever had it left before the answer.
bool HasLeft(const sdbus::Error& error) {
    return IsOneOf(
        error, {"org.freedesktop.DBus.Error.NameHasNoOwner",
                "org.freedesktop.DBus.Error.ServiceUnknown", "org.freedesktop.DBus.Error.NoReply"});
}

// The name of the owner's connection, as a call by the other name would start a program where
// there is none.
std::string OwnerOf(sdbus::IConnection& bus, const std::string& name) {
    const auto daemon = sdbus::createProxy(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus");
    std::string owner;
    daemon->callMethod("GetNameOwner")
        .onInterface("org.freedesktop.DBus")
        .withTimeout(kTimeLimit)
        .withArguments(name)
        .storeResultsTo(owner);
    return owner;
}

void HandOver(sdbus::IConnection& bus, const std::string& name, const StartRequest& request) {
    const auto other = sdbus::createProxy(bus, OwnerOf(bus, name), PathOfName(name));
    const Values values = ValuesOf(request.token);
    if (!request.action.empty()) {
        other->callMethod("ActivateAction")
            .onInterface(kInterface)
            .withTimeout(kTimeLimit)
            .withArguments(request.action, std::vector<sdbus::Variant>(), values);
    }
    if (request.files.empty()) {
        other->callMethod("Activate")
            .onInterface(kInterface)
            .withTimeout(kTimeLimit)
            .withArguments(values);
        return;
    }
    std::vector<std::string> uris;
    for (const std::string& file : request.files) uris.push_back(UriOfPath(file));
    other->callMethod("Open")
        .onInterface(kInterface)
        .withTimeout(kTimeLimit)
        .withArguments(uris, values);
}

}  // namespace

std::string InstanceName(const std::string& store) {
    const std::string own = DataSetUser(UserStorePath());
    const std::string asked = store.empty() ? own : DataSetUser(store);
    return asked == own ? kName : fmt::format("{}.Store{}", kName, asked);
}

// The connection to the bus with what it answers.
class Instance::Place {
public:
    explicit Place(std::unique_ptr<sdbus::IConnection> bus) : m_bus(std::move(bus)) {}

    // Returns:  false where another program has the name.
    bool Take(const std::string& name) {
        Answer(name);
        try {
            m_bus->requestName(name);
            return true;
        } catch (const sdbus::Error& error) {
            if (!IsOneOf(error, {"org.freedesktop.DBus.Error.FileExists", "System.Error.EEXIST"})) {
                throw;
            }
            m_object.reset();
            return false;
        }
    }

    sdbus::IConnection& Bus() { return *m_bus; }

    void Listen(std::function<void(const StartRequest&)> listener) {
        m_listener = std::move(listener);
        // A second number, as the bus closes its own when the daemon hangs up.
        m_descriptor.Reset(
            ::fcntl(m_bus->getEventLoopPollData().fd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
        m_notifier =
            std::make_unique<QSocketNotifier>(m_descriptor.Number(), QSocketNotifier::Read);
        QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                         [this] { Serve(); });
        Serve();
    }

private:
    void Answer(const std::string& name) {
        m_object = sdbus::createObject(*m_bus, PathOfName(name));
        m_object->registerMethod("Activate")
            .onInterface(kInterface)
            .withInputParamNames("platform_data")
            .implementedAs([this](const Values& values) { Pass({}, {}, values); });
        m_object->registerMethod("Open")
            .onInterface(kInterface)
            .withInputParamNames("uris", "platform_data")
            .implementedAs([this](const std::vector<std::string>& uris, const Values& values) {
                Pass(uris, {}, values);
            });
        m_object->registerMethod("ActivateAction")
            .onInterface(kInterface)
            .withInputParamNames("action_name", "parameter", "platform_data")
            .implementedAs([this](const std::string& action, const std::vector<sdbus::Variant>&,
                                  const Values& values) { Pass({}, action, values); });
        m_object->finishRegistration();
    }

    // Only kept, so that the caller has its answer before the window is busy with the request.
    void Pass(const std::vector<std::string>& uris, const std::string& action,
              const Values& values) {
        StartRequest request;
        for (const std::string& uri : uris) request.files.push_back(PathOfUri(uri));
        request.action = action;
        request.token = TokenOf(values);
        m_requests.push_back(std::move(request));
    }

    void Serve() {
        try {
            while (m_bus->processPendingRequest()) {
            }
        } catch (const sdbus::Error&) {
            // The bus has gone, and nobody can ask for anything any more.
            m_notifier->setEnabled(false);
        }
        for (const StartRequest& request : std::exchange(m_requests, {})) m_listener(request);
    }

    std::unique_ptr<sdbus::IConnection> m_bus;
    std::unique_ptr<sdbus::IObject> m_object;
    std::function<void(const StartRequest&)> m_listener;
    std::vector<StartRequest> m_requests;
    Descriptor m_descriptor;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

std::unique_ptr<Instance> Instance::Claim(const std::string& name, const StartRequest& request) {
    std::unique_ptr<Place> place;
    try {
        place = std::make_unique<Place>(sdbus::createSessionBusConnection());
    } catch (const sdbus::Error&) {
        return std::unique_ptr<Instance>(new Instance(nullptr));
    }
    std::string reason;
    for (int tries = 0; tries < kTries; ++tries) {
        try {
            if (place->Take(name)) return std::unique_ptr<Instance>(new Instance(std::move(place)));
            HandOver(place->Bus(), name, request);
            return nullptr;
        } catch (const sdbus::Error& error) {
            reason = error.getMessage();
            if (!HasLeft(error)) break;
        }
    }
    throw InstanceError(
        fmt::format("the program that shows this store already doesn't answer: {}", reason));
}

Instance::Instance(std::unique_ptr<Place> place) : m_place(std::move(place)) {}

Instance::~Instance() = default;

void Instance::SetListener(std::function<void(const StartRequest&)> listener) {
    if (m_place) m_place->Listen(std::move(listener));
}

}  // namespace orvo::desktop
