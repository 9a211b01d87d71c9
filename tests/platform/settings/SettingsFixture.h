// A settings file of its own for each test.
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdlib.h>
#include <string>

#include <gtest/gtest.h>

#include <platform/settings/SettingsStore.h>

namespace orvo {

class SettingsFixture : public testing::Test {
protected:
    SettingsFixture() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "orvo-settings-XXXXXX").string();
        folder = ::mkdtemp(pattern.data()) != nullptr ? pattern : std::string();
        EXPECT_FALSE(folder.empty());
        file = folder / "settings.ini";
        SettingsStore::SetPath(file.string());
    }
    ~SettingsFixture() override {
        SettingsStore::SetPath("");
        std::filesystem::remove_all(folder);
    }

    void Put(const std::string& bytes) const { std::ofstream(file, std::ios::binary) << bytes; }

    std::string Bytes() const {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

    std::filesystem::path folder;
    std::filesystem::path file;
};

}  // namespace orvo
