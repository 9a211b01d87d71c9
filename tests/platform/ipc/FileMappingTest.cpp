// What processes share: named blocks, the folder in which they meet, and messages.
// SPDX-License-Identifier: MIT
#include <array>
#include <cstring>
#include <filesystem>
#include <map>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <platform/io/Descriptor.h>
#include <platform/ipc/FileMapping.h>
#include <platform/ipc/ProcessMessage.h>
#include <platform/ipc/RuntimeFixture.h>
#include <platform/ipc/RuntimeFolder.h>
#include <support/Program.h>

namespace orvo {
namespace {

constexpr std::uint32_t kSize = 8192;

using FileMapping = RuntimeFixture;

HANDLE Create(const char* name, std::uint32_t size = kSize) {
    return CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, size, name);
}

HANDLE Open(const char* name) {
    return OpenFileMappingA(FILE_MAP_ALL_ACCESS, 1, name);
}

char* Map(HANDLE mapping, std::size_t length = kSize) {
    return static_cast<char*>(MapViewOfFileEx(mapping, FILE_MAP_ALL_ACCESS, 0, 0, length, nullptr));
}

bool IsThere(const char* name) {
    const HANDLE mapping = Open(name);
    return mapping != nullptr && CloseHandle(mapping) != 0;
}

struct Holder : Program {
    Holder(const char* verb, const char* name, const char* text = "")
        : Program(BLOCK_HOLDER, {verb, name, fmt::to_string(kSize), text}) {}
};

TEST_F(FileMapping, ABlockIsSharedAndGoesWithItsLastHolder) {
    Holder creator("create", "b", "hello");
    EXPECT_EQ(creator.Line(), "held 0 -");
    EXPECT_EQ(creator.Line(), "written");
    Holder second("create", "b");
    EXPECT_EQ(second.Line(), fmt::format("held {} hello", ERROR_ALREADY_EXISTS));

    EXPECT_EQ(creator.Wait(), 0);
    EXPECT_TRUE(IsThere("b")) << "the second one has it";
    EXPECT_EQ(second.Wait(), 0);

    EXPECT_FALSE(IsThere("b"));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Blocks(), 0);
}

TEST_F(FileMapping, NoKilledProcessKeepsABlockAndTheNextCreatorGetsZeros) {
    for (const char* next : {"create", "open"}) {
        Holder creator("create", "b", "secret");
        Holder other("open", "elsewhere");
        creator.Line();
        EXPECT_EQ(creator.Line(), "written");
        creator.Kill();
        EXPECT_EQ(creator.Wait(), -1);

        Holder later(next, "b");
        EXPECT_EQ(later.Line(), next == std::string_view("create")
                                    ? "held 0 -"
                                    : fmt::format("failed {} -", ERROR_FILE_NOT_FOUND));
    }
}

TEST_F(FileMapping, AKilledHolderLeavesTheBlockToTheOthers) {
    Holder creator("create", "b", "hello");
    creator.Line();
    EXPECT_EQ(creator.Line(), "written");
    Holder survivor("open", "b");
    EXPECT_EQ(survivor.Line(), "held 0 hello");

    creator.Kill();
    creator.Wait();

    Holder third("open", "b");
    EXPECT_EQ(third.Line(), "held 0 hello");
}

TEST_F(FileMapping, OfManyThatCreateAtOnceOneMakesTheBlock) {
    for (int round = 0; round < 5; ++round) {
        std::vector<std::unique_ptr<Holder>> holders;
        for (int i = 0; i < 8; ++i) holders.push_back(std::make_unique<Holder>("create", "b"));
        std::map<std::string, int> lines;
        for (const auto& holder : holders) ++lines[holder->Line()];

        EXPECT_EQ(lines["held 0 -"], 1);
        EXPECT_EQ(lines[fmt::format("held {} -", ERROR_ALREADY_EXISTS)], 7);
    }
}

TEST_F(FileMapping, AViewKeepsTheBlockWithoutAnyHandle) {
    const HANDLE mapping = Create("b");
    char* view = Map(mapping);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(std::string(view, kSize), std::string(kSize, '\0'));
    view[kSize - 1] = 'x';
    EXPECT_NE(CloseHandle(mapping), 0);

    const HANDLE again = Open("b");
    char* second = Map(again);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(second, view) << "each has a view of its own";
    EXPECT_EQ(second[kSize - 1], 'x');

    EXPECT_NE(UnmapViewOfFile(view), 0);
    EXPECT_NE(UnmapViewOfFile(second), 0);
    EXPECT_TRUE(IsThere("b")) << "a handle alone keeps it, too";
    EXPECT_NE(CloseHandle(again), 0);
    EXPECT_FALSE(IsThere("b"));
}

TEST_F(FileMapping, AnyBytesOfANameMakeABlockOfItsOwn) {
    const std::string special(100, '/');
    const std::string longest(100000, 'x');
    const std::vector<std::string> names{
        "a", "A",         "../a",  "a/b",         "%2F",   "\xFF",        "a\nb ",
        ".", "Global\\a", special, special + "a", longest, longest + "a", "x" + longest};
    std::vector<HANDLE> handles;
    for (const std::string& name : names) {
        handles.push_back(Create(name.c_str()));
        EXPECT_NE(handles.back(), nullptr) << name;
        EXPECT_EQ(GetLastError(), ERROR_SUCCESS) << name;
    }
    EXPECT_EQ(Blocks(), static_cast<long>(names.size()));
    for (const HANDLE handle : handles) EXPECT_NE(CloseHandle(handle), 0);
    EXPECT_EQ(Blocks(), 0);
}

TEST_F(FileMapping, WhatCannotBeIsRefusedWithItsReason) {
    const HANDLE mapping = Create("b");
    const auto refused = [&](const char* why, long error, const auto& call) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(call()) << why;
        EXPECT_EQ(GetLastError(), error) << why;
    };
    refused("no size", ERROR_INVALID_PARAMETER, [] { return Create("c", 0); });
    refused("no name", ERROR_INVALID_NAME, [] { return Create(""); });
    refused("a null name", ERROR_INVALID_NAME, [] { return Open(nullptr); });
    refused("not there", ERROR_FILE_NOT_FOUND, [] { return Open("c"); });
    refused("longer than the block", ERROR_ACCESS_DENIED, [&] { return Map(mapping, kSize + 1); });
    refused("no handle", ERROR_INVALID_HANDLE, [] { return Map(nullptr); });
    refused("no view", ERROR_INVALID_ADDRESS, [&] { return UnmapViewOfFile(&mapping); });
    EXPECT_NE(CloseHandle(mapping), 0);
    refused("a closed handle", ERROR_INVALID_HANDLE, [&] { return CloseHandle(mapping); });
    refused("a closed mapping", ERROR_INVALID_HANDLE, [&] { return Map(mapping); });
    EXPECT_EQ(Blocks(), 0);
}

TEST_F(FileMapping, MoreThanTheSystemHasIsRefusedAtOnce) {
    EXPECT_EQ(CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0x7FFFFFFF, 0, "b"),
              nullptr);
    EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_EQ(Blocks(), 0);
}

TEST_F(FileMapping, ThreadsMayShareABlock) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int round = 0; round < 100; ++round) {
                const HANDLE mapping = Create("b");
                char* view = Map(mapping);
                EXPECT_NE(view, nullptr);
                EXPECT_NE(CloseHandle(mapping), 0);
                EXPECT_NE(UnmapViewOfFile(view), 0);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(Blocks(), 0);
}

using RuntimeFolders = RuntimeFixture;

std::string InUse() {
    std::string error;
    return RuntimeFolder(error);
}

TEST_F(RuntimeFolders, ItIsForTheUserAlone) {
    EXPECT_EQ(InUse(), folder / "orvo");
    EXPECT_EQ(fs::status(folder / "orvo").permissions(), fs::perms::owner_all);
}

TEST_F(RuntimeFolders, WhatOthersCanWriteOrHavePutThereIsNotUsed) {
    const fs::path own = folder / "orvo";
    fs::create_directory(own);
    fs::permissions(own, fs::perms::all);
    EXPECT_NE(InUse(), own) << "others may write";
    fs::remove(own);

    fs::create_directory(folder / "elsewhere");
    fs::permissions(folder / "elsewhere", fs::perms::owner_all);
    fs::create_symlink("elsewhere", own);
    EXPECT_NE(InUse(), own) << "a link";
    fs::remove(own);

    if (::geteuid() == 0) {
        fs::create_directory(own);
        fs::permissions(own, fs::perms::owner_all);
        ASSERT_EQ(::chown(own.c_str(), 65534, 65534), 0);
        EXPECT_NE(InUse(), own) << "somebody else's";
        fs::remove(own);
    }
    EXPECT_EQ(InUse(), own);
}

TEST_F(RuntimeFolders, WithoutARuntimeFolderAllProcessesComeToTheSameOne) {
    for (const char* unusable : {"", "relative", "/there/is/no/such"}) {
        ::setenv("XDG_RUNTIME_DIR", unusable, 1);
        EXPECT_THAT(InUse(), testing::AnyOf(fmt::format("/run/user/{}/orvo", ::geteuid()),
                                            fmt::format("/tmp/orvo-{}", ::geteuid())));
    }
}

long OpenFiles() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

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
    std::array<int, 2> ends{};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends.data()), 0);
    const Descriptor sender(ends[0]);
    const Descriptor receiver(ends[1]);
    const long before = OpenFiles();
    for (const std::size_t count : {1, 2, 3, 20}) {
        SendDescriptors(sender.Number(), count);
        EXPECT_FALSE(ReceivedMessage().Receive(receiver.Number())) << count;
        EXPECT_EQ(OpenFiles(), before) << count;
    }
}

}  // namespace
}  // namespace orvo
