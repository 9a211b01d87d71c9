// One writer of the settings at a time.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <cstring>
#include <mutex>

#include <fmt/format.h>

#include <platform/io/LockFile.h>
#include <platform/settings/SettingsFile.h>
#include <platform/settings/SettingsStore.h>

namespace orvo {

namespace {

struct LockState {
    std::recursive_mutex mutex;
    int depth = 0;
    LockFile file;
    std::string target;
    std::string error;
};

LockState& State() {
    static LockState state;
    return state;
}

std::string Acquire(const std::string& target, LockFile& file) {
    if (target.empty()) return "neither XDG_CONFIG_HOME nor HOME tells a folder";
    if (!MakeFolderOf(target)) {
        return fmt::format("its folder can't be made: {}", std::strerror(errno));
    }
    const std::string path = target + ".lock";
    if (!file.Lock(path)) {
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
    if (--state.depth == 0) state.file.Release();
    state.mutex.unlock();
}

bool SettingsLock::IsHeld() const {
    return State().file.IsHeld();
}

const std::string& SettingsLock::Error() const {
    return State().error;
}

const std::string& SettingsLock::Target() const {
    return State().target;
}

}  // namespace orvo
