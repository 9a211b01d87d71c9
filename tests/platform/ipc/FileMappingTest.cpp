// Tests of named blocks, between processes and within one.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <thread>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <platform/ipc/FileMapping.h>
#include <platform/ipc/RuntimeFixture.h>
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

bool IsZero(const char* view) {
    return std::all_of(view, view + kSize, [](char byte) { return byte == '\0'; });
}

class Holder : public Program {
public:
    Holder(const char* verb, const char* name) : Holder({verb, name, fmt::to_string(kSize)}) {}
    Holder(const char* verb, const char* name, const char* text)
        : Holder({verb, name, fmt::to_string(kSize), text}) {}

private:
    explicit Holder(const std::vector<std::string>& arguments) : Program(BLOCK_HOLDER, arguments) {}
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
        std::vector<std::string> lines;
        for (const auto& holder : holders) lines.push_back(holder->Line());

        EXPECT_EQ(std::count(lines.begin(), lines.end(), "held 0 -"), 1);
        EXPECT_EQ(
            std::count(lines.begin(), lines.end(), fmt::format("held {} -", ERROR_ALREADY_EXISTS)),
            7);
    }
}

TEST_F(FileMapping, AViewKeepsTheBlockWithoutAnyHandle) {
    const HANDLE mapping = Create("b");
    char* view = Map(mapping);
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(IsZero(view));
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
    const HANDLE none = nullptr;
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
    refused("no handle", ERROR_INVALID_HANDLE, [&] { return Map(none); });
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

}  // namespace
}  // namespace orvo
