// Tests of the application's settings and of the interface preferences, as programs call them.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <climits>

#include <contracts/Profile.h>
#include <contracts/Settings.h>
#include <platform/settings/SettingsFixture.h>
#include <support/LocaleInForce.h>

namespace orvo {

namespace {

using Profile = SettingsFixture;

struct Copied {
    int result;
    unsigned long size;
    std::string text;  // all that the buffer got
};

Copied Get(const char* key, std::size_t bufferSize, const char* defaultText = nullptr) {
    std::vector<char> buffer(bufferSize);
    unsigned long size = bufferSize;
    const int result = CmnGetProfileString("s", key, buffer.data(), size, defaultText);
    return {result, size, std::string(buffer.data(), size)};
}

}  // namespace

TEST_F(Profile, EqualNamesOfBothKindsAreTwoValues) {
    EXPECT_TRUE(OUIWriteProfileString("View", "Sort", "name"));
    EXPECT_TRUE(CmnWriteProfileString("View", "Sort", "company"));
    EXPECT_TRUE(CmnWriteProfileInt("View", "Width", 7));

    EXPECT_EQ(OUIGetProfileString("View", "Sort", ""), "name");
    EXPECT_EQ(OUIGetProfileInt("View", "Width", 3), 3U);
    EXPECT_EQ(Bytes(), "[Profile/View]\nSort=name\n\n[Application/View]\nSort=company\nWidth=7\n");
}

TEST_F(Profile, ATextLongerThanTheBufferIsCutBetweenCharacters) {
    const std::tuple<const char*, const char*, const char*, std::size_t, const char*> rows[] = {
        {"a text that fits is whole", "en-US", "abc", 4, "abc"},
        {"the zero byte needs its place", "en-US", "abc", 3, "ab"},
        {"room for the zero byte alone", "en-US", "abc", 1, ""},
        {"UTF-8", "en-US", "a\xE8\xA1\xA8", 4, "a"},
        {"a double byte", "ja-JP", "a\x95\x5C", 3, "a"},
    };
    for (const auto& [why, tag, text, buffer, want] : rows) {
        const LocaleInForce locale(tag);
        ASSERT_TRUE(CmnWriteProfileString("s", "k", text));

        const Copied copied = Get("k", buffer);

        EXPECT_TRUE(copied.result) << why;
        EXPECT_EQ(copied.text, std::string(want) + '\0') << why;
    }
}

TEST_F(Profile, WhatIsNotThereGivesTheDefaultAndANullNameIsRefused) {
    int value = 0;
    EXPECT_TRUE(Get("none", 9).result);
    EXPECT_FALSE(Get(nullptr, 9).result);
    EXPECT_FALSE(CmnGetProfileInt(nullptr, "k", &value, 4));
    EXPECT_EQ(value, 4);
    for (const char* key : {"none", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(Get(key, 9, "text").text, std::string("text\0", 5));
        EXPECT_EQ(Get(key, 9).text, std::string("\0", 1));
        EXPECT_EQ(OUIGetProfileString("s", key, "text"), "text");
        EXPECT_EQ(OUIGetProfileString("s", key, nullptr), "");
        EXPECT_EQ(OUIGetProfileInt("s", key, -1), UINT_MAX);
    }
    EXPECT_FALSE(Get("k", 0).result);
    EXPECT_FALSE(CmnWriteProfileString("s", "k", nullptr));
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(Profile, ANumberIsWhatAnIntHolds) {
    for (const int number : {0, 7, -5, INT_MAX, INT_MIN}) {
        int value = 0;
        EXPECT_TRUE(CmnWriteProfileInt("s", "k", number));
        EXPECT_TRUE(CmnGetProfileInt("s", "k", &value, 1));
        EXPECT_EQ(value, number);
        EXPECT_TRUE(OUIWriteProfileInt("s", "k", number));
        EXPECT_EQ(OUIGetProfileInt("s", "k", 1), static_cast<unsigned>(number));
    }
    for (const char* text : {"", "x", "1x", "1.5", "2147483648", "0x10", "- 1"}) {
        int value = 0;
        ASSERT_TRUE(CmnWriteProfileString("s", "k", text));
        EXPECT_TRUE(CmnGetProfileInt("s", "k", &value, 42));
        EXPECT_EQ(value, 42) << text;
    }
}

TEST_F(Profile, TextMovesBetweenCodePages) {
    {
        const LocaleInForce japanese("ja-JP", 932);
        ASSERT_TRUE(OUIWriteProfileString("\x95\x5C", "\x83\x5C", "\x93\xFA\x96\x7B"));
    }
    const LocaleInForce utf8("en-US", 65001);
    EXPECT_EQ(OUIGetProfileString("表", "ソ", ""), "日本");
    EXPECT_EQ(Bytes(), "[Profile/表]\nソ=日本\n");
}

}  // namespace orvo
