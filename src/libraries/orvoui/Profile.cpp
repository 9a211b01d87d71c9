// The user's preferences of the interface.
// SPDX-License-Identifier: MIT
#include <contracts/Profile.h>
#include <platform/settings/SettingsStore.h>

namespace orvo {

CString OUIGetProfileString(const char* section, const char* key, const char* defaultText) {
    if (section == nullptr || key == nullptr) return defaultText;
    return SettingsStore::Read(kProfileGroup, section, key).value_or(CString(defaultText));
}

unsigned OUIGetProfileInt(const char* section, const char* key, int defaultValue) {
    const bool hasName = section != nullptr && key != nullptr;
    return static_cast<unsigned>(
        hasName ? SettingsStore::ReadInt(kProfileGroup, section, key).value_or(defaultValue)
                : defaultValue);
}

int OUIWriteProfileString(const char* section, const char* key, const char* value) {
    if (section == nullptr || key == nullptr || value == nullptr) return 0;
    return SettingsStore::Write(kProfileGroup, section, key, value);
}

int OUIWriteProfileInt(const char* section, const char* key, int value) {
    if (section == nullptr || key == nullptr) return 0;
    return SettingsStore::WriteInt(kProfileGroup, section, key, value);
}

}  // namespace orvo
