// Libraries that are loaded while the program runs.
// SPDX-License-Identifier: MIT
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <string>

#include <platform/io/TrustedPath.h>
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

// The whole path of the library that is meant.
fs::path FileOf(const char* name) {
    const fs::path file = std::strchr(name, '/')
                              ? fs::path(name)
                              : InstalledFolder("ORVO_MODULE_DIR", kBelowPrefix) / name;
    std::error_code nothing;
    return fs::absolute(file, nothing);
}

}  // namespace

HMODULE LoadLibraryA(const char* name) {
    if (!name || *name == '\0') return nullptr;
    const fs::path whole = FileOf(name);
    // What others could have put there runs with all that the user may do.
    if (!WhyNotTrusted(whole.string()).empty()) return nullptr;
    auto* library = static_cast<HMODULE>(dlopen(whole.c_str(), RTLD_NOW | RTLD_LOCAL));
    if (!library) return nullptr;
    const auto attach = reinterpret_cast<AttachFunction>(GetProcAddress(library, kAttachFunction));
    if (attach) attach(TextOrNothing);
    return library;
}

std::string WhyNotLoaded(const char* name) {
    const fs::path whole = FileOf(name);
    std::error_code nothing;
    return fs::exists(whole, nothing) ? WhyNotTrusted(whole.string()) : std::string();
}

void* GetProcAddress(HMODULE library, const char* name) {
    return library ? dlsym(library, name) : nullptr;
}

int FreeLibrary(HMODULE library) {
    return library && dlclose(library) == 0 ? 1 : 0;
}

}  // namespace orvo
