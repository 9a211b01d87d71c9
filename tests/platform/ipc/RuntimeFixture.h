// A runtime folder of its own for each test and the programs that it starts.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>

#include <gtest/gtest.h>

#include <platform/io/TempFolder.h>

namespace orvo {

struct RuntimeFixture : testing::Test {
    RuntimeFixture() { ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1); }
    ~RuntimeFixture() override { ::unsetenv("XDG_RUNTIME_DIR"); }

    // How many blocks the folder holds.
    long Blocks() const {
        long count = 0;
        for (const auto& file : std::filesystem::directory_iterator(folder / "orvo")) {
            if (file.path().extension() == ".block") ++count;
        }
        return count;
    }

    const TempFolder place;
    const std::filesystem::path folder = place.Path();
};

}  // namespace orvo
