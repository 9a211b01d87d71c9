// Tests of the folder in which processes meet.
// SPDX-License-Identifier: MIT
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <platform/ipc/RuntimeFixture.h>
#include <platform/ipc/RuntimeFolder.h>

namespace orvo {

using RuntimeFolders = RuntimeFixture;

TEST_F(RuntimeFolders, ItIsForTheUserAlone) {
    std::string error;
    EXPECT_EQ(RuntimeFolder(error), folder / "orvo");
    EXPECT_EQ(fs::status(folder / "orvo").permissions(), fs::perms::owner_all);
}

TEST_F(RuntimeFolders, WhatOthersCanWriteOrHavePutThereIsNotUsed) {
    const fs::path own = folder / "orvo";
    const auto isUsed = [&] {
        std::string error;
        return RuntimeFolder(error) == own.string();
    };
    fs::create_directory(own);
    fs::permissions(own, fs::perms::all);
    EXPECT_FALSE(isUsed()) << "others may write";
    fs::remove(own);

    fs::create_directory(folder / "elsewhere");
    fs::permissions(folder / "elsewhere", fs::perms::owner_all);
    fs::create_symlink("elsewhere", own);
    EXPECT_FALSE(isUsed()) << "a link";
    fs::remove(own);

    if (::geteuid() == 0) {
        fs::create_directory(own);
        fs::permissions(own, fs::perms::owner_all);
        ASSERT_EQ(::chown(own.c_str(), 65534, 65534), 0);
        EXPECT_FALSE(isUsed()) << "somebody else's";
        fs::remove(own);
    }
    EXPECT_TRUE(isUsed());
}

TEST_F(RuntimeFolders, WithoutARuntimeFolderAllProcessesComeToTheSameOne) {
    for (const char* unusable : {"", "relative", "/there/is/no/such"}) {
        ::setenv("XDG_RUNTIME_DIR", unusable, 1);
        std::string error;
        EXPECT_THAT(RuntimeFolder(error),
                    testing::AnyOf(fmt::format("/run/user/{}/orvo", ::geteuid()),
                                   fmt::format("/tmp/orvo-{}", ::geteuid())));
    }
}
}  // namespace orvo
