// A file that takes the place of another one as a whole or not at all.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include <fmt/core.h>

#include <exchange/files/NewFile.h>
#include <exchange/lines/ExchangeError.h>
#include <platform/io/NewFileMode.h>
#include <platform/io/TrustedPath.h>

namespace orvo {
namespace {

constexpr mode_t kPermissions = 07777;
constexpr int kAttempts = 100;

std::string TargetOf(const std::string& path) {
    std::string target;
    const std::string refusal = FollowTrustedLinks(path, target);
    if (!refusal.empty()) throw ExchangeError("can't be written: " + refusal);
    return target;
}

// Removes what exports that were killed have left beside the target: "TARGET.PROCESS-ATTEMPT.tmp".
void RemoveStale(const std::string& target) {
    const std::string start = std::filesystem::path(target).filename().string() + ".";
    constexpr std::string_view kEnd = ".tmp";
    std::error_code error;
    std::vector<std::filesystem::path> stale;
    for (std::filesystem::directory_iterator file(FolderOf(target), error), last;
         !error && file != last; file.increment(error)) {
        const std::string name = file->path().filename().string();
        if (!name.starts_with(start) || !name.ends_with(kEnd)) continue;
        long process = 0;
        const auto [rest, failed] =
            std::from_chars(name.data() + start.size(), name.data() + name.size(), process);
        const bool isOurs = failed == std::errc() && *rest == '-' && process > 0 &&
                            name.find_first_not_of("0123456789", rest - name.data() + 1) ==
                                name.size() - kEnd.size();
        if (isOurs) stale.push_back(file->path());
    }
    for (const auto& path : stale) RemoveAbandoned(path.string());
}

}  // namespace

void NewFile::Fail(std::string_view what) {
    throw ExchangeError(fmt::format("{}: {}", what, std::strerror(errno)));
}

NewFile::NewFile(const std::string& path) : m_target(TargetOf(path)) {
    struct stat old {};
    const bool replaces = ::stat(m_target.c_str(), &old) == 0;
    if (replaces && !S_ISREG(old.st_mode)) throw ExchangeError("is no file that can be replaced");
    RemoveStale(m_target);
    bool isOpen = false;
    for (int attempt = 0; attempt < kAttempts && !isOpen; ++attempt) {
        isOpen = m_file.Open(m_target, fmt::format("{}.{}-{}.tmp", m_target, ::getpid(), attempt));
        if (!isOpen && errno != EEXIST) break;
    }
    if (!isOpen) Fail("can't be written");
    m_mode = replaces ? old.st_mode & kPermissions : NewFileMode(FolderOf(m_target));
}

void NewFile::Write(std::string_view bytes) {
    if (!m_file.Write(bytes)) Fail("can't be written");
}

void NewFile::Replace() {
    if (!m_file.Replace(m_mode)) Fail("can't be replaced");
}

}  // namespace orvo
