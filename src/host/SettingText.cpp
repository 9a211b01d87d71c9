// Texts of the settings file, as programs read and write them.
// SPDX-License-Identifier: MIT
#include <vector>

#include <contracts/Settings.h>
#include <host/SettingText.h>
#include <platform/text/SystemText.h>

namespace orvo {
namespace {

constexpr std::size_t kRoom = 8192;  // bytes, a long path among them

}  // namespace

std::string SettingText(const char* section, const char* key) {
    std::vector<char> buffer(kRoom);
    unsigned long size = buffer.size();
    CmnGetProfileString(section, key, buffer.data(), size, "");
    return ToUtf8(CString(buffer.data()));
}

bool SetSettingText(const char* section, const char* key, std::string_view utf8) {
    return CmnWriteProfileString(section, key, SystemText(utf8)) != 0;
}

}  // namespace orvo
