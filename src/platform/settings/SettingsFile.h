// The settings file on the disk: read as a whole, replaced as a whole.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace orvo {

// Tells one state of a file from the next.
struct FileStamp {
    dev_t device = 0;
    ino_t file = 0;
    off_t size = 0;
    timespec modified{};

    static FileStamp Of(const struct stat& status);
    bool operator==(const FileStamp& other) const;

    // False where the file changed just now, so that another change might leave the same stamp.
    bool IsSettled() const;
};

// The path with the symbolic links of its last part followed, also to a file that isn't there yet.
std::string FollowLinks(const std::string& path);

// Makes the folder of a file, and those above it, for the user alone.
// Fails:    with false; `errno` says why.
bool MakeFolderOf(const std::string& path);

// A file that isn't there has no bytes and an empty stamp.
// Fails:    with false, with the reason in `error`.
bool ReadFile(const std::string& path, std::string& bytes, FileStamp& stamp, std::string& error);

// Puts a new file with these bytes in the place of the old one and keeps its permissions; a first
// one is for the user alone. On a failure, or a crash at any moment, the old file is whole.
// Requires: nobody else replaces the file meanwhile.
// Fails:    with false, with the reason in `error`.
bool ReplaceFile(const std::string& path, std::string_view bytes, std::string& error);

}  // namespace orvo
