// What comes with a message of another process.
// SPDX-License-Identifier: MIT
#include <array>
#include <cstring>
#include <filesystem>
#include <sys/socket.h>

#include <gtest/gtest.h>

#include <platform/io/Descriptor.h>
#include <platform/ipc/ProcessMessage.h>

namespace orvo {
namespace {

long OpenFiles() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

struct Sockets {
    Sockets() {
        std::array<int, 2> ends{};
        EXPECT_EQ(::socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends.data()), 0);
        sender.Reset(ends[0]);
        receiver.Reset(ends[1]);
    }
    Descriptor sender;
    Descriptor receiver;
};

// `count` descriptors with bytes that are no message.
void SendDescriptors(int socket, std::size_t count) {
    char bytes[] = "no message";
    iovec part{bytes, sizeof bytes};
    const std::vector<int> files(count, socket);
    std::vector<char> control(CMSG_SPACE(count * sizeof(int)));
    msghdr envelope{};
    envelope.msg_iov = &part;
    envelope.msg_iovlen = 1;
    envelope.msg_control = control.data();
    envelope.msg_controllen = control.size();
    cmsghdr* enclosed = CMSG_FIRSTHDR(&envelope);
    enclosed->cmsg_level = SOL_SOCKET;
    enclosed->cmsg_type = SCM_RIGHTS;
    enclosed->cmsg_len = CMSG_LEN(count * sizeof(int));
    std::memcpy(CMSG_DATA(enclosed), files.data(), count * sizeof(int));
    ASSERT_GE(::sendmsg(socket, &envelope, 0), 0);
}

TEST(ProcessMessage, NoFileStaysOpenOfWhatNobodyExpects) {
    const Sockets sockets;
    const long before = OpenFiles();
    for (const std::size_t count : {1, 2, 3, 20}) {
        SendDescriptors(sockets.sender.Number(), count);
        EXPECT_FALSE(ReceivedMessage().Receive(sockets.receiver.Number())) << count;
        EXPECT_EQ(OpenFiles(), before) << count;
    }
}

TEST(ProcessMessage, ABlockOfAnySizeArrives) {
    const Sockets sockets;
    for (const std::size_t size : {0, 5, 4096, 4097, 100'000}) {
        const std::string block(size, 'x');
        ASSERT_TRUE(WriteMessage(sockets.sender.Number(), {1, 2, 3, 4, 5, block}));
        ReceivedMessage received;
        ASSERT_TRUE(received.Receive(sockets.receiver.Number())) << size;
        EXPECT_EQ(received.Message().block, block);
    }
}

}  // namespace
}  // namespace orvo
