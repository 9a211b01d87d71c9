// A runtime folder of its own for each test and the programs that it starts.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace orvo {

class RuntimeFixture : public testing::Test {
protected:
    RuntimeFixture() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "orvo-runtime-XXXXXX").string();
        folder = ::mkdtemp(pattern.data()) != nullptr ? pattern : std::string();
        EXPECT_FALSE(folder.empty());
        ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    }
    ~RuntimeFixture() override {
        ::unsetenv("XDG_RUNTIME_DIR");
        std::filesystem::remove_all(folder);
    }

    // How many blocks the folder holds.
    long Blocks() const {
        long count = 0;
        for (const auto& file : std::filesystem::directory_iterator(folder / "orvo")) {
            if (file.path().extension() == ".block") ++count;
        }
        return count;
    }

    std::filesystem::path folder;
};

}  // namespace orvo
