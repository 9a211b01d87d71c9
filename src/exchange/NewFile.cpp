// A file that takes the place of another one as a whole or not at all.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/core.h>

#include <exchange/ImportFile.h>
#include <exchange/NewFile.h>

namespace orvo {
namespace {

constexpr mode_t kNewFileMode = 0666;  // less what the process masks
constexpr mode_t kPermissions = 07777;
constexpr int kAttempts = 100;

std::string TargetOf(const std::string& path) {
    std::error_code error;
    const auto target = std::filesystem::canonical(path, error);
    return error ? path : target.string();
}

std::string FolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

}  // namespace

void NewFile::Fail(std::string_view what) {
    throw ExchangeError(fmt::format("{}: {}", what, std::strerror(errno)));
}

NewFile::NewFile(const std::string& path) : m_target(TargetOf(path)) {
    struct stat old {};
    const bool replaces = ::stat(m_target.c_str(), &old) == 0;
    if (replaces && !S_ISREG(old.st_mode)) throw ExchangeError("is no file that can be replaced");
    for (int attempt = 0; attempt < kAttempts && m_descriptor < 0; ++attempt) {
        m_temporary = fmt::format("{}.{}-{}.tmp", m_target, ::getpid(), attempt);
        m_descriptor =
            ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
        if (m_descriptor < 0 && errno != EEXIST) break;
    }
    if (m_descriptor < 0) Fail("can't be written");
    if (replaces && ::fchmod(m_descriptor, old.st_mode & kPermissions) != 0) {
        const int reason = errno;
        ::close(m_descriptor);
        ::unlink(m_temporary.c_str());
        errno = reason;
        Fail("its permissions can't be kept");
    }
}

NewFile::~NewFile() {
    if (m_descriptor < 0) return;
    ::close(m_descriptor);
    ::unlink(m_temporary.c_str());
}

void NewFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(m_descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) Fail("can't be written");
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void NewFile::Replace() {
    if (::fsync(m_descriptor) != 0) Fail("can't be written");
    if (::rename(m_temporary.c_str(), m_target.c_str()) != 0) Fail("can't be replaced");
    ::close(m_descriptor);
    m_descriptor = -1;
    const int folder = ::open(FolderOf(m_target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) return;
    ::fsync(folder);
    ::close(folder);
}

}  // namespace orvo
