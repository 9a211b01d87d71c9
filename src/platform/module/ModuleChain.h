// The chain of the modules that the framework searches for resources.
// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <mutex>
#include <string>

#include <platform/module/Module.h>

namespace orvo {

class CDynLinkLibrary;
struct AFX_EXTENSION_MODULE;

// One chain for the process. May be used from several threads at once.
class ModuleChain {
public:
    static ModuleChain& Instance();

    void Add(CDynLinkLibrary* library, bool last);
    void RemoveAllOf(const AFX_EXTENSION_MODULE& record);

    // Sets `utf8` to the string of the first module that holds one of that number; false where none
    // does.
    bool FindString(unsigned number, std::string& utf8);

    // The first module that holds the resource; null where none does.
    HINSTANCE FindResourceModule(ResourceKind kind, unsigned number);

private:
    ModuleChain() = default;
    ~ModuleChain();

    std::mutex m_mutex;
    std::deque<CDynLinkLibrary*> m_libraries;
};

}  // namespace orvo
