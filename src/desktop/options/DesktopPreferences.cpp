// What this program alone keeps for the user: language, colours, reminders, maps, and where file
// dialogs begin.
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <array>
#include <charconv>

#include <desktop/options/DesktopPreferences.h>
#include <host/SettingText.h>

namespace orvo::desktop {
namespace {

constexpr const char* kSection = "Desktop";
constexpr const char* kLocaleKey = "Locale";
constexpr const char* kSoundKey = "ReminderSound";
constexpr const char* kFolderKey = "LastFolder";
constexpr const char* kBirthdayKey = "BirthdayDays";
constexpr const char* kMapKey = "MapAddress";
constexpr const char* kUnstartedKey = "HideUnstarted";
constexpr const char* kColoursKey = "Colours";
// In the order of `Colours`, as --colours names them.
constexpr std::array<const char*, 3> kColourNames{"desktop", "light", "dark"};

}  // namespace

std::string PreferredLocale() {
    return SettingText(kSection, kLocaleKey);
}

bool SetPreferredLocale(const std::string& locale) {
    return SetSettingText(kSection, kLocaleKey, locale);
}

std::string ReminderSound() {
    return SettingText(kSection, kSoundKey);
}

bool SetReminderSound(const std::string& path) {
    return SetSettingText(kSection, kSoundKey, path);
}

std::optional<int> BirthdayAdvance() {
    const std::string text = SettingText(kSection, kBirthdayKey);
    int days = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), days);
    const bool isRead = error == std::errc() && end == text.data() + text.size();
    return isRead && days >= 0 && days <= kLongestBirthdayAdvance ? std::optional(days)
                                                                  : std::nullopt;
}

bool SetBirthdayAdvance(std::optional<int> days) {
    return SetSettingText(kSection, kBirthdayKey, days ? std::to_string(*days) : std::string());
}

std::string MapAddress() {
    return SettingText(kSection, kMapKey);
}

bool SetMapAddress(const std::string& address) {
    return SetSettingText(kSection, kMapKey, address);
}

std::string LastFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    for (const QString& folder :
         {QString::fromStdString(SettingText(kSection, kFolderKey)), documents}) {
        if (!folder.isEmpty() && QFileInfo(folder).isDir()) return folder.toStdString();
    }
    return QDir::homePath().toStdString();
}

bool SetLastFolder(const std::string& folder) {
    return SetSettingText(kSection, kFolderKey, folder);
}

bool HidesUnstarted() {
    return SettingText(kSection, kUnstartedKey) == "1";
}

bool SetHidesUnstarted(bool hides) {
    return SetSettingText(kSection, kUnstartedKey, hides ? "1" : "");
}

Colours PreferredColours() {
    const std::string name = SettingText(kSection, kColoursKey);
    for (std::size_t i = 0; i < kColourNames.size(); ++i) {
        if (name == kColourNames.at(i)) return static_cast<Colours>(i);
    }
    return Colours::Desktop;
}

bool SetPreferredColours(Colours colours) {
    return SetSettingText(kSection, kColoursKey,
                          kColourNames.at(static_cast<std::size_t>(colours)));
}

}  // namespace orvo::desktop
