// CRegistryHelper: single values of a key of the registry.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <string_view>

#include <orvoshare/shared/RegistryHelper.h>

namespace orvo {
namespace {

constexpr std::size_t kLongestString = 1024;

// A number lies in the registry with its least byte first, whatever the machine.
using NumberBytes = std::array<unsigned char, 4>;

}  // namespace

int CRegistryHelper::GetStringValue(HKEY key, const char* name, CString& value) {
    value.Empty();
    std::array<unsigned char, kLongestString> bytes{};
    std::uint32_t type = 0;
    std::uint32_t size = bytes.size();
    const long status = RegQueryValueExA(key, name, nullptr, &type, bytes.data(), &size);
    if (status != ERROR_SUCCESS || type != REG_SZ) return 0;
    value.Bytes().assign(bytes.begin(), std::find(bytes.begin(), bytes.begin() + size, 0));
    return 1;
}

int CRegistryHelper::GetDwordValue(HKEY key, const char* name, unsigned long* value) {
    *value = 0;
    NumberBytes bytes{};
    std::uint32_t type = 0;
    std::uint32_t size = bytes.size();
    const long status = RegQueryValueExA(key, name, nullptr, &type, bytes.data(), &size);
    if (status != ERROR_SUCCESS || type != REG_DWORD) return 0;
    for (std::size_t i = bytes.size(); i-- > 0;) *value = *value << 8U | bytes[i];
    return 1;
}

int CRegistryHelper::WriteStringValue(HKEY key, const char* name, const char* value) {
    if (value == nullptr) return 0;
    const std::string_view text(value, std::strlen(value) + 1);
    const std::basic_string<unsigned char> bytes(text.begin(), text.end());
    return RegSetValueExA(key, name, 0, REG_SZ, bytes.data(),
                          static_cast<std::uint32_t>(bytes.size())) == ERROR_SUCCESS;
}

int CRegistryHelper::WriteDwordValue(HKEY key, const char* name, unsigned long value) {
    NumberBytes bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<unsigned char>(value >> (8 * i));
    }
    return RegSetValueExA(key, name, 0, REG_DWORD, bytes.data(), bytes.size()) == ERROR_SUCCESS;
}

}  // namespace orvo
