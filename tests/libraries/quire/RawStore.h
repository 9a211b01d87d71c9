// A store file as SQLite alone sees it.
// SPDX-License-Identifier: MIT
#pragma once

#include <sqlite3.h>

#include <contract/StoreFolder.h>

namespace orvo {

class RawStore {
public:
    explicit RawStore(const std::string& path) {
        EXPECT_EQ(sqlite3_open(path.c_str(), &m_database), SQLITE_OK);
    }
    RawStore(const RawStore&) = delete;
    RawStore& operator=(const RawStore&) = delete;
    ~RawStore() { sqlite3_close(m_database); }

    // Runs the statements and gives the last value of their rows.
    std::string Run(const std::string& sql) {
        std::string value;
        const auto take = [](void* target, int count, char** values, char**) {
            *static_cast<std::string*>(target) = count > 0 && values[0] != nullptr ? values[0] : "";
            return 0;
        };
        char* error = nullptr;
        EXPECT_EQ(sqlite3_exec(m_database, sql.c_str(), take, &value, &error), SQLITE_OK)
            << sql << ": " << (error != nullptr ? error : "");
        sqlite3_free(error);
        return value;
    }

private:
    sqlite3* m_database = nullptr;
};

inline void ExpectSound(const StoreFolder& folder) {
    RawStore raw(folder.Path());
    EXPECT_EQ(raw.Run("PRAGMA integrity_check"), "ok");
    EXPECT_EQ(raw.Run("SELECT count(*) FROM pragma_foreign_key_check"), "0");
}

}  // namespace orvo
