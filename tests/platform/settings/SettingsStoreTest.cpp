// The settings file: what it is, several writers at once, those that die, and what can't be read or
// kept.
// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

#include <gmock/gmock.h>

#include <platform/io/FileSizeLimit.h>
#include <platform/settings/SettingsFixture.h>
#include <support/ChildProcess.h>

namespace orvo {
namespace {

using Store = SettingsFixture;

TEST_F(Store, TheFileLiesInTheConfigurationFolder) {
    SettingsStore::SetPath("");
    ::setenv("HOME", folder.c_str(), 1);
    for (const char* unusable : {"", "relative"}) {
        ::setenv("XDG_CONFIG_HOME", unusable, 1);
        EXPECT_EQ(SettingsStore::Path(), folder / ".config" / "orvo" / "settings.ini");
    }
    ::setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
    EXPECT_TRUE(Write("1"));
    EXPECT_TRUE(fs::exists(folder / "config" / "orvo" / "settings.ini"));
}

TEST_F(Store, ANewFileIsForTheUserAloneAndAnOldOneKeepsItsPermissions) {
    SettingsStore::SetPath((folder / "a" / "b" / "settings.ini").string());
    ASSERT_TRUE(Write("1"));
    EXPECT_EQ(fs::status(SettingsStore::Path()).permissions(), fs::perms{0600});
    EXPECT_EQ(fs::status(folder / "a").permissions(), fs::perms{0700});
    fs::permissions(SettingsStore::Path(), fs::perms{0664});

    ASSERT_TRUE(Write("2"));

    EXPECT_EQ(fs::status(SettingsStore::Path()).permissions(), fs::perms{0664});
}

TEST_F(Store, TheSameValueAgainLeavesTheFileUntouched) {
    Put("[Group/Section]\nk = \\x41 ; all of it\n");
    const auto time = fs::file_time_type::clock::now() - std::chrono::hours(1);
    fs::last_write_time(file, time);
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);

    EXPECT_TRUE(Write("A ; all of it"));

    EXPECT_EQ(fs::last_write_time(file), time);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1) << "not even a lock";
    fs::permissions(folder, fs::perms::owner_all);
}

TEST_F(Store, WhatAnotherProgramWritesIsSeenEvenAtTheSameMoment) {
    const auto moment = fs::file_time_type::clock::now() + std::chrono::hours(1);
    for (const char digit : {'1', '2', '3'}) {
        Put(std::string("[Group/Section]\nk=") + digit + '\n');
        fs::last_write_time(file, moment);
        EXPECT_EQ(Read(), CString(digit));
    }
    fs::remove(file);
    EXPECT_EQ(Read(), std::nullopt);
}

TEST_F(Store, AnUnchangedFileIsNotReadAgain) {
    const auto time = fs::file_time_type::clock::now() - std::chrono::hours(1);
    Put("[Group/Section]\nk=1\n");
    fs::last_write_time(file, time);
    ASSERT_EQ(Read(), "1");

    Put("[Group/Section]\nk=2\n");
    fs::last_write_time(file, time);
    EXPECT_EQ(Read(), "1") << "the file was read";

    fs::last_write_time(file, time + std::chrono::minutes(1));
    EXPECT_EQ(Read(), "2");
}

TEST_F(Store, ASymbolicLinkStaysAndItsTargetIsReplaced) {
    const fs::path target = folder / "elsewhere" / "real.ini";
    fs::create_symlink("second.ini", file);
    fs::create_symlink(fs::path("elsewhere") / "real.ini", folder / "second.ini");
    for (const char* text : {"of a file that wasn't there", "of one that was"}) {
        ASSERT_TRUE(Write(text));

        EXPECT_TRUE(fs::is_symlink(file));
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(target)));
        EXPECT_EQ(Read(), text);
    }
}

TEST_F(Store, EightProcessesAtOnceLoseNothing) {
    constexpr int kProcesses = 8;
    constexpr int kKeys = 200;
    RunAtOnce(kProcesses, [](int process) {
        for (int i = 0; i < kKeys; ++i) {
            if (!Write("kept", std::to_string(process) + '.' + std::to_string(i))) return 1;
        }
        return 0;
    });

    for (int i = 0; i < kProcesses * kKeys; ++i) {
        EXPECT_EQ(Read(std::to_string(i / kKeys) + '.' + std::to_string(i % kKeys)), "kept");
    }
}

TEST_F(Store, AValueReadUnderTheLockHoldsUntilItIsWritten) {
    constexpr int kRounds = 50;
    const auto count = [] {
        for (int i = 0; i < kRounds; ++i) {
            const SettingsLock lock;
            const SettingsLock nested;
            const int before = SettingsStore::ReadInt("Group", "Section", "k").value_or(0);
            SettingsStore::WriteInt("Group", "Section", "k", before + 1);
        }
    };
    ChildProcess other([&](const Line& parent) {
        if (!parent.Await()) return 1;
        count();
        return 0;
    });
    other.Tell();
    std::thread thread(count);
    count();
    thread.join();
    EXPECT_EQ(other.Wait(), 0);

    EXPECT_EQ(Read(), std::to_string(3 * kRounds).c_str());
}

TEST_F(Store, ANestedLockLeavesTheOuterOneHeld) {
    const SettingsLock lock;
    { const SettingsLock nested; }
    ASSERT_TRUE(Write("1"));

    const int other = ::open((lock.Target() + ".lock").c_str(), O_RDWR | O_CLOEXEC);

    EXPECT_EQ(::flock(other, LOCK_EX | LOCK_NB), -1);
    ::close(other);
}

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

using Faults = SettingsFixture;

// The one line that a failed write tells.
std::string FailedWrite(std::string_view text) {
    CaptureStderr();
    EXPECT_FALSE(Faults::Write(text));
    return GetCapturedStderr();
}

constexpr const char* kOld = "[Group/Section]\nk=old\n";

TEST_F(Faults, AReadOnlyFolderIsToldOnceAndKeepsTheFile) {
    Put(kOld);
    fs::permissions(folder, fs::perms{0555});
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
                    testing::HasSubstr(": it can't be written: File too large\n"));
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
        EXPECT_THAT(FailedWrite("new"),
                    testing::HasSubstr("it can't be read: Permission denied\n"));
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
        EXPECT_THAT(last, testing::AnyOf(acknowledged, acknowledged + 1));
        EXPECT_EQ(Bytes(), whole(last));
    }
    EXPECT_TRUE(Write("after")) << "what the dead left behind is in nobody's way";
    EXPECT_FALSE(fs::exists(file.string() + ".new"));
}

}  // namespace
}  // namespace orvo
