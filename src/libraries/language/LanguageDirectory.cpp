// Where the language modules of the system's language lie.
// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>

#include <contracts/LanguageModule.h>
#include <platform/text/SystemLocale.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kBelowPrefix = "share/orvoshare/lang";
constexpr const char* kUsualPrefix = "/usr";

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

// The folder of all languages below the prefix under which `file` lies: "prefix/bin/file",
// "prefix/lib/file" or, as some systems part their libraries, "prefix/lib/machine/file". Empty
// where there is none.
fs::path LanguagesBeside(const fs::path& file) {
    std::error_code nothing;
    fs::path folder = fs::weakly_canonical(file, nothing).parent_path();
    for (int level = 0; level < 2 && folder.has_relative_path(); ++level) {
        folder = folder.parent_path();
        if (fs::is_directory(folder / kBelowPrefix, nothing)) return folder / kBelowPrefix;
    }
    return {};
}

fs::path LanguagesFolder() {
    const char* const named = std::getenv("ORVO_LANGUAGE_DIR");
    if (named && *named != '\0') return named;
    for (const fs::path& file : {LibraryFile(), ProgramFile()}) {
        fs::path folder = LanguagesBeside(file);
        if (!folder.empty()) return folder;
    }
    return fs::path(kUsualPrefix) / kBelowPrefix;
}

}  // namespace

int GetOrvoLangDllDirectory(CString& directory) {
    const fs::path languages = LanguagesFolder();
    std::error_code nothing;
    std::string name = SystemLocale::Tag();
    while (!fs::is_directory(languages / name, nothing)) {
        const std::size_t lastSubtag = name.rfind('-');
        if (lastSubtag == std::string::npos) {
            name = SystemLocale::Language();
            break;
        }
        name.erase(lastSubtag);
    }
    directory.Bytes() = (languages / name).string();
    return fs::is_directory(languages / name, nothing) ? 1 : 0;
}

}  // namespace orvo
