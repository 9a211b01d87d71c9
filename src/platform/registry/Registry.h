// The registry: keys with typed values, kept in the user's settings file.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include <platform/Export.h>
#include <platform/io/SystemErrors.h>
#include <platform/registry/RegistryTypes.h>

namespace orvo {

// docs/settings.md says how keys and values lie in the file; both roots are the user's own. Names
// are in the system's code page and compared without regard to case. The parts of a path are
// separated by backslashes; those at its ends don't count. What another process writes is seen by
// the next call. May be used from several threads at once. All functions return ERROR_SUCCESS or
// one of: ERROR_FILE_NOT_FOUND where there is no such key or value, ERROR_ACCESS_DENIED where the
// key was not opened for this or the file can't be written, ERROR_INVALID_DATA where what stands in
// the file is no value of its type, ERROR_INVALID_HANDLE, ERROR_INVALID_PARAMETER, and what is said
// with a function.
struct RegistryKey;
using HKEY = RegistryKey*;

ORVO_API extern const HKEY HKEY_CURRENT_USER;
ORVO_API extern const HKEY HKEY_LOCAL_MACHINE;

// What a key is opened for.
constexpr std::uint32_t KEY_QUERY_VALUE = 0x0001;
constexpr std::uint32_t KEY_SET_VALUE = 0x0002;
constexpr std::uint32_t KEY_READ = 0x20019;
constexpr std::uint32_t KEY_WRITE = 0x20006;
constexpr std::uint32_t KEY_ALL_ACCESS = 0xF003F;

constexpr std::uint32_t REG_OPTION_NON_VOLATILE = 0;

// What RegCreateKeyExA has done.
constexpr std::uint32_t REG_CREATED_NEW_KEY = 1;
constexpr std::uint32_t REG_OPENED_EXISTING_KEY = 2;

// Opens a key below an open one, or makes it together with those above it. `reserved` and `options`
// are 0, and `className` and `security` null; `disposition` may be null.
// Returns:  ERROR_SUCCESS with the key in `result`, which the caller closes with RegCloseKey.
// Fails:    with another code and a null `result`.
ORVO_API long RegCreateKeyExA(HKEY parent, const char* path, std::uint32_t reserved,
                              const char* className, std::uint32_t options, std::uint32_t access,
                              const void* security, HKEY* result, std::uint32_t* disposition);

// The same for a key that is there; a null or empty path is the parent itself. `options` is 0.
ORVO_API long RegOpenKeyExA(HKEY parent, const char* path, std::uint32_t options,
                            std::uint32_t access, HKEY* result);

// A root stays open.
ORVO_API long RegCloseKey(HKEY key);

// Reads a value into `data`, which has room for `size` bytes, and sets `size` to the bytes of the
// value and `type` to its type. A null or empty name is the default value; `reserved` is null.
// `type` may be null; with null `data`, only type and size are set. A text has its ending zero
// counted in, a list of texts both of its ending zeros.
// Fails:    with ERROR_MORE_DATA where there is no room, with the size that it takes.
ORVO_API long RegQueryValueExA(HKEY key, const char* name, std::uint32_t* reserved,
                               std::uint32_t* type, unsigned char* data, std::uint32_t* size);

// Sets a value, which is safe on disk after that. A text or a list of texts that lacks its ending
// zero gets it.
// Fails:    where the type is none of the above, or a REG_DWORD hasn't four bytes.
ORVO_API long RegSetValueExA(HKEY key, const char* name, std::uint32_t reserved, std::uint32_t type,
                             const unsigned char* data, std::uint32_t size);

ORVO_API long RegDeleteValueA(HKEY key, const char* name);

}  // namespace orvo
