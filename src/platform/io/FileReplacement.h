// A file that is written beside another one and then takes its place as a whole.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>

#include <platform/Export.h>
#include <platform/io/Descriptor.h>

namespace orvo {

// For the user's eyes alone until it is in its place, and gone without a trace unless Replace
// succeeds; at every moment, also of a crash, the old file is whole. Where an operation fails it
// returns false, and `errno` says why.
class ORVO_API FileReplacement {
public:
    FileReplacement() = default;
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();

    // Makes the file `temporary`, which must lie in the folder of `target`. As long as it is being
    // written nobody else can lock it.
    // Fails:    where a file of that name is there already, with EEXIST.
    bool Open(const std::string& target, const std::string& temporary);

    bool Write(std::string_view bytes);

    // Gives the file these permissions and the owner of the one in its place, makes it safe on
    // disk, and puts it in its place. Where the system doesn't let the program set the owner, as it
    // lets nobody but an administrator, the file becomes the writer's own.
    bool Replace(mode_t permissions);

private:
    void TakeOwner();

    std::string m_target;
    std::string m_temporary;
    Descriptor m_file;
};

// Removes a temporary file whose writer is surely gone, killed or not: nobody holds its lock. Where
// that isn't known, or another user made it, it stays.
ORVO_API void RemoveAbandoned(const std::string& temporary);

// The folder in which a file lies; "." for a bare name.
ORVO_API std::string FolderOf(const std::string& path);

}  // namespace orvo
