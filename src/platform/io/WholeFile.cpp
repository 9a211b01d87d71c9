// Reading a file as a whole.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <platform/io/WholeFile.h>

namespace orvo {
namespace {

constexpr std::size_t kBlock = std::size_t{64} * 1024;

}  // namespace

int ReadWholeFile(const std::string& path, std::string& bytes, std::size_t limit) {
    bytes.clear();
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0) return errno;
    return S_ISREG(status.st_mode) ? ReadToEnd(file, bytes, limit) : EINVAL;
}

int ReadToEnd(const Descriptor& file, std::string& bytes, std::size_t limit) {
    bytes.clear();
    for (;;) {
        const std::size_t size = bytes.size();
        bytes.resize(size + kBlock);
        const ssize_t count = ::read(file.Number(), bytes.data() + size, kBlock);
        bytes.resize(size + static_cast<std::size_t>(count > 0 ? count : 0));
        if (count == 0) return 0;
        if (count < 0 && errno == EINTR) continue;
        if (count > 0 && bytes.size() <= limit) continue;
        bytes.clear();
        return count < 0 ? errno : EFBIG;
    }
}

}  // namespace orvo
