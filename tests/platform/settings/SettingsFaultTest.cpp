// Tests of settings that can't be read or kept, and of writers that die.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <platform/io/FileSizeLimit.h>
#include <platform/settings/SettingsFixture.h>
#include <support/ChildProcess.h>

namespace orvo {

using testing::AnyOf;
using testing::HasSubstr;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

class Faults : public SettingsFixture {
protected:
    // The one line that a failed write tells.
    static std::string FailedWrite(std::string_view text) {
        CaptureStderr();
        EXPECT_FALSE(Write(text));
        return GetCapturedStderr();
    }
};

constexpr const char* kOld = "[Group/Section]\nk=old\n";
constexpr fs::perms kForAllToRead{0555};

}  // namespace

TEST_F(Faults, AReadOnlyFolderIsToldOnceAndKeepsTheFile) {
    Put(kOld);
    fs::permissions(folder, kForAllToRead);
    RunAsNobody([&] {
        EXPECT_EQ(FailedWrite("new"), file.string() +
                                          ": [Group/Section] k can't be saved: " + file.string() +
                                          ".lock can't be locked: Permission denied\n");
        EXPECT_EQ(FailedWrite("new"), "") << "told before";
        EXPECT_EQ(Read(), CString("old"));
    });
    fs::permissions(folder, fs::perms::owner_all);
    EXPECT_EQ(Bytes(), kOld);
    EXPECT_TRUE(Write("new"));
}

TEST_F(Faults, AFolderThatCannotBeMadeIsTold) {
    Put("a file");
    SettingsStore::SetPath((file / "orvo" / "settings.ini").string());

    EXPECT_EQ(FailedWrite("new"), SettingsStore::Path() +
                                      ": [Group/Section] k can't be saved: its folder can't be "
                                      "made: Not a directory\n");
    CaptureStderr();
    EXPECT_EQ(Read(), std::nullopt);
    EXPECT_EQ(GetCapturedStderr(), "") << "there are no settings yet";
    const SettingsLock lock;
    EXPECT_FALSE(lock.IsHeld());
}

TEST_F(Faults, AFullDiskIsToldAndLeavesTheOldFileAlone) {
    Put(kOld);
    {
        const FileSizeLimit limit(1000);
        EXPECT_THAT(FailedWrite(std::string(200'000, 'x')),
                    HasSubstr(": it can't be written: File too large\n"));
    }
    EXPECT_EQ(Bytes(), kOld);
    EXPECT_FALSE(fs::exists(file.string() + ".new"));
    EXPECT_TRUE(Write("new")) << "with room again it goes on";
}

TEST_F(Faults, AFileThatCannotBeReadIsNotReplaced) {
    Put(kOld);
    fs::permissions(file, fs::perms::none);
    fs::permissions(folder, fs::perms::all);
    RunAsNobody([&] {
        CaptureStderr();

        EXPECT_EQ(Read(), std::nullopt);
        EXPECT_EQ(Read(), std::nullopt);

        EXPECT_EQ(GetCapturedStderr(), file.string() + ": it can't be read: Permission denied\n");
        EXPECT_THAT(FailedWrite("new"), HasSubstr("it can't be read: Permission denied\n"));
    });
    EXPECT_EQ(Bytes(), kOld);
}

TEST_F(Faults, AFolderInThePlaceOfTheFileIsToldInOneLine) {
    fs::create_directory(file);
    CaptureStderr();

    EXPECT_FALSE(SettingsStore::Write("Group", "a\nb", "c\nd", "new"));

    EXPECT_EQ(GetCapturedStderr(), file.string() +
                                       ": [Group/a\\nb] c\\nd can't be saved: it is no "
                                       "regular file\n");
    EXPECT_TRUE(fs::is_directory(file));
}

TEST_F(Faults, TheFileIsWholeAtEveryMomentAndAfterAKill) {
    const std::string before = "; first\n[Group/Section]\nballast=" + std::string(300'000, 'x');
    const std::string after = "\n; last\n";
    const auto whole = [&](int value) { return before + "\nk=" + std::to_string(value) + after; };
    Put(whole(0));
    int last = 0;
    for (const int looks : {0, 1, 2, 3, 5, 8, 13, 21, 34, 55}) {
        ChildProcess writer([&](const Line& parent) {
            parent.Tell();
            for (int i = last + 1;; ++i) {
                if (!Write(std::to_string(i))) return 1;
                parent.Tell();
            }
        });
        ASSERT_TRUE(writer.Await());
        for (int i = 0; i < looks; ++i) {
            const std::string bytes = Bytes();
            ASSERT_TRUE(bytes.starts_with(before) && bytes.ends_with(after)) << bytes.size();
        }
        writer.Kill();
        int acknowledged = last;
        while (writer.Await()) ++acknowledged;
        EXPECT_EQ(writer.Wait(), -1);

        last = std::stoi(Read().value_or(CString("-1")).Bytes());
        EXPECT_THAT(last, AnyOf(acknowledged, acknowledged + 1));
        EXPECT_EQ(Bytes(), whole(last));
    }
    EXPECT_TRUE(Write("after")) << "what the dead left behind is in nobody's way";
    EXPECT_FALSE(fs::exists(file.string() + ".new"));
}

}  // namespace orvo
