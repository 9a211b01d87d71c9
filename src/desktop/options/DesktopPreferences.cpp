// What the user prefers in this program alone: its language, and the sound of reminders.
// SPDX-License-Identifier: MIT
#include <vector>

#include <contracts/Settings.h>
#include <desktop/options/DesktopPreferences.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {
namespace {

constexpr const char* kSection = "Desktop";
constexpr const char* kLocaleKey = "Locale";
constexpr const char* kSoundKey = "ReminderSound";
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

}  // namespace orvo::desktop
