// The settings file on the disk.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

#include <fmt/format.h>

#include <platform/io/Descriptor.h>
#include <platform/io/FileReplacement.h>
#include <platform/io/WholeFile.h>
#include <platform/settings/SettingsFile.h>

namespace orvo {

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // as the system itself follows
constexpr mode_t kOwnFolder = 0700;
constexpr mode_t kOwnFile = 0600;
constexpr mode_t kPermissions = 07777;
constexpr std::string_view kNoFile = "it is no regular file";

// Longer than the steps in which any usual file system counts the time of a change, but for FAT's.
constexpr std::int64_t kSettlingMilliseconds = 100;

std::string Because(std::string_view what) {
    return fmt::format("{}: {}", what, std::strerror(errno));
}

std::int64_t Milliseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1'000'000;
}

bool MakeFolder(const fs::path& folder) {
    if (folder.empty() || ::mkdir(folder.c_str(), kOwnFolder) == 0 || errno == EEXIST) return true;
    return errno == ENOENT && MakeFolder(folder.parent_path()) &&
           (::mkdir(folder.c_str(), kOwnFolder) == 0 || errno == EEXIST);
}

}  // namespace

FileStamp FileStamp::Of(const struct stat& status) {
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim};
}

bool FileStamp::operator==(const FileStamp& other) const {
    return device == other.device && file == other.file && size == other.size &&
           modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec;
}

bool FileStamp::IsSettled() const {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return Milliseconds(now) - Milliseconds(modified) > kSettlingMilliseconds;
}

std::string FollowLinks(const std::string& path) {
    fs::path target = path;
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(fs::symlink_status(target, error)); ++i) {
        const fs::path next = fs::read_symlink(target, error);
        if (error) break;
        target = target.parent_path() / next;
    }
    return target.string();
}

bool MakeFolderOf(const std::string& path) {
    return MakeFolder(fs::path(path).parent_path());
}

bool ReadFile(const std::string& path, std::string& bytes, FileStamp& stamp, std::string& error) {
    bytes.clear();
    stamp = {};
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.IsOpen()) {
        const int reason = errno;
        error = Because("it can't be read");
        return reason == ENOENT || reason == ENOTDIR;
    }
    struct stat status {};
    if (::fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode)) {
        error = kNoFile;
        return false;
    }
    // Before the bytes, so that a change meanwhile is seen by the next look.
    stamp = FileStamp::Of(status);
    errno = ReadToEnd(file, bytes);
    if (errno != 0) error = Because("it can't be read");
    return errno == 0;
}

bool ReplaceFile(const std::string& path, std::string_view bytes, std::string& error) {
    struct stat old {};
    const bool replaces = ::stat(path.c_str(), &old) == 0;
    if (replaces && !S_ISREG(old.st_mode)) {
        error = kNoFile;
        return false;
    }
    // Always the same name, so that what a killed program leaves behind doesn't pile up.
    const std::string fresh = path + ".new";
    ::unlink(fresh.c_str());
    FileReplacement file;
    if (!file.Open(path, fresh)) {
        error = Because("its folder can't be written");
        return false;
    }
    if (!file.Write(bytes) || !file.Replace(replaces ? old.st_mode & kPermissions : kOwnFile)) {
        error = Because("it can't be written");
        return false;
    }
    return true;
}

}  // namespace orvo
