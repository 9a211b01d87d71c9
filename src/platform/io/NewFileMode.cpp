// What permissions a new file with people's records gets.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

#include <platform/io/Descriptor.h>
#include <platform/io/FileReplacement.h>
#include <platform/io/NewFileMode.h>

namespace orvo {
namespace {

constexpr mode_t kOfUser = 0600;
constexpr mode_t kOfUserAndGroup = 0640;

}  // namespace

mode_t NewFileMode(const std::string& folder) {
    struct stat status {};
    const bool hasGroup = ::stat(folder.c_str(), &status) == 0 && (status.st_mode & S_ISGID) != 0;
    return hasGroup ? kOfUserAndGroup : kOfUser;
}

void MakePrivateFile(const std::string& path) {
    struct stat status {};
    // A file that is there isn't opened: to close it would end the locks of this process on it.
    if (::stat(path.c_str(), &status) == 0 || errno != ENOENT) return;
    const Descriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kOfUser));
    if (file.IsOpen()) ::fchmod(file.Number(), NewFileMode(FolderOf(path)));
}

}  // namespace orvo
