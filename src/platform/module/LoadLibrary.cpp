// Libraries that are loaded while the program runs.
// SPDX-License-Identifier: MIT
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <string>

#include <platform/module/InstalledFolder.h>
#include <platform/module/LoadLibrary.h>
#include <platform/text/SystemText.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kBelowPrefix = ORVO_MODULE_FOLDER;

std::string TextOrNothing(const char* text) {
    return text ? ToUtf8(text) : std::string();
}

}  // namespace

HMODULE LoadLibraryA(const char* name) {
    if (!name || *name == '\0') return nullptr;
    const fs::path file = std::strchr(name, '/')
                              ? fs::path(name)
                              : InstalledFolder("ORVO_MODULE_DIR", kBelowPrefix) / name;
    std::error_code nothing;
    const fs::path whole = fs::absolute(file, nothing);
    auto* library = static_cast<HMODULE>(dlopen(whole.c_str(), RTLD_NOW | RTLD_LOCAL));
    if (!library) return nullptr;
    const auto attach = reinterpret_cast<AttachFunction>(GetProcAddress(library, kAttachFunction));
    if (attach) attach(TextOrNothing);
    return library;
}

void* GetProcAddress(HMODULE library, const char* name) {
    return library ? dlsym(library, name) : nullptr;
}

int FreeLibrary(HMODULE library) {
    return library && dlclose(library) == 0 ? 1 : 0;
}

}  // namespace orvo
