// Names of files that are plain, and paths that can be trusted.
// SPDX-License-Identifier: MIT
#include <functional>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

#include <gmock/gmock.h>

#include <platform/io/FileName.h>
#include <platform/io/TempFolder.h>
#include <platform/io/TrustedPath.h>

namespace orvo {
namespace {

// So many characters of three bytes.
std::string Wide(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "山";
    return text;
}

TEST(FileName, ANameSaysNothingToAShellAnAddressOrAMailProgram) {
    const std::tuple<const char*, std::string, std::string> rows[] = {
        {"a plain name", "Ann Lee-Day_2.vcf", "Ann Lee-Day_2.vcf"},
        {"letters and marks of any script", "山田 太郎 नमस्ते é١٢.vcf", "山田 太郎 नमस्ते é١٢.vcf"},
        {"a wide blank", "山田　太郎", "山田 太郎"},
        {"fields of a composer", "Bob',bcc='evil@x.org',body='hi.vcf",
         "Bob_bcc_evil_x.org_body_hi.vcf"},
        {"signs of a shell", "$(id)`&|;<>*?~!#{}[]\"\\.vcf", "_id_.vcf"},
        {"signs of an address", "a%41&b=c?d+e:f@g,h", "a_41_b_c_d_e_f_g_h"},
        {"a path", "/etc/passwd", "_etc_passwd"},
        {"a way up", "../../x", "_.._x"},
        {"controls", "a\nb\t\x7F\x1B[0m", "a_b_0m"},
        {"what turns the direction vanishes", "a\u202Efcv.exe\u200B", "afcv.exe"},
        {"no text at all", "a\xFF\xC3(b", "a_b"},
        {"a hidden file", "..hidden", "hidden"},
        {"an option", " --help", "help"},
        {"a point at the end", "name. .", "name"},
        {"nothing", "", "_"},
        {"nothing but points", "...", "_"},
        {"currency, quotation and symbols", "€«x»☺", "_x_"},
        {"too long", std::string(300, 'x') + ".vcf", std::string(116, 'x') + ".vcf"},
        {"no character is cut", "a" + Wide(50), "a" + Wide(39)},
    };
    for (const auto& [why, in, want] : rows) EXPECT_EQ(PlainFileName(in), want) << why;
}

TEST(FileName, APathIsPlainWhereAllOfItsNamesAre) {
    for (const char* path : {"/home/ann/é 1.vcf", "/tmp/a-b_c/x", "name"}) {
        EXPECT_TRUE(IsPlainPath(path)) << path;
    }
    for (const char* path : {"/a,b/x", "/a/x'y", "/a/-x", "-x", "/a/\xFF", "/a\u202E/x", "/a\n"}) {
        EXPECT_FALSE(IsPlainPath(path)) << path;
    }
}

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
    // Of what is told the last is a part; it is empty where nothing is.
    using Row = std::tuple<const char*, std::function<void()>, std::string>;
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
        const std::string another = " belongs to another user (number 65534)";
        const auto giveGroup = [&] {
            GiveAway(folder, 0, kNobody);
            SetMode(folder, 0770);
        };
        const auto giveFile = [&] {
            SetMode(folder, 01777);
            GiveAway(file, kNobody, 0);
        };
        rows.emplace_back("the group of others", giveGroup, folder + mayWrite);
        rows.emplace_back("another user's file in a folder for all", giveFile, file + another);
        rows.emplace_back(
            "another user's folder", [&] { GiveAway(folder, kNobody, 0); }, folder + another);
    }
    for (const auto& [why, prepare, want] : rows) {
        prepare();
        for (const std::string& path : {file, way + "/file", folder + "/./../folder/file"}) {
            const std::string told = WhyNotTrusted(path);
            EXPECT_EQ(told.empty(), want.empty()) << why << ": " << told;
            EXPECT_THAT(told, HasSubstr(want)) << why;
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
