// CFile: an open file.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include <platform/io/CFile.h>

namespace orvo {
namespace {

std::string Reason(int error) {
    return std::generic_category().message(error);
}

[[noreturn]] void Throw(const std::string& path, const char* what, int error) {
    throw CFileException(path + ": can't be " + what + ": " + Reason(error));
}

int AccessOf(unsigned flags) {
    switch (flags & (CFile::modeWrite | CFile::modeReadWrite)) {
        case CFile::modeRead:
            // Emptying a file needs the right to write.
            return (flags & CFile::modeCreate) != 0 ? O_RDWR : O_RDONLY;
        case CFile::modeWrite:
            return O_WRONLY;
        default:
            return O_RDWR;
    }
}

// Every open file holds a lock, shared or exclusive, until its descriptor is closed. A file system
// without locks can't give the exclusive one; the shared one would only keep others out, so that
// the file is usable without it.
int Lock(int descriptor, unsigned flags) {
    const bool exclusive = (flags & CFile::shareExclusive) != 0;
    if (::flock(descriptor, (exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0) return 0;
    if (errno == EWOULDBLOCK) return ETXTBSY;
    return exclusive ? errno : 0;
}

// Readies a file that was just opened. The file is emptied only once the lock is held, so that a
// refused open leaves its content alone.
int Prepare(int descriptor, unsigned flags) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) return errno;
    if (S_ISDIR(status.st_mode)) return EISDIR;
    if (const int error = Lock(descriptor, flags); error != 0) return error;

    const bool empties = (flags & CFile::modeCreate) != 0 && S_ISREG(status.st_mode);
    if (empties && ::ftruncate(descriptor, 0) != 0) return errno;
    return 0;
}

}  // namespace

CFile::~CFile() {
    CFile::Abort();
}

int CFile::Open(const char* path, unsigned flags, std::string* error) {
    const auto fail = [&](const std::string& reason) {
        if (error != nullptr) *error = std::string(path) + ": can't be opened: " + reason;
        return 0;
    };
    if (m_descriptor >= 0) return fail(m_path + " is still open in its place");

    const int create = (flags & modeCreate) != 0 ? O_CREAT : 0;
    int descriptor = -1;
    do {
        descriptor = ::open(path, AccessOf(flags) | create | O_CLOEXEC, 0666);
    } while (descriptor < 0 && errno == EINTR);
    if (descriptor < 0) return fail(Reason(errno));

    if (const int cause = Prepare(descriptor, flags); cause != 0) {
        ::close(descriptor);
        return fail(cause == ETXTBSY ? "it is in use" : Reason(cause));
    }
    m_descriptor = descriptor;
    m_path = path;
    return 1;
}

std::size_t CFile::Read(void* buffer, std::size_t count) {
    char* target = static_cast<char*>(buffer);
    std::size_t done = 0;
    while (done < count) {
        const ssize_t part = ::read(m_descriptor, target + done, count - done);
        if (part == 0) break;
        if (part > 0) {
            done += static_cast<std::size_t>(part);
        } else if (errno != EINTR) {
            Throw(m_path, "read", errno);
        }
    }
    return done;
}

void CFile::Write(const void* buffer, std::size_t count) {
    const char* source = static_cast<const char*>(buffer);
    std::size_t done = 0;
    while (done < count) {
        const ssize_t part = ::write(m_descriptor, source + done, count - done);
        if (part >= 0) {
            done += static_cast<std::size_t>(part);
        } else if (errno != EINTR) {
            Throw(m_path, "written", errno);
        }
    }
}

long CFile::Seek(long offset, SeekPosition from) {
    const int whence = from == begin ? SEEK_SET : from == current ? SEEK_CUR : SEEK_END;
    const off_t position = ::lseek(m_descriptor, offset, whence);
    if (position < 0) Throw(m_path, "positioned", errno);
    return position;
}

std::size_t CFile::GetLength() {
    struct stat status {};
    if (::fstat(m_descriptor, &status) != 0) Throw(m_path, "measured", errno);
    return static_cast<std::size_t>(status.st_size);
}

void CFile::Flush() {
    // A pipe or a terminal has nothing to bring to a disk.
    if (::fsync(m_descriptor) != 0 && errno != EINVAL && errno != EROFS) {
        Throw(m_path, "written", errno);
    }
}

void CFile::Close() {
    if (m_descriptor < 0) return;
    const int descriptor = std::exchange(m_descriptor, -1);
    // After EINTR the descriptor is closed all the same.
    if (::close(descriptor) != 0 && errno != EINTR) Throw(m_path, "closed", errno);
}

void CFile::Abort() noexcept {
    if (m_descriptor >= 0) ::close(std::exchange(m_descriptor, -1));
}

}  // namespace orvo
