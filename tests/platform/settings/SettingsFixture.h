// A settings file of its own for each test.
// SPDX-License-Identifier: MIT
#pragma once

#include <fstream>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <platform/io/TempFolder.h>
#include <platform/settings/SettingsStore.h>

namespace orvo {

struct SettingsFixture : testing::Test {
    SettingsFixture() { SettingsStore::SetPath(file.string()); }
    ~SettingsFixture() override { SettingsStore::SetPath(""); }

    // Of the section in which all tests are.
    static std::optional<CString> Read(std::string_view key = "k") {
        return SettingsStore::Read("Group", "Section", key);
    }
    static bool Write(std::string_view text, std::string_view key = "k") {
        return SettingsStore::Write("Group", "Section", key, text);
    }

    void Put(const std::string& bytes) const { std::ofstream(file, std::ios::binary) << bytes; }

    std::string Bytes() const { return TempFolder::Content(file); }

    const TempFolder place;
    const std::filesystem::path folder = place.Path();
    const std::filesystem::path file = folder / "settings.ini";
};

}  // namespace orvo
