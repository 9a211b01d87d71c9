// Sending a message to another process of the user, and hearing those that others send.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <poll.h>
#include <random>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <fmt/format.h>

#include <platform/io/LockFile.h>
#include <platform/ipc/MessageSocket.h>
#include <platform/ipc/RuntimeFolder.h>

namespace orvo {
namespace {

constexpr int kWaitingCallers = 128;
constexpr char kEnding[] = ".window";

struct Reply {
    std::uint64_t isTaken;
    std::int64_t result;
};

using Clock = std::chrono::steady_clock;

std::string PathOf(const std::string& folder, std::uint32_t process) {
    return fmt::format("{}/{:08x}{}", folder, process, kEnding);
}

Descriptor NewSocket() {
    return Descriptor(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

bool AddressOf(const std::string& path, sockaddr_un& address) {
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        return false;
    }
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return true;
}

// Fails:    with EAGAIN while too many others wait for that process.
bool Connect(int socket, const std::string& path) {
    sockaddr_un address{};
    return AddressOf(path, address) &&
           ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

// How long may still be waited, in milliseconds.
class TimeLeft {
public:
    explicit TimeLeft(int milliseconds)
        : m_isLimited(milliseconds >= 0),
          m_end(Clock::now() + std::chrono::milliseconds(milliseconds)) {}

    int Milliseconds() const {
        if (!m_isLimited) return kNoTimeLimit;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_end - Clock::now());
        return std::max(0, static_cast<int>(left.count()));
    }

private:
    bool m_isLimited;
    Clock::time_point m_end;
};

// The sockets of processes that were killed lie about; only while nobody begins to listen can one
// that refuses be distinguished from one that isn't ready yet.
void RemoveDead(const std::string& folder) {
    std::error_code ignored;
    for (const auto& file : std::filesystem::directory_iterator(folder, ignored)) {
        if (file.path().extension() != kEnding) continue;
        const Descriptor socket = NewSocket();
        if (!Connect(socket.Number(), file.path().string()) && errno == ECONNREFUSED) {
            ::unlink(file.path().c_str());
        }
    }
}

bool HasGone(int connection) {
    pollfd state{connection, POLLRDHUP, 0};
    return ::poll(&state, 1, 0) > 0;
}

}  // namespace

MessageListener::MessageListener(ProcessMessageHandler handler) : m_handler(std::move(handler)) {
    // What sources need must outlive the one of a listener that is static.
    WaitDescriptor();
}

MessageListener::~MessageListener() {
    if (!m_path.empty()) ::unlink(m_path.c_str());
}

bool MessageListener::Open(std::string& error) {
    const std::string folder = RuntimeFolder(error);
    if (folder.empty()) return false;
    LockFile guard;
    if (!guard.Lock(folder + "/windows.lock")) {
        error = fmt::format("{}/windows.lock: can't be locked: {}", folder, std::strerror(errno));
        return false;
    }
    RemoveDead(folder);
    if (!Bind(folder)) {
        error = fmt::format("{}: no socket for messages: {}", folder, std::strerror(errno));
        return false;
    }
    m_source = std::make_unique<WaitSource>(m_socket.Number(), [this] { AcceptCallers(); });
    return true;
}

bool MessageListener::Bind(const std::string& folder) {
    std::random_device random;
    do {
        m_socket = NewSocket();
        m_process = random();
        const std::string path = PathOf(folder, m_process);
        sockaddr_un address{};
        if (m_process == 0) continue;
        if (!AddressOf(path, address)) break;
        if (::bind(m_socket.Number(), reinterpret_cast<const sockaddr*>(&address),
                   sizeof address) == 0) {
            m_path = path;
            if (::listen(m_socket.Number(), kWaitingCallers) == 0) return true;
            break;
        }
    } while (m_process == 0 || errno == EADDRINUSE);
    m_process = 0;
    return false;
}

void MessageListener::AcceptCallers() {
    for (;;) {
        Descriptor connection(
            ::accept4(m_socket.Number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!connection.IsOpen()) return;
        const int number = connection.Number();
        auto source = std::make_unique<WaitSource>(number, [this, number] { Answer(number); });
        m_callers.push_back({std::move(connection), std::move(source)});
    }
}

void MessageListener::Answer(int connection) {
    const auto found = std::find_if(
        m_callers.begin(), m_callers.end(),
        [connection](const Caller& caller) { return caller.connection.Number() == connection; });
    if (found == m_callers.end()) return;
    Caller caller = std::move(*found);
    m_callers.erase(found);
    caller.source.reset();
    ReceivedMessage received;
    if (!received.Receive(connection) || HasGone(connection)) return;
    Reply reply{};
    reply.isTaken = m_handler(received.Message(), reply.result) ? 1 : 0;
    // Where the sender has gone meanwhile nobody misses the answer.
    ::send(connection, &reply, sizeof reply, MSG_NOSIGNAL);
}

SendOutcome SendToProcess(std::uint32_t process, const ProcessMessage& message, int milliseconds,
                          std::int64_t& result) {
    const TimeLeft time(milliseconds);
    std::string error;
    const std::string path = PathOf(RuntimeFolder(error), process);
    const Descriptor connection = NewSocket();
    while (!Connect(connection.Number(), path)) {
        if (errno != EAGAIN) return SendOutcome::NoSuchProcess;
        if (time.Milliseconds() == 0) return SendOutcome::TimedOut;
        ServeSources(1);
    }
    if (!WriteMessage(connection.Number(), message)) return SendOutcome::Ended;

    Reply reply{};
    bool isOver = false;
    bool isAnswered = false;
    std::unique_ptr<WaitSource> source;
    source = std::make_unique<WaitSource>(connection.Number(), [&] {
        const ssize_t count = ::recv(connection.Number(), &reply, sizeof reply, MSG_DONTWAIT);
        if (count < 0 && errno == EAGAIN) return;
        isAnswered = count == static_cast<ssize_t>(sizeof reply);
        isOver = true;
        source.reset();
    });
    while (!isOver) {
        const int left = time.Milliseconds();
        if (left == 0) return SendOutcome::TimedOut;
        ServeSources(left);
    }
    if (!isAnswered) return SendOutcome::Ended;
    if (reply.isTaken == 0) return SendOutcome::NotTaken;
    result = reply.result;
    return SendOutcome::Handled;
}

bool IsListening(std::uint32_t process) {
    std::string error;
    const Descriptor socket = NewSocket();
    return Connect(socket.Number(), PathOf(RuntimeFolder(error), process)) || errno == EAGAIN;
}

}  // namespace orvo
