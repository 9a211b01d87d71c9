// Tests of the desktop options and of their two stores.
// SPDX-License-Identifier: MIT
#include <array>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

#include <gmock/gmock.h>

#include <contracts/Settings.h>
#include <orvoshare/options/DesktopOptions.h>
#include <platform/io/CFile.h>
#include <platform/settings/SettingsFixture.h>
#include <platform/text/SystemText.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

// A data directory with the folder "ann" of a user, named in the settings.
class DesktopOptions : public SettingsFixture {
protected:
    DesktopOptions() {
        fs::create_directories(folder / "ann");
        CmnWriteProfileString("Core", "Path", folder.c_str());
    }
    std::string UserFile() const { return folder / "ann" / "xtrauser.dat"; }

    // Saves that Ann needs a password, or no more.
    void SavePassword(int isRequired) {
        COrvoDesktopOptions options(&ann);
        options.SetPasswordRequired(isRequired);
        options.SavePerUserOptions();
    }
    int SavedPassword() { return COrvoDesktopOptions(&ann).IsPasswordRequired(); }

    CUser ann{"ann"};
};

TEST_F(DesktopOptions, OnlyWithAUserTheSettingsAreLoadedWithDefaultsForWhatTheyLack) {
    Put("[Application/Preferences]\nArchive=0\n");
    const COrvoDesktopOptions plain;
    const COrvoDesktopOptions loaded(&ann);

    EXPECT_THAT((std::array{plain.IsAutoArchive(), plain.GetAutoSaveInterval(),
                            plain.GetWorkDayBegins(), plain.IsShowingPrivate()}),
                testing::ElementsAre(1, 0, 0, 0));
    EXPECT_EQ(plain.GetTodoShowCompleted(), 1);
    EXPECT_THAT((std::array{loaded.IsAutoArchive(), loaded.GetAutoSaveInterval(),
                            loaded.GetWorkDayBegins(), loaded.IsShowingPrivate()}),
                testing::ElementsAre(0, 15, 8, 1));
    EXPECT_EQ(loaded.GetAlarmAdvance(), 5);
}

TEST_F(DesktopOptions, SavingWritesEachOptionUnderItsKey) {
    Put("");
    COrvoDesktopOptions options;
    options.SetAutoArchive(0);
    options.SetAutoSave(0, 30);
    options.SetConfirmOnDelete(0);
    options.SetStartupApp("todo");
    options.SetShowingPrivate(1);
    options.SetMaskingPrivate(1);
    options.SetDataDir("/data");
    options.SetWorkDayBegins(9);
    options.SetWorkWeekBegins(6);
    options.SetAlarmSet(1);
    options.SetAlarmAdvance(20);
    options.SetAlarmAdvUnit(2);
    options.SaveOptions();

    EXPECT_EQ(Bytes(),
              "[Application/Preferences]\nArchive=0\nAutoSave=0\nAutoSaveInterval=30\n"
              "ConfirmDelete=0\nStartup=todo\nPrivate=1\nMask=1\n\n"
              "[Application/Core]\nPath=/data\n\n"
              "[Application/Horaline]\nWorkDayBegins=9\nWorkWeekBegins=6\nAlarmOn=1\n"
              "AlarmTime=20\nAlarmUnit=2\n");

    COrvoDesktopOptions loaded;
    loaded.LoadAppWideOptions();
    EXPECT_EQ(loaded.GetStartupApp(), "todo");
    EXPECT_EQ(loaded.GetAlarmAdvUnit(), 2);
    loaded.SaveAppWideOptions();
    EXPECT_EQ(loaded.IsConfirmOnDelete(), 0);
}

TEST_F(DesktopOptions, AnIntervalIsTenAtLeast) {
    COrvoDesktopOptions options;
    for (const auto& [given, want] : {std::pair{-1, 10}, {9, 10}, {10, 10}, {11, 11}}) {
        options.SetAutoSave(1, given);
        EXPECT_EQ(options.GetAutoSaveInterval(), want);
        CmnWriteProfileInt("Preferences", "AutoSaveInterval", given);
        options.LoadAppWideOptions();
        EXPECT_EQ(options.GetAutoSaveInterval(), want);
    }
}

TEST_F(DesktopOptions, ThePasswordFlagLiesInTheUsersFileBelowTheDataDirectory) {
    SavePassword(1);
    EXPECT_EQ(TempFolder::Content(UserFile()), "\x01"s + "1\x01\0\0\0"s);
    EXPECT_EQ(SavedPassword(), 1);

    std::ofstream(UserFile()) << "\x03"s + "2.5\x07\0\0\0"s;
    EXPECT_EQ(SavedPassword(), 7) << "of another version";
}

TEST_F(DesktopOptions, AUserWithoutAFileNeedsNoPassword) {
    COrvoDesktopOptions options;
    options.SetPasswordRequired(1);
    options.SavePerUserOptions();
    options.SetUser(&ann);
    EXPECT_EQ(options.IsPasswordRequired(), 1);

    options.LoadPerUserOptions();

    EXPECT_EQ(options.IsPasswordRequired(), 0);
    EXPECT_FALSE(fs::exists(UserFile()));
}

TEST_F(DesktopOptions, ADamagedUserFileIsToldToTheCallerAndChangesNothing) {
    for (const std::string& bytes : {""s, "\x01"s + "1\x01"s, "\xFF\xFF\xFF\xFF\xFF\xFF\x7F"s}) {
        std::ofstream(UserFile(), std::ios::trunc) << bytes;
        COrvoDesktopOptions options;
        options.SetUser(&ann);
        options.SetPasswordRequired(3);
        EXPECT_THROW(options.LoadPerUserOptions(), CException);
        EXPECT_EQ(options.IsPasswordRequired(), 3);
        EXPECT_EQ(TempFolder::Content(UserFile()), bytes);
    }
}

TEST_F(DesktopOptions, ASaveReplacesTheUserFileInOneStepAndForItsOwnerAlone) {
    const mode_t mask = ::umask(0);
    COrvoDesktopOptions options(&ann);
    for (const bool isOpenToAll : {false, true}) {
        if (isOpenToAll) fs::permissions(UserFile(), fs::perms(0666));
        std::ofstream(UserFile() + ".new") << "left behind by a program that was killed";
        options.SavePerUserOptions();
        EXPECT_EQ(fs::status(UserFile()).permissions(), fs::perms(0600));
        EXPECT_FALSE(fs::exists(UserFile() + ".new"));
    }
    ::umask(mask);
}

TEST_F(DesktopOptions, ASaveThatFailsLeavesTheOldUserFile) {
    SavePassword(1);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit usual{};
    ::getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit nothing{0, usual.rlim_max};

    ::setrlimit(RLIMIT_FSIZE, &nothing);
    EXPECT_THROW(SavePassword(0), CFileException);
    ::setrlimit(RLIMIT_FSIZE, &usual);

    EXPECT_EQ(SavedPassword(), 1);
}

TEST_F(DesktopOptions, ALinkToTheUserFileStays) {
    fs::create_symlink(folder / "elsewhere", UserFile());
    SavePassword(1);
    EXPECT_TRUE(fs::is_symlink(UserFile()));
    EXPECT_EQ(SavedPassword(), 1);
}

TEST_F(DesktopOptions, AUserFileThatCantBeMadeCostsTheSettingsNothing) {
    CUser nobody("no such folder");
    COrvoDesktopOptions options(&nobody);
    options.SetWorkDayBegins(7);
    options.SaveOptions();

    int hour = 0;
    CmnGetProfileInt("Horaline", "WorkDayBegins", &hour, 0);
    EXPECT_EQ(hour, 7);
}

TEST_F(DesktopOptions, WithoutADataDirectoryThePathBeginsAtTheRoot) {
    Put("");
    CUser user(CString((folder / "ann").string().substr(1)));
    COrvoDesktopOptions options(&user);
    options.SetPasswordRequired(1);
    options.SavePerUserOptions();

    EXPECT_TRUE(fs::exists(UserFile()));
}

TEST_F(DesktopOptions, ATrailByteInAPathIsNoBackslash) {
    for (const LocaleCase& row : kBothCodePages) {
        const LocaleInForce locale(row.tag, row.codePage);
        const std::string utf8 = folder / "表\\ポ";  // 95 5C and 83 7C on page 932
        CmnWriteProfileString("Core", "Path", SystemText(utf8));
        fs::create_directories(folder / "表" / "ポ" / "ann");

        SavePassword(1);

        EXPECT_TRUE(fs::exists(folder / "表" / "ポ" / "ann" / "xtrauser.dat")) << row.codePage;
        fs::remove_all(folder / "表");
    }
}

}  // namespace
}  // namespace orvo
