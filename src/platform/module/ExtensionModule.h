// Extension modules: libraries whose classes and resources the framework searches.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/module/Module.h>

namespace orvo {

// The reasons for which a module's entry is called.
constexpr unsigned DLL_PROCESS_DETACH = 0;
constexpr unsigned DLL_PROCESS_ATTACH = 1;

// What the framework knows of an extension module. The first record is the module's own and lives
// as long as the module is in use; copies of it are for resource scopes.
struct AFX_EXTENSION_MODULE {
    int initialized = 0;  // how many AfxInitExtensionModule are in force
    HINSTANCE module = nullptr;
    HINSTANCE resource = nullptr;
};

// Puts the record into use; both its handles become `module`.
// Returns:  non-zero on success.
// Fails:    with 0, and the record untouched, where `module` is null.
ORVO_API int AfxInitExtensionModule(AFX_EXTENSION_MODULE& record, HINSTANCE module);

// Undoes one AfxInitExtensionModule, or all where `all` isn't 0. After the last one the framework
// no longer searches the module: every CDynLinkLibrary of the record is gone and both handles are
// null. A record that isn't in use is left alone.
ORVO_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& record, int all);

// A place in the chain of the modules that the framework searches, latest first; one with `system`
// not 0 comes after all others.
// Owner:    the framework, from the constructor on until AfxTermExtensionModule of the record.
class ORVO_API CDynLinkLibrary {
public:
    explicit CDynLinkLibrary(const AFX_EXTENSION_MODULE& record, int system = 0);
    CDynLinkLibrary(const CDynLinkLibrary&) = delete;
    CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;

private:
    friend class ModuleChain;
    ~CDynLinkLibrary() = default;

    const AFX_EXTENSION_MODULE* m_record;
    HINSTANCE m_resource;
};

}  // namespace orvo
