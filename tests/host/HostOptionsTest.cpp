// The options as hosts load and save them: in doubt the guard of private entries holds.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <host/Disclosure.h>
#include <host/HostOptions.h>
#include <host/Password.h>
#include <platform/settings/SettingsFixture.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

class HostOptions : public SettingsFixture {
protected:
    COrvoDesktopOptions Load() {
        told.clear();
        return LoadHostOptions([this](const std::string& line) { told += line + '\n'; });
    }

    std::string told;
};

// A user file of that version, which says whether a password is required.
std::string Saying(bool isRequired, const std::string& version = "1") {
    return static_cast<char>(version.size()) + version + (isRequired ? "\1\0\0\0"s : "\0\0\0\0"s);
}

TEST_F(HostOptions, AUserFileInDoubtCountsAsOneThatRequiresThePasswordThatIsSet) {
    struct {
        const char* why;
        std::string bytes;
        bool isSound, want;  // where a password is set
    } const rows[] = {{"it says yes", Saying(true), true, true},
                      {"it says no", Saying(false), true, false},
                      {"another version says no", Saying(false, "2.5"), true, false},
                      {"empty", "", false, true},
                      {"cut", Saying(false).substr(0, 4), false, true},
                      {"zeros, after a crash", std::string(6, '\0'), false, true},
                      {"zeros of another size", std::string(5, '\0'), false, true},
                      {"longer", Saying(false) + '\0', false, true},
                      {"a text", "not that file", false, true}};
    for (const bool isSet : {false, true}) {
        ASSERT_TRUE(isSet ? SetPassword(TypedPassword("Khan")) : RemovePassword());
        for (const auto& row : rows) {
            place.File("xtrauser.dat", row.bytes);

            COrvoDesktopOptions options = Load();

            EXPECT_EQ(options.IsPasswordRequired() != 0, row.isSound ? row.want : isSet) << row.why;
            EXPECT_EQ(told.empty(), row.isSound) << row.why << told;
            EXPECT_EQ(SaveHostOptions(options), "") << row.why;
            EXPECT_EQ(Load().IsPasswordRequired() != 0, row.isSound ? row.want : isSet) << row.why;
        }
    }
}

TEST_F(HostOptions, AMissingUserFileIsNormalUnlessAPasswordIsSet) {
    EXPECT_EQ(Load().IsPasswordRequired(), 0);
    EXPECT_EQ(told, "");
    ASSERT_TRUE(SetPassword(TypedPassword("Khan")));
    EXPECT_EQ(Load().IsPasswordRequired(), 1);
    EXPECT_EQ(told, "");
}

TEST_F(HostOptions, TheWorkWeekBeginsAsTheCountryHasItUntilADayIsKept) {
    const LocaleInForce german("de-DE");
    COrvoDesktopOptions options = Load();
    EXPECT_EQ(options.GetWorkWeekBegins(), 1);
    options.SetWorkWeekBegins(0);
    EXPECT_EQ(SaveHostOptions(options), "");
    EXPECT_EQ(Load().GetWorkWeekBegins(), 0);
}

TEST_F(HostOptions, SettingsThatCantBeReadGuardAndHide) {
    ASSERT_TRUE(SetPassword(TypedPassword("Khan")));
    place.File("xtrauser.dat", Saying(true));
    fs::remove(file);
    fs::create_directory(file);

    const COrvoDesktopOptions options = Load();

    EXPECT_TRUE(IsGuarded(options));
    EXPECT_EQ(PrivacyOf(options), Privacy::Hide);
    EXPECT_FALSE(IsPassword(TypedPassword("Khan")));
}

TEST_F(HostOptions, AFlagThatCantBeKeptIsToldAndNothingElseIsSaved) {
    fs::create_directory(folder / "xtrauser.dat");
    COrvoDesktopOptions options = Load();
    options.SetWorkDayBegins(7);
    EXPECT_EQ(SaveHostOptions(options), "") << "the flag is as it was";
    options.SetPasswordRequired(1);
    options.SetWorkDayBegins(9);
    EXPECT_NE(SaveHostOptions(options), "");
    EXPECT_EQ(Load().GetWorkDayBegins(), 7);
}

}  // namespace
}  // namespace orvo
