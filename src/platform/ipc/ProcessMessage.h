// A message on its way between two processes: numbers, and a block of bytes of any size.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

struct ProcessMessage {
    std::uint32_t window = 0;
    std::uint32_t message = 0;
    std::uint64_t wParam = 0;
    std::int64_t lParam = 0;
    std::uint64_t tag = 0;
    std::string_view block;
};

// Owns the block of a message that has come.
class ORVO_API ReceivedMessage {
public:
    ReceivedMessage() = default;
    ~ReceivedMessage();
    ReceivedMessage(const ReceivedMessage&) = delete;
    ReceivedMessage& operator=(const ReceivedMessage&) = delete;

    // Reads the message that waits at a socket of kind SOCK_SEQPACKET.
    // Fails:    where it is no whole message, or its block could change or shrink under the reader.
    bool Receive(int socket);

    const ProcessMessage& Message() const { return m_message; }

private:
    bool Map(int file, std::uint64_t size);

    ProcessMessage m_message;
    std::string m_bytes;
    void* m_mapping = nullptr;
};

// Writes the message to a socket of kind SOCK_SEQPACKET. A block of more than 4096 bytes goes as a
// file in memory, which nobody can change any more.
// Fails:    with false; `errno` says why.
ORVO_API bool WriteMessage(int socket, const ProcessMessage& message);

}  // namespace orvo
