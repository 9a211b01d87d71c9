// Where the language modules of the system's language lie.
// SPDX-License-Identifier: MIT
#include <filesystem>

#include <contracts/LanguageModule.h>
#include <platform/module/InstalledFolder.h>
#include <platform/text/SystemLocale.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kBelowPrefix = "share/orvoshare/lang";

}  // namespace

int GetOrvoLangDllDirectory(CString& directory) {
    const fs::path languages = InstalledFolder("ORVO_LANGUAGE_DIR", kBelowPrefix);
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
