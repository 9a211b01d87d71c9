// Where the folders that are installed with the library lie.
// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <dlfcn.h>

#include <platform/module/InstalledFolder.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kUsualPrefix = "/usr";
constexpr const char* kLibraries = "lib";

// The file of the running library, empty where it isn't known by its whole path. In a program that
// holds the library it may be the name by which the program was called, which leads nowhere.
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

// The folder below the prefix under which `file` lies: "prefix/bin/file", "prefix/lib/file" or, as
// some systems divide their libraries, "prefix/lib/machine/file". Empty where there is none. What
// stands beside the prefix is no part of the program: anybody may have put it there.
fs::path FolderBeside(const fs::path& file, const fs::path& belowPrefix) {
    std::error_code nothing;
    fs::path prefix = fs::weakly_canonical(file, nothing).parent_path().parent_path();
    if (prefix.filename() == kLibraries) prefix = prefix.parent_path();
    const fs::path folder = prefix / belowPrefix;
    return prefix.has_relative_path() && fs::is_directory(folder, nothing) ? folder : fs::path();
}

}  // namespace

fs::path InstalledFolder(const char* variable, const fs::path& belowPrefix) {
    const char* const named = std::getenv(variable);
    if (named && *named != '\0') return named;
    for (const fs::path& file : {LibraryFile(), ProgramFile()}) {
        fs::path folder = FolderBeside(file, belowPrefix);
        if (!folder.empty()) return folder;
    }
    return fs::path(kUsualPrefix) / belowPrefix;
}

}  // namespace orvo
