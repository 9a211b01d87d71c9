// The registry: keys with typed values, kept in the user's settings file.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <platform/registry/Registry.h>
#include <platform/registry/RegistryValue.h>
#include <platform/settings/SettingsStore.h>
#include <platform/text/CString.h>

namespace orvo {

// An open key, or a root.
struct RegistryKey {
    std::string_view group;  // of the settings
    std::string path;        // in lower case; empty for a root
    std::uint32_t access;
};

namespace {

RegistryKey g_currentUser{"CurrentUser", "", KEY_ALL_ACCESS};
RegistryKey g_localMachine{"LocalMachine", "", KEY_ALL_ACCESS};

struct OpenKeys {
    std::mutex mutex;
    std::vector<std::unique_ptr<RegistryKey>> keys;
};

OpenKeys& Keys() {
    static OpenKeys keys;
    return keys;
}

// A copy of an open key or root, as another thread may close the key meanwhile.
std::optional<RegistryKey> Find(HKEY key) {
    if (key == &g_currentUser || key == &g_localMachine) return *key;
    OpenKeys& open = Keys();
    const std::lock_guard guard(open.mutex);
    const auto found = std::find_if(open.keys.begin(), open.keys.end(),
                                    [&](const auto& one) { return one.get() == key; });
    if (found == open.keys.end()) return std::nullopt;
    return **found;
}

HKEY Open(RegistryKey key) {
    OpenKeys& open = Keys();
    const std::lock_guard guard(open.mutex);
    open.keys.push_back(std::make_unique<RegistryKey>(std::move(key)));
    return open.keys.back().get();
}

std::string Folded(const char* name) {
    CString text(name);
    text.MakeLower();
    return text.Bytes();
}

std::string Below(const std::string& parent, const char* path) {
    // By characters, as a backslash may be the second byte of one.
    CString own(path);
    while (own.Find('\\') == 0) own.Delete(0);
    while (!own.IsEmpty() && own.ReverseFind('\\') == own.GetLength() - 1) {
        own.Delete(own.GetLength() - 1);
    }
    if (own.IsEmpty() || parent.empty()) return parent + Folded(own);
    return parent + '\\' + Folded(own);
}

// A key is there with its section, or with one of a key below it.
bool Exists(const RegistryKey& key) {
    return key.path.empty() || SettingsStore::HasSection(key.group, key.path) ||
           SettingsStore::HasSectionFrom(key.group, key.path + '\\');
}

long FindFor(HKEY handle, std::uint32_t access, std::optional<RegistryKey>& key) {
    key = Find(handle);
    if (!key) return ERROR_INVALID_HANDLE;
    return (key->access & access) == access ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

}  // namespace

const HKEY HKEY_CURRENT_USER = &g_currentUser;
const HKEY HKEY_LOCAL_MACHINE = &g_localMachine;

long RegCreateKeyExA(HKEY parent, const char* path, std::uint32_t reserved, const char* className,
                     std::uint32_t options, std::uint32_t access, const void* security,
                     HKEY* result, std::uint32_t* disposition) {
    if (result == nullptr) return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    if (path == nullptr || reserved != 0 || className != nullptr || options != 0 ||
        security != nullptr) {
        return ERROR_INVALID_PARAMETER;
    }
    const std::optional<RegistryKey> above = Find(parent);
    if (!above) return ERROR_INVALID_HANDLE;
    const RegistryKey key{above->group, Below(above->path, path), access};
    const bool isThere = Exists(key);
    if (!isThere && !SettingsStore::AddSection(key.group, key.path)) return ERROR_ACCESS_DENIED;
    *result = Open(key);
    if (disposition != nullptr) {
        *disposition = isThere ? REG_OPENED_EXISTING_KEY : REG_CREATED_NEW_KEY;
    }
    return ERROR_SUCCESS;
}

long RegOpenKeyExA(HKEY parent, const char* path, std::uint32_t options, std::uint32_t access,
                   HKEY* result) {
    if (result == nullptr) return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    if (options != 0) return ERROR_INVALID_PARAMETER;
    const std::optional<RegistryKey> above = Find(parent);
    if (!above) return ERROR_INVALID_HANDLE;
    const RegistryKey key{above->group, Below(above->path, path), access};
    if (!Exists(key)) return ERROR_FILE_NOT_FOUND;
    *result = Open(key);
    return ERROR_SUCCESS;
}

long RegCloseKey(HKEY key) {
    if (key == &g_currentUser || key == &g_localMachine) return ERROR_SUCCESS;
    OpenKeys& open = Keys();
    const std::lock_guard guard(open.mutex);
    const auto erased = std::erase_if(open.keys, [&](const auto& one) { return one.get() == key; });
    return erased == 1 ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

long RegQueryValueExA(HKEY handle, const char* name, std::uint32_t* reserved, std::uint32_t* type,
                      unsigned char* data, std::uint32_t* size) {
    if (reserved != nullptr || (data != nullptr && size == nullptr)) return ERROR_INVALID_PARAMETER;
    std::optional<RegistryKey> key;
    if (const long status = FindFor(handle, KEY_QUERY_VALUE, key); status != ERROR_SUCCESS) {
        return status;
    }
    const std::optional<CString> text = SettingsStore::Read(key->group, key->path, Folded(name));
    if (!text) return ERROR_FILE_NOT_FOUND;
    const std::optional<RegistryValue> value = ValueOfText(text->View());
    if (!value) return ERROR_INVALID_DATA;
    if (type != nullptr) *type = value->type;
    if (size == nullptr) return ERROR_SUCCESS;
    const std::uint32_t room = std::exchange(*size, static_cast<std::uint32_t>(value->data.size()));
    if (data == nullptr) return ERROR_SUCCESS;
    if (*size > room) return ERROR_MORE_DATA;
    std::copy(value->data.begin(), value->data.end(), data);
    return ERROR_SUCCESS;
}

long RegSetValueExA(HKEY handle, const char* name, std::uint32_t reserved, std::uint32_t type,
                    const unsigned char* data, std::uint32_t size) {
    if (reserved != 0 || (data == nullptr && size != 0)) return ERROR_INVALID_PARAMETER;
    std::optional<RegistryKey> key;
    if (const long status = FindFor(handle, KEY_SET_VALUE, key); status != ERROR_SUCCESS) {
        return status;
    }
    const std::optional<std::string> text = TextOfValue(type, std::string(data, data + size));
    if (!text) return ERROR_INVALID_PARAMETER;
    return SettingsStore::Write(key->group, key->path, Folded(name), *text) ? ERROR_SUCCESS
                                                                            : ERROR_ACCESS_DENIED;
}

long RegDeleteValueA(HKEY handle, const char* name) {
    std::optional<RegistryKey> key;
    if (const long status = FindFor(handle, KEY_SET_VALUE, key); status != ERROR_SUCCESS) {
        return status;
    }
    const std::string value = Folded(name);
    if (!SettingsStore::Read(key->group, key->path, value)) return ERROR_FILE_NOT_FOUND;
    return SettingsStore::Remove(key->group, key->path, value) ? ERROR_SUCCESS
                                                               : ERROR_ACCESS_DENIED;
}

}  // namespace orvo
