// A lock between processes: whoever holds the lock on a file has its turn.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <platform/Export.h>
#include <platform/io/Descriptor.h>

namespace orvo {

// Between threads it holds as between processes. It goes with its holder, also where that is
// killed; the file stays but for Remove. Where an operation fails it returns false, and `errno`
// says why.
class ORVO_API LockFile {
public:
    // Waits for its turn. The file is made where it isn't there; a symbolic link fails.
    bool Lock(const std::string& path);

    // Fails:    with EWOULDBLOCK where somebody else holds the lock.
    bool TryLock(const std::string& path);

    void Release() { m_file.Reset(); }

    // Removes the file at `path`, on which the lock is held, and lets go of it.
    void Remove(const std::string& path);

    bool IsHeld() const { return m_file.IsOpen(); }

    // The number of the open file, for what its holder writes there.
    int Number() const { return m_file.Number(); }

private:
    bool Take(const std::string& path, int operation);

    Descriptor m_file;
};

// Whether the open file still lies at `path`: false where a former holder of its lock has removed
// it between the opening and the lock.
ORVO_API bool IsFileAt(const std::string& path, int file);

}  // namespace orvo
