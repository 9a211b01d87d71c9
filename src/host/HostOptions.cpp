// The desktop options that both hosts have in common, and where they are kept.
// SPDX-License-Identifier: MIT
#include <filesystem>

#include <fmt/format.h>

#include <contracts/Settings.h>
#include <host/HostOptions.h>
#include <orvoshare/options/OptionsPath.h>
#include <platform/io/CFile.h>
#include <platform/settings/SettingsStore.h>
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

}  // namespace

COrvoDesktopOptions LoadHostOptions(const std::function<void(const std::string&)>& warn) {
    CUser user = HostUser();
    COrvoDesktopOptions options;
    options.SetUser(&user);
    try {
        options.LoadPerUserOptions();
    } catch (const CException& error) {
        warn(fmt::format("{}: no password is required now", error.what()));
        options.SetDefaultUserOptions();
    }
    options.LoadAppWideOptions();
    for (const HostOption& option : kHostOptions) {
        int value = 0;
        CmnGetProfileInt(kHostSection, option.key, &value, (options.*option.get)());
        (options.*option.set)(value);
    }
    return options;
}

void SaveHostOptions(COrvoDesktopOptions& options) {
    options.SaveOptions();
    for (const HostOption& option : kHostOptions) {
        CmnWriteProfileInt(kHostSection, option.key, (options.*option.get)());
    }
}

}  // namespace orvo
