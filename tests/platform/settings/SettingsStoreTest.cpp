// Tests of the settings file: what it is, and several writers at once.
// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

#include <platform/settings/SettingsFixture.h>
#include <support/ChildProcess.h>

namespace orvo {

namespace {

using Store = SettingsFixture;

mode_t ModeOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

}  // namespace

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
    EXPECT_EQ(ModeOf(SettingsStore::Path()), 0600U);
    EXPECT_EQ(ModeOf(folder / "a"), 0700U);
    ASSERT_EQ(::chmod(SettingsStore::Path().c_str(), 0664), 0);

    ASSERT_TRUE(Write("2"));

    EXPECT_EQ(ModeOf(SettingsStore::Path()), 0664U);
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

    for (int process = 0; process < kProcesses; ++process) {
        for (int i = 0; i < kKeys; ++i) {
            EXPECT_EQ(Read(std::to_string(process) + '.' + std::to_string(i)), "kept");
        }
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

}  // namespace orvo
