// Copies of files under the names that they bear in a message.
// SPDX-License-Identifier: MIT
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include <platform/desktop/AttachmentCopies.h>
#include <platform/io/FileName.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFolderPrefix = "orvo-mail-";
constexpr auto kLifeOfCopies = std::chrono::hours(24);

// Another user may have made a folder of such a name, or a link that leads elsewhere.
bool IsUsersFolder(const fs::path& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid();
}

bool IsOld(const fs::path& folder) {
    std::error_code error;
    const auto changed = fs::last_write_time(folder, error);
    return !error && fs::file_time_type::clock::now() - changed > kLifeOfCopies;
}

}  // namespace

std::string CopyUnderName(const std::string& path, const std::string& name) {
    std::error_code error;
    const fs::path place = fs::temp_directory_path(error);
    std::string folder = (place / kFolderPrefix).string().append("XXXXXX");
    if (error || ::mkdtemp(folder.data()) == nullptr) return {};
    const fs::path copy = fs::path(folder) / PlainFileName(name);
    if (fs::copy_file(path, copy, error)) return copy.string();
    fs::remove_all(folder, error);
    return {};
}

void RemoveOldCopies() {
    std::error_code error;
    const fs::path place = fs::temp_directory_path(error);
    for (fs::directory_iterator entry(place, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path folder = entry->path();
        const bool isOurs = folder.filename().string().starts_with(kFolderPrefix);
        std::error_code kept;
        if (isOurs && IsUsersFolder(folder) && IsOld(folder)) fs::remove_all(folder, kept);
    }
}

}  // namespace orvo
