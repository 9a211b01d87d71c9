// Sending a message to another process of the user, and hearing those that others send.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <platform/Export.h>
#include <platform/io/Descriptor.h>
#include <platform/ipc/ProcessMessage.h>
#include <platform/ipc/Waiting.h>

namespace orvo {

// Handles a message of another process.
// Returns:  false where this process doesn't take it.
using ProcessMessageHandler = std::function<bool(const ProcessMessage&, std::int64_t& result)>;

// Hears what other processes send to this one, whenever sources are served.
class ORVO_API MessageListener {
public:
    explicit MessageListener(ProcessMessageHandler handler);
    ~MessageListener();
    MessageListener(const MessageListener&) = delete;
    MessageListener& operator=(const MessageListener&) = delete;

    // Begins to listen under a random number that no other process of the user has.
    // Fails:    with false and the reason in one line in `error`.
    bool Open(std::string& error);

    // The number under which others reach this process, not 0; 0 before Open.
    std::uint32_t Process() const { return m_process; }

private:
    struct Caller {
        Descriptor connection;
        std::unique_ptr<WaitSource> source;
    };

    bool Bind(const std::string& folder);
    void AcceptCallers();
    void Answer(int connection);

    ProcessMessageHandler m_handler;
    std::uint32_t m_process = 0;
    std::string m_path;
    Descriptor m_socket;
    std::unique_ptr<WaitSource> m_source;
    std::vector<Caller> m_callers;
};

enum class SendOutcome { Handled, NoSuchProcess, NotTaken, Ended, TimedOut };

constexpr int kNoTimeLimit = -1;  // as is any number below 0

// Sends the message and waits until it is handled or the other process has gone, but no longer than
// that many milliseconds; what comes in meanwhile is served. `result` is set where it was handled.
// A message that has not been begun when the time is over is never handled.
ORVO_API SendOutcome SendToProcess(std::uint32_t process, const ProcessMessage& message,
                                   int milliseconds, std::int64_t& result);

// Whether a process listens under that number.
ORVO_API bool IsListening(std::uint32_t process);

}  // namespace orvo
