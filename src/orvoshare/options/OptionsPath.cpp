// The file that a path of the options names.
// SPDX-License-Identifier: MIT
#include <orvoshare/options/OptionsPath.h>
#include <platform/text/CodePage.h>

namespace orvo {

std::string FilePathOf(const CString& path) {
    CString slashed = path;
    slashed.Replace('\\', '/');
    std::string utf8;
    CodePage::System().ToUtf8(slashed.View(), utf8);
    return utf8;
}

}  // namespace orvo
