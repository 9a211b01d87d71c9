// A lock between processes.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <platform/io/LockFile.h>

namespace orvo {

bool IsFileAt(const std::string& path, int file) {
    struct stat own {};
    struct stat there {};
    return ::fstat(file, &own) == 0 && ::lstat(path.c_str(), &there) == 0 &&
           own.st_dev == there.st_dev && own.st_ino == there.st_ino;
}

bool LockFile::Lock(const std::string& path) {
    return Take(path, LOCK_EX);
}

bool LockFile::TryLock(const std::string& path) {
    return Take(path, LOCK_EX | LOCK_NB);
}

void LockFile::Remove(const std::string& path) {
    ::unlink(path.c_str());
    Release();
}

bool LockFile::Take(const std::string& path, int operation) {
    do {
        m_file.Reset(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
        while (m_file.IsOpen() && ::flock(m_file.Number(), operation) != 0) {
            if (errno == EINTR) continue;
            const int reason = errno;
            m_file.Reset();
            errno = reason;
        }
    } while (m_file.IsOpen() && !IsFileAt(path, m_file.Number()));
    return m_file.IsOpen();
}

}  // namespace orvo
