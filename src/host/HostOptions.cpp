// The desktop options that both hosts have in common, and where they are kept.
// SPDX-License-Identifier: MIT
#include <filesystem>
#include <memory>

#include <fmt/format.h>
#include <unicode/calendar.h>

#include <contracts/Settings.h>
#include <host/HostOptions.h>
#include <host/Password.h>
#include <orvoshare/options/OptionsPath.h>
#include <platform/io/CFile.h>
#include <platform/settings/SettingsFile.h>
#include <platform/settings/SettingsStore.h>
#include <platform/text/SystemLocale.h>
#include <platform/text/SystemText.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kHostSection = "Orvo";

// An option that only the host keeps; where the settings lack it, it has its first value.
struct HostOption {
    const char* key;
    int (COrvoDesktopOptions::*get)() const;
    void (COrvoDesktopOptions::*set)(int);
};
constexpr HostOption kHostOptions[] = {
    {"TodoShowCompleted", &COrvoDesktopOptions::GetTodoShowCompleted,
     &COrvoDesktopOptions::SetTodoShowCompleted},
    {"TodoShowDueItemsOnly", &COrvoDesktopOptions::GetTodoShowDueItemsOnly,
     &COrvoDesktopOptions::SetTodoShowDueItemsOnly},
    {"TodoMarkCompletionDate", &COrvoDesktopOptions::GetTodoMarkCompletionDate,
     &COrvoDesktopOptions::SetTodoMarkCompletionDate},
    {"VerifyDataFile", &COrvoDesktopOptions::GetVerifyDatFileFlag,
     &COrvoDesktopOptions::SetVerifyDatFileFlag},
};

constexpr int kNotKept = -1;

// As the user's country has it, from Sunday, as 0.
int FirstDayOfWeek() {
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(
        icu::Locale::forLanguageTag(SystemLocale::Tag(), error), error));
    const int day = calendar ? calendar->getFirstDayOfWeek(error) : UCAL_SUNDAY;
    return U_SUCCESS(error) ? day - UCAL_SUNDAY : 0;
}

// The directory that SetUser looks for the user's directory in.
fs::path DataDirectory() {
    char buffer[261] = "";
    unsigned long size = sizeof buffer;
    CmnGetProfileString("Core", "Path", buffer, size, "");
    const fs::path directory = FilePathOf(buffer);
    return directory.empty() ? fs::path("/") : directory;
}

// The folder of the settings file, as seen from the data directory.
CUser HostUser() {
    std::error_code error;
    const fs::path folder = fs::path(SettingsStore::Path()).parent_path();
    const fs::path directory = fs::proximate(folder, DataDirectory(), error);
    return CUser(SystemText(directory.string()));
}

std::string UserFile() {
    return (fs::path(SettingsStore::Path()).parent_path() / kUserFileName).string();
}

constexpr std::size_t kFlagSize = 4;

// A counted text and a number of four bytes, and nothing else. A file of zeros, as a crash of the
// system leaves it, would be read as one that requires no password.
bool IsOfItsForm(std::string_view bytes) {
    constexpr std::size_t kLongestVersion = 254;
    const std::size_t length = bytes.empty() ? 0 : static_cast<unsigned char>(bytes.front());
    return length > 0 && length <= kLongestVersion && bytes.size() == 1 + length + kFlagSize;
}

struct UserFileState {
    bool isThere = false;
    bool requiresPassword = false;
    std::string problem;  // empty for one that can be relied on
};

UserFileState LookAtUserFile() {
    UserFileState file;
    std::string bytes;
    FileStamp stamp;
    const bool isRead = ReadFile(UserFile(), bytes, stamp, file.problem);
    file.isThere = !isRead || stamp != FileStamp();
    if (isRead) {
        const bool isSound = IsOfItsForm(bytes);
        file.problem = isSound ? "" : "it is cut, or of another form";
        file.requiresPassword =
            isSound && bytes.find_first_not_of('\0', bytes.size() - kFlagSize) != bytes.npos;
    }
    return file;
}

// Returns:  why the file doesn't count, in one line; nothing where it does, or isn't there.
std::string LoadUserFile(COrvoDesktopOptions& options) {
    UserFileState file = LookAtUserFile();
    if (!file.isThere) {
        options.SetPasswordRequired(IsPasswordSet() ? 1 : 0);
        return {};
    }
    if (file.problem.empty()) {
        try {
            options.LoadPerUserOptions();
            // One that the options couldn't open counts for them as none.
            if (options.IsPasswordRequired() != 0 || !file.requiresPassword) return {};
            file.problem = "it can't be opened";
        } catch (const CException& error) {
            file.problem = error.what();
        }
    }
    if (IsPasswordSet()) {
        options.SetPasswordRequired(1);
        return fmt::format("{}: {}: the password counts as required", UserFile(), file.problem);
    }
    options.SetDefaultUserOptions();
    return fmt::format("{}: {}: no password is required now", UserFile(), file.problem);
}

COrvoDesktopOptions OptionsOfUser() {
    CUser user = HostUser();
    COrvoDesktopOptions options;
    options.SetUser(&user);
    return options;
}

}  // namespace

COrvoDesktopOptions LoadHostOptions(const std::function<void(const std::string&)>& warn) {
    COrvoDesktopOptions options = OptionsOfUser();
    const std::string problem = LoadUserFile(options);
    if (!problem.empty()) warn(problem);
    options.LoadAppWideOptions();
    int week = kNotKept;
    CmnGetProfileInt("Horaline", "WorkWeekBegins", &week, kNotKept);
    if (week == kNotKept) options.SetWorkWeekBegins(FirstDayOfWeek());
    if (!SettingsStore::IsReadable()) options.SetShowingPrivate(0);
    for (const HostOption& option : kHostOptions) {
        int value = 0;
        CmnGetProfileInt(kHostSection, option.key, &value, (options.*option.get)());
        (options.*option.set)(value);
    }
    return options;
}

std::string SaveHostOptions(COrvoDesktopOptions& options) {
    try {
        options.SavePerUserOptions();
    } catch (const CException& error) {
        return error.what();
    }
    COrvoDesktopOptions kept = OptionsOfUser();
    LoadUserFile(kept);
    if (kept.IsPasswordRequired() != options.IsPasswordRequired()) {
        return UserFile() + ": whether a password is required can't be kept there";
    }
    options.SaveAppWideOptions();
    for (const HostOption& option : kHostOptions) {
        CmnWriteProfileInt(kHostSection, option.key, (options.*option.get)());
    }
    return {};
}

}  // namespace orvo
