// A message on its way between two processes: numbers, and a block of bytes of any size.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include <platform/io/Descriptor.h>
#include <platform/ipc/ProcessMessage.h>

namespace orvo {
namespace {

constexpr std::uint32_t kMagic = 0x314D574F;
constexpr std::size_t kInlineLimit = 4096;
constexpr int kSeals = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE | F_SEAL_SEAL;

struct Header {
    std::uint32_t magic;
    std::uint32_t window;
    std::uint32_t message;
    std::uint32_t hasFile;
    std::uint64_t wParam;
    std::int64_t lParam;
    std::uint64_t tag;
    std::uint64_t size;
};

// Room for one descriptor that travels with the bytes.
struct Control {
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> bytes{};
};

Descriptor MakeFile(std::string_view block) {
    Descriptor file(::memfd_create("orvo-message", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!file.IsOpen()) return file;
    while (!block.empty()) {
        const ssize_t written = ::write(file.Number(), block.data(), block.size());
        if (written <= 0) return {};
        block.remove_prefix(static_cast<std::size_t>(written));
    }
    if (::fcntl(file.Number(), F_ADD_SEALS, kSeals) != 0) return {};
    return file;
}

void Enclose(msghdr& envelope, Control& control, int file) {
    envelope.msg_control = control.bytes.data();
    envelope.msg_controllen = control.bytes.size();
    cmsghdr* enclosed = CMSG_FIRSTHDR(&envelope);
    enclosed->cmsg_level = SOL_SOCKET;
    enclosed->cmsg_type = SCM_RIGHTS;
    enclosed->cmsg_len = CMSG_LEN(sizeof file);
    std::memcpy(CMSG_DATA(enclosed), &file, sizeof file);
}

// All of them, so that those are closed, too, that nobody expects: the room that one takes may hold
// two.
std::vector<Descriptor> EnclosedFiles(msghdr& envelope) {
    std::vector<Descriptor> files;
    for (cmsghdr* enclosed = CMSG_FIRSTHDR(&envelope); enclosed != nullptr;
         enclosed = CMSG_NXTHDR(&envelope, enclosed)) {
        if (enclosed->cmsg_level != SOL_SOCKET || enclosed->cmsg_type != SCM_RIGHTS) continue;
        const std::size_t count = (enclosed->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (std::size_t i = 0; i < count; ++i) {
            int file = -1;
            std::memcpy(&file, CMSG_DATA(enclosed) + i * sizeof file, sizeof file);
            files.emplace_back(file);
        }
    }
    return files;
}

}  // namespace

ReceivedMessage::~ReceivedMessage() {
    if (m_mapping != nullptr) ::munmap(m_mapping, m_message.block.size());
}

bool ReceivedMessage::Receive(int socket) {
    Header header{};
    m_bytes.resize(kInlineLimit);
    std::array<iovec, 2> parts{{{&header, sizeof header}, {m_bytes.data(), m_bytes.size()}}};
    Control control;
    msghdr envelope{};
    envelope.msg_iov = parts.data();
    envelope.msg_iovlen = parts.size();
    envelope.msg_control = control.bytes.data();
    envelope.msg_controllen = control.bytes.size();
    const ssize_t count = ::recvmsg(socket, &envelope, MSG_CMSG_CLOEXEC | MSG_DONTWAIT);
    if (count < 0) return false;
    const std::vector<Descriptor> files = EnclosedFiles(envelope);
    if (count < static_cast<ssize_t>(sizeof header) || header.magic != kMagic ||
        (envelope.msg_flags & (MSG_TRUNC | MSG_CTRUNC)) != 0 ||
        files.size() != (header.hasFile != 0 ? 1U : 0U)) {
        return false;
    }
    m_message = {header.window, header.message, header.wParam, header.lParam, header.tag, {}};
    if (header.hasFile != 0) return Map(files.front().Number(), header.size);
    m_bytes.resize(static_cast<std::size_t>(count) - sizeof header);
    m_message.block = m_bytes;
    return header.size == m_bytes.size();
}

bool ReceivedMessage::Map(int file, std::uint64_t size) {
    struct stat status {};
    if (::fcntl(file, F_GET_SEALS) != kSeals || ::fstat(file, &status) != 0 || size == 0 ||
        static_cast<std::uint64_t>(status.st_size) != size) {
        return false;
    }
    void* mapping = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE, file, 0);
    if (mapping == MAP_FAILED) return false;
    m_mapping = mapping;
    m_message.block = {static_cast<const char*>(mapping), size};
    return true;
}

bool WriteMessage(int socket, const ProcessMessage& message) {
    const bool hasFile = message.block.size() > kInlineLimit;
    Header header{kMagic,         message.window, message.message, hasFile ? 1U : 0U,
                  message.wParam, message.lParam, message.tag,     message.block.size()};
    std::string bytes(hasFile ? std::string_view() : message.block);
    std::array<iovec, 2> parts{{{&header, sizeof header}, {bytes.data(), bytes.size()}}};
    msghdr envelope{};
    envelope.msg_iov = parts.data();
    envelope.msg_iovlen = parts.size();
    Control control;
    Descriptor file;
    if (hasFile) {
        file = MakeFile(message.block);
        if (!file.IsOpen()) return false;
        Enclose(envelope, control, file.Number());
    }
    return ::sendmsg(socket, &envelope, MSG_NOSIGNAL) >= 0;
}

}  // namespace orvo
