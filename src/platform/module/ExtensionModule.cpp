// Extension modules: libraries whose classes and resources the framework searches.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <platform/module/ExtensionModule.h>
#include <platform/module/ModuleChain.h>

namespace orvo {

int AfxInitExtensionModule(AFX_EXTENSION_MODULE& record, HINSTANCE module) {
    if (!module) return 0;
    ++record.initialized;
    record.module = module;
    record.resource = module;
    return 1;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& record, int all) {
    if (record.initialized == 0) return;
    record.initialized = all != 0 ? 0 : record.initialized - 1;
    if (record.initialized != 0) return;
    ModuleChain::Instance().RemoveAllOf(record);
    record = {};
}

CDynLinkLibrary::CDynLinkLibrary(const AFX_EXTENSION_MODULE& record, int system)
    : m_record(&record), m_resource(record.resource) {
    ModuleChain::Instance().Add(this, system != 0);
}

ModuleChain& ModuleChain::Instance() {
    static ModuleChain chain;
    return chain;
}

ModuleChain::~ModuleChain() {
    for (const CDynLinkLibrary* library : m_libraries) delete library;
}

void ModuleChain::Add(CDynLinkLibrary* library, bool last) {
    const std::lock_guard lock(m_mutex);
    m_libraries.insert(last ? m_libraries.end() : m_libraries.begin(), library);
}

void ModuleChain::RemoveAllOf(const AFX_EXTENSION_MODULE& record) {
    const std::lock_guard lock(m_mutex);
    const auto isOther = [&](const CDynLinkLibrary* library) {
        return library->m_record != &record;
    };
    const auto removed = std::stable_partition(m_libraries.begin(), m_libraries.end(), isOther);
    std::for_each(removed, m_libraries.end(),
                  [](const CDynLinkLibrary* library) { delete library; });
    m_libraries.erase(removed, m_libraries.end());
}

bool ModuleChain::FindString(unsigned number, std::string& utf8) {
    const std::lock_guard lock(m_mutex);
    return std::any_of(m_libraries.begin(), m_libraries.end(), [&](const CDynLinkLibrary* library) {
        return library->m_resource && library->m_resource->FindString(number, utf8);
    });
}

HINSTANCE ModuleChain::FindResourceModule(ResourceKind kind, unsigned number) {
    const std::lock_guard lock(m_mutex);
    const auto found =
        std::find_if(m_libraries.begin(), m_libraries.end(), [&](const CDynLinkLibrary* library) {
            return library->m_resource && !library->m_resource->FindResource(kind, number).empty();
        });
    return found == m_libraries.end() ? nullptr : (*found)->m_resource;
}

}  // namespace orvo
