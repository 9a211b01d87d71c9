// The store of the user: where it lies, and how a host opens it.
// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <filesystem>

#include <fmt/format.h>

#include <libraries/quire/UserStore.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

}  // namespace

// The XDG rules: a relative or empty XDG_DATA_HOME doesn't count.
std::string UserStorePath() {
    const fs::path file = fs::path("orvo") / "orvo.db";
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && fs::path(data).is_absolute()) return fs::path(data) / file;
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0') return {};
    return fs::path(home) / ".local" / "share" / file;
}

bool MakeUserStoreFolder(std::string& error) {
    const fs::path own = UserStorePath();
    if (own.empty()) {
        error = FaultText(StoreFault::NoHome);
        return false;
    }
    std::error_code failure;
    fs::create_directories(own.parent_path(), failure);
    if (failure) {
        error = fmt::format("{}: can't be made: {}", own.parent_path().string(), failure.message());
        return false;
    }
    // People's addresses are nobody else's business.
    fs::permissions(own.parent_path(), fs::perms::owner_all, failure);
    return true;
}

std::unique_ptr<SqliteEngine> OpenUserStore(const std::string& path, std::string& error,
                                            StoreFault* fault, const StoreProgress& progress) {
    if (!path.empty()) return SqliteEngine::Open(path, error, fault, progress);
    const std::string own = UserStorePath();
    if (MakeUserStoreFolder(error)) return SqliteEngine::Open(own, error, fault, progress);
    if (fault) *fault = own.empty() ? StoreFault::NoHome : StoreFault::NotAllowed;
    return nullptr;
}

}  // namespace orvo
