// The settings of the application.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <contracts/Settings.h>
#include <platform/settings/SettingsStore.h>
#include <platform/text/CodePage.h>

namespace orvo {

int CmnGetProfileString(const char* section, const char* key, char* buffer, unsigned long& size,
                        const char* defaultText) {
    if (buffer == nullptr || size == 0) {
        size = 0;
        return 0;
    }
    const bool hasName = section != nullptr && key != nullptr;
    const std::optional<CString> stored =
        hasName ? SettingsStore::Read(kApplicationGroup, section, key) : std::nullopt;
    const CString text = stored.value_or(CString(defaultText));
    const std::size_t length = CutLength(CodePage::System(), text.View(), size - 1, false);
    *std::copy_n(text.View().begin(), length, buffer) = '\0';
    size = length + 1;
    return hasName;
}

int CmnGetProfileInt(const char* section, const char* key, int* value, int defaultValue) {
    if (value == nullptr) return 0;
    const bool hasName = section != nullptr && key != nullptr;
    *value = hasName
                 ? SettingsStore::ReadInt(kApplicationGroup, section, key).value_or(defaultValue)
                 : defaultValue;
    return hasName;
}

int CmnWriteProfileString(const char* section, const char* key, const char* text) {
    if (section == nullptr || key == nullptr || text == nullptr) return 0;
    return SettingsStore::Write(kApplicationGroup, section, key, text);
}

int CmnWriteProfileInt(const char* section, const char* key, int value) {
    if (section == nullptr || key == nullptr) return 0;
    return SettingsStore::WriteInt(kApplicationGroup, section, key, value);
}

}  // namespace orvo
