// Tests of single values of a key.
// SPDX-License-Identifier: MIT
#include <tuple>
#include <vector>

#include <orvoshare/shared/RegistryHelper.h>
#include <platform/settings/SettingsFixture.h>

namespace orvo {
namespace {

using namespace std::string_literals;

class RegistryHelper : public SettingsFixture {
protected:
    RegistryHelper() {
        RegCreateKeyExA(HKEY_CURRENT_USER, "k", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                        nullptr);
    }
    ~RegistryHelper() override { RegCloseKey(key); }

    HKEY key = nullptr;
    CRegistryHelper helper;
};

TEST_F(RegistryHelper, OnlyAValueOfItsTypeAndSizeIsRead) {
    const std::tuple<const char*, std::uint32_t, std::string, int, std::string, int, unsigned long>
        rows[] = {
            {"a text", REG_SZ, "abc\0"s, 1, "abc", 0, 0},
            {"an empty text", REG_SZ, "\0"s, 1, "", 0, 0},
            {"a text ends at its first zero", REG_SZ, "a\0b\0"s, 1, "a", 0, 0},
            {"a text that just fits", REG_SZ, std::string(1023, 'x'), 1, std::string(1023, 'x'), 0,
             0},
            {"a text that doesn't", REG_SZ, std::string(1024, 'x'), 0, "", 0, 0},
            {"a text to expand", REG_EXPAND_SZ, "abc\0"s, 0, "", 0, 0},
            {"several texts", REG_MULTI_SZ, "abc\0\0"s, 0, "", 0, 0},
            {"four bytes", REG_BINARY, "\x01\0\0\0"s, 0, "", 0, 0},
            {"a number", REG_DWORD, "\xFF\xFE\xFD\xFC"s, 0, "", 1, 0xFCFDFEFF},
        };
    for (const auto& [why, type, data, isText, wantText, isNumber, wantNumber] : rows) {
        const std::vector<unsigned char> bytes(data.begin(), data.end());
        RegSetValueExA(key, "v", 0, type, bytes.data(), static_cast<std::uint32_t>(bytes.size()));
        CString text("before");
        unsigned long number = 7;

        EXPECT_EQ(helper.GetStringValue(key, "v", text), isText) << why;
        EXPECT_EQ(text.Bytes(), wantText) << why;
        EXPECT_EQ(helper.GetDwordValue(key, "v", &number), isNumber) << why;
        EXPECT_EQ(number, wantNumber) << why;
    }
}

TEST_F(RegistryHelper, WhatIsWrittenIsReadAndAFailureEmptiesTheResult) {
    CString text("before");
    unsigned long number = 7;
    EXPECT_EQ(helper.GetStringValue(key, "text", text), 0);
    EXPECT_EQ(helper.GetDwordValue(key, "number", &number), 0);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(number, 0U);
    EXPECT_EQ(helper.WriteStringValue(key, "text", nullptr), 0);
    EXPECT_EQ(helper.WriteDwordValue(nullptr, "number", 1), 0);

    EXPECT_EQ(helper.WriteStringValue(key, "text", "a\\b\n"), 1);
    EXPECT_EQ(helper.GetStringValue(key, "text", text), 1);
    EXPECT_EQ(text, "a\\b\n");
    EXPECT_EQ(helper.WriteDwordValue(key, "number", 0xFFFFFFFF), 1);
    EXPECT_EQ(helper.GetDwordValue(key, "number", &number), 1);
    EXPECT_EQ(number, 0xFFFFFFFF);
    std::uint32_t size = 0;
    EXPECT_EQ(RegQueryValueExA(key, "text", nullptr, nullptr, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, 5U) << "with its ending zero";
}

}  // namespace
}  // namespace orvo
