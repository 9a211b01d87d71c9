// The user's own folders in which others could change what the user keeps there.
// SPDX-License-Identifier: MIT
#include <filesystem>

#include <fmt/format.h>

#include <host/OpenFolders.h>
#include <platform/io/FileReplacement.h>
#include <platform/io/TrustedPath.h>
#include <platform/settings/SettingsStore.h>

namespace orvo {

std::vector<std::string> OpenFolders(const std::string& store) {
    std::vector<std::string> lines;
    std::string told;
    for (const std::string& file : {SettingsStore::Path(), store}) {
        const std::string folder = FolderOf(file);
        std::error_code nothing;
        if (file.empty() || !std::filesystem::exists(folder, nothing)) continue;
        const std::string reason = WhyNotTrusted(folder);
        // Most often both lie below the folder that is at fault.
        if (reason.empty() || reason == told) continue;
        lines.push_back(fmt::format("{}: others could change what lies there: {}", folder, reason));
        told = reason;
    }
    return lines;
}

}  // namespace orvo
