// Which paths others could have changed, and which links are followed.
// SPDX-License-Identifier: MIT
#include <filesystem>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include <platform/io/TempFolder.h>
#include <platform/io/TrustedPath.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr uid_t kNobody = 65534;

// "folder/file", with a link "way" to "folder" beside it.
struct TrustedPathTest : testing::Test {
    TrustedPathTest() {
        fs::create_directory(folder);
        fs::permissions(folder, fs::perms::owner_all);
        home.File("folder/file", "content");
        SetMode(file, 0600);
        fs::create_symlink(folder, way);
    }
    static void SetMode(const std::string& path, mode_t mode) {
        ASSERT_EQ(::chmod(path.c_str(), mode), 0) << path;
    }
    static void GiveAway(const std::string& path, uid_t user, gid_t group) {
        ASSERT_EQ(::lchown(path.c_str(), user, group), 0) << path;
    }

    TempFolder home;
    const std::string folder = home.Path("folder");
    const std::string file = home.Path("folder/file");
    const std::string way = home.Path("way");
};

TEST_F(TrustedPathTest, WhatOthersCouldHaveChangedIsToldWithItsReason) {
    struct Row {
        const char* why;
        std::function<void()> prepare;
        std::string want;  // a part of what is told; empty for nothing
    };
    const std::string mayWrite = " may be written by other users";
    std::vector<Row> rows = {
        {"all belongs to the user alone", [] {}, ""},
        {"only their own may be written by others", [&] { SetMode(folder, 01777); }, ""},
        {"a folder on the way", [&] { SetMode(folder, 0777); }, folder + mayWrite},
        {"the file itself", [&] { SetMode(file, 0602); }, file + mayWrite},
        {"a folder far above", [&] { SetMode(home.Path(""), 0707); }, mayWrite},
    };
    // Only an administrator can give files to others.
    if (::geteuid() == 0) {
        rows.push_back({"the group of others",
                        [&] {
                            GiveAway(folder, 0, kNobody);
                            SetMode(folder, 0770);
                        },
                        folder + mayWrite});
        rows.push_back({"a file of another user in a folder for all",
                        [&] {
                            SetMode(folder, 01777);
                            GiveAway(file, kNobody, 0);
                        },
                        file + " belongs to another user (number 65534)"});
        rows.push_back({"a folder of another user", [&] { GiveAway(folder, kNobody, 0); },
                        folder + " belongs to another user (number 65534)"});
    }
    for (const Row& row : rows) {
        row.prepare();
        for (const std::string& path : {file, way + "/file", folder + "/./../folder/file"}) {
            const std::string told = WhyNotTrusted(path);
            EXPECT_EQ(told.empty(), row.want.empty()) << row.why << ": " << told;
            EXPECT_THAT(told, HasSubstr(row.want)) << row.why;
        }
        for (const std::string& each : {home.Path(""), folder, file}) {
            if (::geteuid() == 0) GiveAway(each, 0, 0);
            SetMode(each, each == file ? 0600 : 0700);
        }
    }
}

TEST_F(TrustedPathTest, AWayThatEndsNowhereIsNotTrusted) {
    EXPECT_THAT(WhyNotTrusted(home.Path("missing/file")), HasSubstr("No such file"));
    fs::create_symlink("loop", home.Path("loop"));
    EXPECT_THAT(WhyNotTrusted(home.Path("loop")), HasSubstr("symbolic links"));
}

TEST_F(TrustedPathTest, LinksLeadToWhereTheyPointButForThoseOfOthers) {
    fs::create_symlink("folder/new", home.Path("dangling"));
    std::string target;
    EXPECT_THAT(FollowTrustedLinks(way + "/file", target), IsEmpty());
    EXPECT_EQ(target, fs::canonical(file));
    EXPECT_THAT(FollowTrustedLinks(home.Path("dangling"), target), IsEmpty());
    EXPECT_EQ(target, fs::canonical(folder) / "new");

    SetMode(home.Path(""), 01777);
    EXPECT_THAT(FollowTrustedLinks(way, target), IsEmpty()) << "the user's own";
    if (::geteuid() != 0) return;
    GiveAway(way, kNobody, kNobody);
    target = "as before";
    EXPECT_THAT(FollowTrustedLinks(way + "/file", target),
                HasSubstr("way is a link of another user (number 65534) and isn't followed"));
    EXPECT_EQ(target, "as before");
    SetMode(home.Path(""), 0700);
    EXPECT_THAT(FollowTrustedLinks(way, target), IsEmpty()) << "nobody else could put it there";
}

}  // namespace
}  // namespace orvo
