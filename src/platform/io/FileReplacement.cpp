// A file that is written beside another one and then takes its place as a whole.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include <platform/io/FileReplacement.h>

namespace orvo {
namespace {

constexpr mode_t kOwnFile = 0600;

}  // namespace

FileReplacement::~FileReplacement() {
    if (m_file.IsOpen()) ::unlink(m_temporary.c_str());
}

bool FileReplacement::Open(const std::string& target, const std::string& temporary) {
    m_file.Reset(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOwnFile));
    m_target = target;
    m_temporary = temporary;
    return m_file.IsOpen();
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

bool FileReplacement::Replace(mode_t permissions) {
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

std::string FolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

}  // namespace orvo
