// A file that takes the place of another one as a whole or not at all.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>

#include <platform/io/FileReplacement.h>

namespace orvo {

// Written beside the file that it is to replace, for the user's eyes alone; gone without a trace
// unless Replace succeeds. What a process that was killed has left, the next one for the same file
// removes. All operations fail with ExchangeError.
class NewFile {
public:
    explicit NewFile(const std::string& path);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    void Write(std::string_view bytes);

    // Makes the bytes safe on disk and puts them in the place of the file, with the permissions
    // that it had or that a new file gets. Through a symbolic link, what it points to is replaced.
    void Replace();

private:
    [[noreturn]] static void Fail(std::string_view what);

    std::string m_target;
    FileReplacement m_file;
    mode_t m_mode = 0;  // that the file is to have
};

}  // namespace orvo
