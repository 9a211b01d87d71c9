// Files of the published shell link format: where the shortcut says its target lies.
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace orvo {

// In UTF-8, with the separators of the file; each empty where the file doesn't say.
struct ShellLinkFile {
    std::string relativePath;  // from the folder of the shortcut
    std::string basePath;      // whole, on the machine where the shortcut was made
};

// Says in one line what is wrong with the bytes.
class ShellLinkError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Fails:    with a ShellLinkError where the bytes aren't a sound shell link.
ShellLinkFile ReadShellLink(std::string_view bytes);

}  // namespace orvo
