// One writer of the settings at a time.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <sys/file.h>

#include <fmt/format.h>

#include "SettingsFile.h"
#include "SettingsStore.h"

namespace orvo {

namespace {

struct LockState {
    std::recursive_mutex mutex;
    int depth = 0;
    Descriptor file;
    std::string target;
    std::string error;
};

LockState& State() {
    static LockState state;
    return state;
}

bool LockFile(const std::string& path, Descriptor& file) {
    file.Reset(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    while (file.IsOpen() && ::flock(file.Number(), LOCK_EX) != 0) {
        if (errno == EINTR) continue;
        const int reason = errno;
        file.Reset();
        errno = reason;
    }
    return file.IsOpen();
}

std::string Acquire(const std::string& target, Descriptor& file) {
    if (target.empty()) return "neither XDG_CONFIG_HOME nor HOME tells a folder";
    if (!MakeFolderOf(target)) {
        return fmt::format("its folder can't be made: {}", std::strerror(errno));
    }
    const std::string path = target + ".lock";
    if (!LockFile(path, file)) {
        return fmt::format("{} can't be locked: {}", path, std::strerror(errno));
    }
    return {};
}

}  // namespace

SettingsLock::SettingsLock() {
    LockState& state = State();
    state.mutex.lock();
    if (state.depth++ > 0) return;
    state.target = FollowLinks(SettingsStore::Path());
    state.error = Acquire(state.target, state.file);
}

SettingsLock::~SettingsLock() {
    LockState& state = State();
    if (--state.depth == 0) state.file.Reset();
    state.mutex.unlock();
}

bool SettingsLock::IsHeld() const {
    return State().file.IsOpen();
}

const std::string& SettingsLock::Error() const {
    return State().error;
}

const std::string& SettingsLock::Target() const {
    return State().target;
}

}  // namespace orvo
