// Which files an import takes where the user names files and folders.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace orvo {

// How the names of card and calendar files end, in any case of letters.
constexpr std::array<std::string_view, 7> kImportedEndings{".vcf",       ".vcard", ".ics", ".ical",
                                                           ".icalendar", ".ifb",   ".vcs"};

struct FilesToImport {
    std::vector<std::string> files;
    // One line each, UTF-8: what was left out, and why.
    std::vector<std::string> unreadable;
};

// Looks at all that the paths name, in their order: a file whatever its name is; of a folder the
// files in it and in the folders below, by name, that are named as cards or calendars. Links in
// folders aren't followed. A pipe, which can be read but once, counts as readable.
FilesToImport FindFilesToImport(const std::vector<std::string>& paths);

}  // namespace orvo
