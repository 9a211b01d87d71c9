// The file that a path of the options names.
// SPDX-License-Identifier: MIT
#include <filesystem>

#include <orvoshare/options/OptionsPath.h>
#include <platform/text/SystemText.h>

namespace orvo {

std::string FilePathOf(const CString& path) {
    CString slashed = path;
    slashed.Replace('\\', '/');
    const std::string utf8 = ToUtf8(slashed);
    // A step up out of a folder that is gone leads where it would lead if it were there.
    const std::filesystem::path file = utf8;
    std::error_code error;
    const bool hasFolder = std::filesystem::exists(file.parent_path(), error);
    return hasFolder ? utf8 : file.lexically_normal().string();
}

}  // namespace orvo
