// What this program alone keeps for the user: language, colours, the sound of reminders, and where
// file dialogs begin.
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <array>
#include <vector>

#include <contracts/Settings.h>
#include <desktop/options/DesktopPreferences.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {
namespace {

constexpr const char* kSection = "Desktop";
constexpr const char* kLocaleKey = "Locale";
constexpr const char* kSoundKey = "ReminderSound";
constexpr const char* kFolderKey = "LastFolder";
constexpr const char* kColoursKey = "Colours";
// In the order of `Colours`, as --colours names them.
constexpr std::array<const char*, 3> kColourNames{"desktop", "light", "dark"};
constexpr std::size_t kLongestText = 8192;  // bytes, for a path

std::string Read(const char* key) {
    std::vector<char> buffer(kLongestText);
    unsigned long size = buffer.size();
    CmnGetProfileString(kSection, key, buffer.data(), size, "");
    return ToUtf8(CString(buffer.data()));
}

bool Write(const char* key, const std::string& text) {
    return CmnWriteProfileString(kSection, key, SystemText(text)) != 0;
}

}  // namespace

std::string PreferredLocale() {
    return Read(kLocaleKey);
}

bool SetPreferredLocale(const std::string& locale) {
    return Write(kLocaleKey, locale);
}

std::string ReminderSound() {
    return Read(kSoundKey);
}

bool SetReminderSound(const std::string& path) {
    return Write(kSoundKey, path);
}

std::string LastFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    for (const QString& folder : {QString::fromStdString(Read(kFolderKey)), documents}) {
        if (!folder.isEmpty() && QFileInfo(folder).isDir()) return folder.toStdString();
    }
    return QDir::homePath().toStdString();
}

bool SetLastFolder(const std::string& folder) {
    return Write(kFolderKey, folder);
}

Colours PreferredColours() {
    const std::string name = Read(kColoursKey);
    for (std::size_t i = 0; i < kColourNames.size(); ++i) {
        if (name == kColourNames.at(i)) return static_cast<Colours>(i);
    }
    return Colours::Desktop;
}

bool SetPreferredColours(Colours colours) {
    return Write(kColoursKey, kColourNames.at(static_cast<std::size_t>(colours)));
}

}  // namespace orvo::desktop
