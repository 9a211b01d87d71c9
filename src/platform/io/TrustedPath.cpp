// Whether other users could have put something in the way of a path.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <deque>
#include <filesystem>
#include <functional>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

#include <fmt/format.h>

#include <platform/io/TrustedPath.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // as the system itself follows
constexpr std::size_t kRoomForNames = 1u << 16;

// What there is to say against a step of a way; empty for nothing.
using Look = std::function<std::string(const fs::path& step, const struct stat& status)>;

std::string Because(const fs::path& path, int reason) {
    return fmt::format("{}: {}", path.string(), std::strerror(reason));
}

// Goes along `path` as the system does, with a look at each folder, link and file. At the end
// `path` is free of links.
// Returns:  what was said against the first step that isn't in order. A step that isn't there ends
//           the way; then `missing` is what remains, and `path` what stands before it.
std::string Walk(fs::path& path, fs::path& missing, const Look& look) {
    std::error_code error;
    const fs::path whole = fs::absolute(path, error);
    if (error) return Because(path, error.value());
    std::deque<fs::path> rest(whole.begin(), whole.end());
    int links = 0;
    for (path.clear(); !rest.empty();) {
        const fs::path name = rest.front();
        rest.pop_front();
        if (name.empty() || name == ".") continue;
        if (name == "..") {
            path = path.parent_path();
            continue;
        }
        const fs::path step = path / name;
        struct stat status {};
        if (::lstat(step.c_str(), &status) != 0) {
            if (errno != ENOENT) return Because(step, errno);
            missing = name;
            for (const fs::path& further : rest) missing /= further;
            return {};
        }
        std::string objection = look(step, status);
        if (!objection.empty()) return objection;
        if (!S_ISLNK(status.st_mode)) {
            path = step;
            continue;
        }
        const fs::path next = fs::read_symlink(step, error);
        if (error || ++links > kMostLinks) return Because(step, error ? error.value() : ELOOP);
        rest.insert(rest.begin(), next.begin(), next.end());
    }
    return {};
}

// The systems that give each user a group of the user's own name let that group write, too.
bool IsUsersOwnGroup(gid_t number) {
    std::vector<char> userNames(kRoomForNames);
    std::vector<char> groupNames(kRoomForNames);
    passwd user{};
    group own{};
    passwd* foundUser = nullptr;
    group* foundGroup = nullptr;
    ::getpwuid_r(::geteuid(), &user, userNames.data(), userNames.size(), &foundUser);
    if (!foundUser || user.pw_gid != number) return false;
    ::getgrgid_r(number, &own, groupNames.data(), groupNames.size(), &foundGroup);
    if (!foundGroup || std::strcmp(own.gr_name, user.pw_name) != 0) return false;
    char** member = own.gr_mem;
    while (*member && std::strcmp(*member, user.pw_name) == 0) ++member;
    return !*member;
}

// An access list shows in the permissions as rights of the group, whoever has them.
bool HasAccessList(const fs::path& path) {
    return ::lgetxattr(path.c_str(), "system.posix_acl_access", nullptr, 0) > 0;
}

bool MayOthersWrite(const fs::path& path, const struct stat& status) {
    if (S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX) != 0) return false;
    if ((status.st_mode & S_IWOTH) != 0) return true;
    return (status.st_mode & S_IWGRP) != 0 &&
           (HasAccessList(path) || !IsUsersOwnGroup(status.st_gid));
}

std::string LookForOthers(const fs::path& step, const struct stat& status) {
    if (status.st_uid != 0 && status.st_uid != ::geteuid()) {
        return fmt::format("{} belongs to another user (number {})", step.string(), status.st_uid);
    }
    if (!S_ISLNK(status.st_mode) && MayOthersWrite(step, status)) {
        return fmt::format("{} may be written by other users", step.string());
    }
    return {};
}

// The rule by which systems protect links, where they are set to.
std::string LookForLinksOfOthers(const fs::path& step, const struct stat& status) {
    struct stat folder {};
    if (!S_ISLNK(status.st_mode) || status.st_uid == ::geteuid() ||
        ::lstat(step.parent_path().c_str(), &folder) != 0 || status.st_uid == folder.st_uid) {
        return {};
    }
    if ((folder.st_mode & S_ISVTX) == 0 || (folder.st_mode & (S_IWGRP | S_IWOTH)) == 0) return {};
    return fmt::format("{} is a link of another user (number {}) and isn't followed", step.string(),
                       status.st_uid);
}

}  // namespace

std::string WhyNotTrusted(const std::string& path) {
    fs::path way = path;
    fs::path missing;
    std::string objection = Walk(way, missing, LookForOthers);
    if (!objection.empty() || missing.empty()) return objection;
    return Because(way / missing, ENOENT);
}

std::string FollowTrustedLinks(const std::string& path, std::string& target) {
    fs::path way = path;
    fs::path missing;
    std::string objection = Walk(way, missing, LookForLinksOfOthers);
    if (objection.empty()) target = (missing.empty() ? way : way / missing).string();
    return objection;
}

}  // namespace orvo
