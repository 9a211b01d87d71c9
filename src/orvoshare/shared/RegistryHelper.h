// CRegistryHelper: single values of a key of the registry.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/registry/Registry.h>
#include <platform/text/CString.h>

namespace orvo {

// The caller opens and closes the key. All return 1 on success, and 0 where it failed for any
// reason.
class ORVO_API CRegistryHelper {
public:
    CRegistryHelper() = default;
    CRegistryHelper(const CRegistryHelper&) = default;
    CRegistryHelper& operator=(const CRegistryHelper&) = default;
    virtual ~CRegistryHelper() = default;

    // Reads a value of the type REG_SZ of at most 1024 bytes, the ending zero counted in.
    // Fails:    with an empty `value`.
    int GetStringValue(HKEY key, const char* name, CString& value);

    // Reads a value of the type REG_DWORD.
    // Fails:    with 0 in `value`.
    int GetDwordValue(HKEY key, const char* name, unsigned long* value);

    int WriteStringValue(HKEY key, const char* name, const char* value);

    // `value` has 32 bits.
    int WriteDwordValue(HKEY key, const char* name, unsigned long value);
};

}  // namespace orvo
