// The session bus as the road on which interfaces are called between processes.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#include <utility>

#include <platform/com/InterfaceBus.h>

namespace orvo {
namespace {

constexpr char kObjectPath[] = "/orvo/interfaces";
constexpr char kInterfaceName[] = "orvo.Interfaces1";

using Clock = std::chrono::steady_clock;

std::chrono::milliseconds g_timeLimit{5000};

int MillisecondsUntil(Clock::time_point end) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
    return std::max(0, static_cast<int>(left.count()));
}

HRESULT ResultOfError(const sdbus::Error& error) {
    struct Row {
        const char* name;
        HRESULT result;
    };
    static constexpr Row kRows[] = {
        {"org.freedesktop.DBus.Error.ServiceUnknown", RPC_E_DISCONNECTED},
        {"org.freedesktop.DBus.Error.NameHasNoOwner", RPC_E_DISCONNECTED},
        {"org.freedesktop.DBus.Error.Disconnected", RPC_E_DISCONNECTED},
        {"org.freedesktop.DBus.Error.NoReply", RPC_E_SERVER_DIED},
        {"org.freedesktop.DBus.Error.Timeout", RPC_E_TIMEOUT},
        {"org.freedesktop.DBus.Error.UnknownObject", CO_E_OBJNOTCONNECTED},
        {"org.freedesktop.DBus.Error.UnknownInterface", CO_E_OBJNOTCONNECTED},
        {"org.freedesktop.DBus.Error.UnknownMethod", CO_E_OBJNOTCONNECTED},
    };
    const auto* row = std::find_if(std::begin(kRows), std::end(kRows), [&](const Row& candidate) {
        return error.getName() == candidate.name;
    });
    return row == std::end(kRows) ? E_FAIL : row->result;
}

// What the other side said, once it has.
struct Reply {
    bool isHere = false;
    HRESULT result = E_FAIL;
    CallBytes bytes;
};

void ReadReply(Reply& reply, sdbus::MethodReply& message, const sdbus::Error* error) {
    reply.isHere = true;
    if (error) {
        reply.result = ResultOfError(*error);
        return;
    }
    try {
        message >> reply.result >> reply.bytes;
    } catch (const sdbus::Error&) {
        reply.result = E_FAIL;
    }
}

CallBytes BytesOf(REFIID id) {
    CallBytes bytes(sizeof id);
    std::memcpy(bytes.data(), &id, sizeof id);
    return bytes;
}

}  // namespace

std::shared_ptr<InterfaceBus> InterfaceBus::Open() {
    try {
        auto bus = std::make_shared<InterfaceBus>(sdbus::createSessionBusConnection());
        bus->Listen();
        return bus;
    } catch (const sdbus::Error&) {
        return nullptr;
    }
}

InterfaceBus::InterfaceBus(std::unique_ptr<sdbus::IConnection> connection)
    : m_connection(std::move(connection)), m_name(m_connection->getUniqueName()) {}

void InterfaceBus::Listen() {
    struct Row {
        const char* request;
        RequestHandler handler;
    };
    static constexpr Row kRows[] = {{"Call", &InterfaceBus::OnCall},
                                    {"Attach", &InterfaceBus::OnAttach},
                                    {"Detach", &InterfaceBus::OnDetach},
                                    {"Forget", &InterfaceBus::OnForget}};
    m_object = sdbus::createObject(*m_connection, kObjectPath);
    for (const Row& row : kRows) {
        m_object->registerMethod(
            kInterfaceName, row.request, "tuay", "iay", [this, row](sdbus::MethodCall call) {
                m_work.emplace_back([this, row, call]() mutable { Answer(call, row.handler); });
            });
    }
    m_object->finishRegistration();
    m_ownerMatch = m_connection->addMatch(
        "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
        "member='NameOwnerChanged'",
        [this](sdbus::Message& message) { OnOwnerChanged(message); });
    // A second number, as the bus closes its own when the daemon hangs up.
    m_descriptor.Reset(
        ::fcntl(m_connection->getEventLoopPollData().fd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    m_source = std::make_unique<WaitSource>(m_descriptor.Number(), [this] {
        const auto self = shared_from_this();
        Serve();
    });
}

InterfaceReference InterfaceBus::Reference(std::uint64_t key, REFIID id) const {
    return {id, key, m_name, kObjectPath};
}

HRESULT InterfaceBus::Attach(const InterfaceReference& target) {
    CallBytes none;
    return Ask(target, "Attach", 0, BytesOf(target.interfaceId), none);
}

HRESULT InterfaceBus::Forget(const InterfaceReference& target) {
    CallBytes none;
    return Ask(target, "Forget", 0, {}, none);
}

HRESULT InterfaceBus::Call(const InterfaceReference& target, std::uint32_t method,
                           const CallBytes& arguments, CallBytes& results) {
    return Ask(target, "Call", method, arguments, results);
}

void InterfaceBus::Detach(const InterfaceReference& target) {
    if (!IsOpen()) return;
    try {
        const auto peer = PeerOf(target);
        sdbus::MethodCall call = peer->createMethodCall(kInterfaceName, "Detach");
        call << target.key << std::uint32_t{0} << CallBytes();
        call.dontExpectReply();
        peer->callMethod(call);
        Flush();
    } catch (const sdbus::Error&) {
        // Whoever can't be reached any more holds nothing for this process.
        return;
    }
}

void InterfaceBus::SetTimeLimit(int milliseconds) {
    g_timeLimit = std::chrono::milliseconds(milliseconds);
}

HRESULT InterfaceBus::OnCall(const Request& request, CallBytes& results) {
    return m_exports.Call(request.key, request.sender, request.method, request.bytes, results);
}

HRESULT InterfaceBus::OnAttach(const Request& request, CallBytes&) {
    IID id;
    if (request.bytes.size() != sizeof id) return E_INVALIDARG;
    std::memcpy(&id, request.bytes.data(), sizeof id);
    return m_exports.Attach(request.key, id, request.sender);
}

HRESULT InterfaceBus::OnDetach(const Request& request, CallBytes&) {
    m_exports.Detach(request.key, request.sender);
    return S_OK;
}

HRESULT InterfaceBus::OnForget(const Request& request, CallBytes&) {
    return m_exports.Forget(request.key);
}

void InterfaceBus::Answer(sdbus::MethodCall& call, RequestHandler handler) {
    try {
        Request request;
        request.sender = call.getSender();
        call >> request.key >> request.method >> request.bytes;
        CallBytes results;
        const HRESULT result = (this->*handler)(request, results);
        if (call.doesntExpectReply() || !IsOpen()) return;
        sdbus::MethodReply reply = call.createReply();
        reply << result << results;
        reply.send();
        Flush();
    } catch (const sdbus::Error&) {
        // The caller has gone, or its answer is too big for the bus, which reports that to it.
        return;
    }
}

void InterfaceBus::OnOwnerChanged(sdbus::Message& message) {
    std::string name;
    std::string before;
    std::string after;
    message >> name >> before >> after;
    if (!after.empty()) return;
    m_work.emplace_back([this, name] {
        std::erase_if(m_peers,
                      [&](const auto& peer) { return peer.first.starts_with(name + '/'); });
        m_exports.DropHolder(name);
    });
}

std::shared_ptr<sdbus::IProxy> InterfaceBus::PeerOf(const InterfaceReference& target) {
    std::shared_ptr<sdbus::IProxy>& peer = m_peers[target.busName + target.objectPath];
    if (!peer) peer = sdbus::createProxy(*m_connection, target.busName, target.objectPath);
    return peer;
}

HRESULT InterfaceBus::Ask(const InterfaceReference& target, const char* request,
                          std::uint32_t method, const CallBytes& bytes, CallBytes& results) {
    if (!IsOpen()) return RPC_E_DISCONNECTED;
    const auto self = shared_from_this();
    // An answer that comes too late must find a place.
    const auto reply = std::make_shared<Reply>();
    const auto end = Clock::now() + g_timeLimit;
    try {
        const auto peer = PeerOf(target);
        sdbus::MethodCall call = peer->createMethodCall(kInterfaceName, request);
        call << target.key << method << bytes;
        const auto read = [reply](sdbus::MethodReply& message, const sdbus::Error* error) {
            ReadReply(*reply, message, error);
        };
        peer->callMethod(call, read, g_timeLimit);
        Flush();
        Serve();
        while (!reply->isHere) {
            const int left = MillisecondsUntil(end);
            if (!IsOpen()) return RPC_E_DISCONNECTED;
            if (left == 0) return RPC_E_TIMEOUT;
            ServeSources(left);
        }
    } catch (const sdbus::Error& error) {
        // Finds out whether it is the bus that has gone.
        Serve();
        return IsOpen() ? ResultOfError(error) : RPC_E_DISCONNECTED;
    }
    results = std::move(reply->bytes);
    return reply->result;
}

void InterfaceBus::Serve() {
    while (IsOpen()) {
        while (Process()) {
        }
        if (m_work.empty()) return;
        const auto work = std::move(m_work.front());
        m_work.pop_front();
        work();
    }
}

bool InterfaceBus::Process() {
    try {
        return IsOpen() && m_connection->processPendingRequest();
    } catch (const sdbus::Error&) {
        Close();
        return false;
    }
}

// What the bus doesn't take at once isn't sent while the process waits for something to read.
void InterfaceBus::Flush() {
    const auto end = Clock::now() + g_timeLimit;
    while (IsOpen()) {
        const auto state = m_connection->getEventLoopPollData();
        const int left = MillisecondsUntil(end);
        if ((state.events & POLLOUT) == 0 || left == 0) return;
        pollfd ready{state.fd, state.events, 0};
        ::poll(&ready, 1, left);
        Process();
    }
}

void InterfaceBus::Close() {
    m_source.reset();
    m_work.clear();
    m_exports.Clear();
}

}  // namespace orvo
