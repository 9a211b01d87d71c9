// A folder for the files of one test.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace orvo {

namespace fs = std::filesystem;

class TempFolder {
public:
    explicit TempFolder(const char* pattern = "orvo-test-XXXXXX") {
        std::string name = (fs::temp_directory_path() / pattern).string();
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test");
        m_path = name;
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() { fs::remove_all(m_path); }

    const fs::path& Path() const { return m_path; }
    std::string Path(const std::string& name) const { return (m_path / name).string(); }

    std::string File(const std::string& name, const std::string& content) const {
        std::ofstream(Path(name), std::ios::binary) << content;
        return Path(name);
    }

    static std::string Content(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

private:
    fs::path m_path;
};

}  // namespace orvo
