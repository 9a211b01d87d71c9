// Libraries that are loaded while the program runs.
// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <string>

#include <platform/module/LoadLibrary.h>
#include <platform/text/CodePage.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kBelowPrefix = ORVO_MODULE_FOLDER;
constexpr const char* kUsualPrefix = "/usr";

// The file of the running library, empty where it isn't known by its whole path.
fs::path LibraryFile() {
    static const char placeInLibrary = 0;
    Dl_info info{};
    if (dladdr(&placeInLibrary, &info) == 0 || !info.dli_fname) return {};
    const fs::path file = info.dli_fname;
    return file.is_absolute() ? file : fs::path();
}

fs::path ProgramFile() {
    std::error_code unreadable;
    return fs::read_symlink("/proc/self/exe", unreadable);
}

// The folder of modules below the prefix under which `file` lies: "prefix/bin/file",
// "prefix/lib/file" or, as some systems part their libraries, "prefix/lib/machine/file". Empty
// where there is none.
fs::path ModulesBeside(const fs::path& file) {
    std::error_code nothing;
    fs::path folder = fs::weakly_canonical(file, nothing).parent_path();
    for (int level = 0; level < 2 && folder.has_relative_path(); ++level) {
        folder = folder.parent_path();
        if (fs::is_directory(folder / kBelowPrefix, nothing)) return folder / kBelowPrefix;
    }
    return {};
}

fs::path ModulesFolder() {
    const char* const named = std::getenv("ORVO_MODULE_DIR");
    if (named && *named != '\0') return named;
    for (const fs::path& file : {LibraryFile(), ProgramFile()}) {
        fs::path folder = ModulesBeside(file);
        if (!folder.empty()) return folder;
    }
    return fs::path(kUsualPrefix) / kBelowPrefix;
}

std::string SystemTextToUtf8(const char* text) {
    std::string utf8;
    if (text) CodePage::System().ToUtf8(text, utf8);
    return utf8;
}

}  // namespace

HMODULE LoadLibraryA(const char* name) {
    if (!name || *name == '\0') return nullptr;
    const fs::path file = std::strchr(name, '/') ? fs::path(name) : ModulesFolder() / name;
    std::error_code nothing;
    const fs::path whole = fs::absolute(file, nothing);
    auto* library = static_cast<HMODULE>(dlopen(whole.c_str(), RTLD_NOW | RTLD_LOCAL));
    if (!library) return nullptr;
    const auto attach = reinterpret_cast<AttachFunction>(GetProcAddress(library, kAttachFunction));
    if (attach) attach(SystemTextToUtf8);
    return library;
}

void* GetProcAddress(HMODULE library, const char* name) {
    return library ? dlsym(library, name) : nullptr;
}

int FreeLibrary(HMODULE library) {
    return library && dlclose(library) == 0 ? 1 : 0;
}

}  // namespace orvo
