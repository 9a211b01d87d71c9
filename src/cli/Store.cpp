// The store that a command works on.
// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <filesystem>

#include <fmt/format.h>

#include <cli/Store.h>

namespace orvo::cli {
namespace {

namespace fs = std::filesystem;

// The XDG rules: a relative or empty XDG_DATA_HOME doesn't count.
fs::path DefaultPath() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && fs::path(data).is_absolute()) return fs::path(data) / "orvo" / "orvo.db";
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0') {
        throw CommandError(kWrongUse, "HOME is not set: name the store with --store FILE");
    }
    return fs::path(home) / ".local" / "share" / "orvo" / "orvo.db";
}

std::unique_ptr<SqliteEngine> OpenEngine(const std::string& path) {
    std::string file = path;
    if (path.empty()) {
        const fs::path own = DefaultPath();
        std::error_code error;
        fs::create_directories(own.parent_path(), error);
        if (error) {
            throw CommandError(kWrongUse, fmt::format("{}: can't be made: {}",
                                                      own.parent_path().string(), error.message()));
        }
        // People's addresses are nobody else's business.
        fs::permissions(own.parent_path(), fs::perms::owner_all, error);
        file = own.string();
    }
    std::string error;
    auto engine = SqliteEngine::Open(file, error);
    if (engine == nullptr) throw CommandError(kWrongUse, error);
    return engine;
}

}  // namespace

Store::Store(const std::string& path)
    : m_engine(OpenEngine(path)), m_addresses(*m_engine), m_toDos(*m_engine) {}

void Store::Check(long status) {
    if (status == 0) return;
    if (status == static_cast<long>(StoreStatus::Gone)) {
        throw CommandError(kNothingFound, "the store holds no such record");
    }
    throw CommandError(kWrongUse, m_engine->LastError());
}

Transaction::Transaction(Store& store) : m_store(store), m_transaction(store.Engine()) {
    store.Check(static_cast<long>(m_transaction.Status()));
    store.Check(store.Addresses().RefreshTexts());
    store.Check(store.ToDos().RefreshTexts());
}

void Transaction::Commit() {
    m_store.Check(static_cast<long>(m_transaction.Commit()));
}

}  // namespace orvo::cli
