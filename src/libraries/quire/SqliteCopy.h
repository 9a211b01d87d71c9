// Whole copies of a store file.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <sys/types.h>

#include <platform/io/FileReplacement.h>

namespace orvo {

// A copy in the making: the file "TARGET.part", for the user alone, which nobody else can make
// meanwhile. It is gone without a trace unless Place succeeds, and what a process that was killed
// has left the next one for the same target removes.
class SqliteCopy {
public:
    SqliteCopy() = default;
    SqliteCopy(const SqliteCopy&) = delete;
    SqliteCopy& operator=(const SqliteCopy&) = delete;
    ~SqliteCopy();

    // Fails:    false, with one line in `reason`; so do the others.
    bool Begin(const std::string& target, std::string& reason);

    // Copies the store page by page, as it is at one moment, so that what is damaged is copied,
    // too. Others may read and write it meanwhile.
    bool Take(const std::string& store, std::string& reason);

    // Puts the copy in its place, where it takes that of the file that is there.
    // Requires: nobody has it open.
    bool Place(std::string& reason, mode_t permissions = kOwnerOnly);

    const std::string& Path() const { return m_path; }

private:
    static constexpr mode_t kOwnerOnly = 0600;

    void RemoveLogs() const;

    std::string m_target;
    std::string m_path;
    FileReplacement m_file;
};

}  // namespace orvo
