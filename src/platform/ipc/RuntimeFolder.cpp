// The folder in which processes of one user meet.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include <fmt/format.h>

#include <platform/ipc/RuntimeFolder.h>
#include <platform/text/Hash.h>

namespace orvo {
namespace {

constexpr mode_t kOwnFolder = 0700;
constexpr mode_t kOthers = 0077;

// Each process must come to the same one, so that none depends on anything but the session.
std::vector<std::string> Candidates() {
    std::vector<std::string> folders;
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime != nullptr && *runtime == '/') folders.push_back(fmt::format("{}/orvo", runtime));
    folders.push_back(fmt::format("/run/user/{}/orvo", ::geteuid()));
    folders.push_back(fmt::format("/tmp/orvo-{}", ::geteuid()));
    return folders;
}

bool IsUsersOwn(const std::string& folder, std::string& error) {
    if (::mkdir(folder.c_str(), kOwnFolder) != 0 && errno != EEXIST) {
        error = fmt::format("{}: can't be made: {}", folder, std::strerror(errno));
        return false;
    }
    struct stat status {};
    if (::lstat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) ||
        status.st_uid != ::geteuid() || (status.st_mode & kOthers) != 0) {
        error = fmt::format("{}: is no folder of the user alone", folder);
        return false;
    }
    return true;
}

// So that the endings that are set behind a name fit a file's, too.
constexpr std::size_t kLongestName = 200;
constexpr std::size_t kReadableStart = 180;

constexpr bool IsPlain(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '-';
}

}  // namespace

std::string RuntimeFolder(std::string& error) {
    for (const std::string& folder : Candidates()) {
        if (IsUsersOwn(folder, error)) return folder;
    }
    return {};
}

std::string FileNameOf(std::string_view text) {
    std::string name;
    for (const char character : text) {
        if (IsPlain(character)) {
            name += character;
        } else {
            fmt::format_to(std::back_inserter(name), "%{:02X}",
                           static_cast<unsigned char>(character));
        }
    }
    if (name.size() <= kLongestName) return name;
    // No short text has this character in its name.
    return fmt::format("{}~{:016x}", std::string_view(name).substr(0, kReadableStart),
                       HashOf(text));
}

}  // namespace orvo
