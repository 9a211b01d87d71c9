// A file that is written beside another one and then takes its place as a whole.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <platform/io/FileReplacement.h>
#include <platform/io/LockFile.h>

namespace orvo {
namespace {

constexpr mode_t kOwnFile = 0600;

bool IsRemoved(int file) {
    struct stat status {};
    return ::fstat(file, &status) == 0 && status.st_nlink == 0;
}

}  // namespace

FileReplacement::~FileReplacement() {
    if (m_file.IsOpen()) ::unlink(m_temporary.c_str());
}

bool FileReplacement::Open(const std::string& target, const std::string& temporary) {
    m_target = target;
    m_temporary = temporary;
    do {
        m_file.Reset(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOwnFile));
        if (!m_file.IsOpen()) return false;
        // On a file system without locks this fails, and others leave the file alone for that.
        while (::flock(m_file.Number(), LOCK_EX) != 0 && errno == EINTR) {
        }
        // Until the lock was held, somebody may have taken the file for an abandoned one.
    } while (IsRemoved(m_file.Number()));
    return true;
}

bool FileReplacement::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(m_file.Number(), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

void FileReplacement::TakeOwner() {
    struct stat old {};
    if (::stat(m_target.c_str(), &old) != 0) return;
    if (old.st_uid == ::geteuid() && old.st_gid == ::getegid()) return;
    static_cast<void>(::fchown(m_file.Number(), old.st_uid, old.st_gid) == 0);
}

bool FileReplacement::Replace(mode_t permissions) {
    TakeOwner();
    if (::fchmod(m_file.Number(), permissions) != 0 || ::fsync(m_file.Number()) != 0 ||
        ::rename(m_temporary.c_str(), m_target.c_str()) != 0) {
        return false;
    }
    m_file.Reset();
    // So that the new name, too, is safe; the file is in its place even where this fails.
    const Descriptor folder(::open(FolderOf(m_target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.IsOpen()) ::fsync(folder.Number());
    return true;
}

void RemoveAbandoned(const std::string& temporary) {
    const Descriptor file(
        ::open(temporary.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct stat status {};
    const bool isUsers = file.IsOpen() && ::fstat(file.Number(), &status) == 0 &&
                         S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
    if (isUsers && ::flock(file.Number(), LOCK_EX | LOCK_NB) == 0 &&
        IsFileAt(temporary, file.Number())) {
        ::unlink(temporary.c_str());
    }
}

std::string FolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

}  // namespace orvo
