// A folder for the store files of one test.
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <stdlib.h>
#include <string>

#include <gtest/gtest.h>

#include <libraries/quire/SqliteEngine.h>

namespace orvo {

class StoreFolder {
public:
    StoreFolder() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "orvo-store-XXXXXX").string();
        m_path = ::mkdtemp(pattern.data()) != nullptr ? pattern : std::string();
        EXPECT_FALSE(m_path.empty());
    }
    StoreFolder(const StoreFolder&) = delete;
    StoreFolder& operator=(const StoreFolder&) = delete;
    ~StoreFolder() { std::filesystem::remove_all(m_path); }

    std::string Path(const std::string& name = "test.orvo") const {
        return (m_path / name).string();
    }

    std::unique_ptr<SqliteEngine> Open(const std::string& name = "test.orvo") const {
        std::string error;
        auto engine = SqliteEngine::Open(Path(name), error);
        EXPECT_NE(engine, nullptr) << error;
        return engine;
    }

    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
    }

    std::string Read(const std::string& name = "test.orvo") const {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }

private:
    std::filesystem::path m_path;
};

}  // namespace orvo
