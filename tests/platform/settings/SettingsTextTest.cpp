// Tests of reading and changing the text of a settings file.
// SPDX-License-Identifier: MIT
#include <random>

#include <gtest/gtest.h>

#include <platform/settings/SettingsText.h>

namespace orvo {

namespace {

struct Change {
    const char* why;
    std::string before;
    std::string after;  // once key k of section s is 9
};

const Change kChanges[] = {
    {"an empty file gets the section", "", "[s]\nk=9\n"},
    {"a new section goes to the end", "[t]\nk=1\n", "[t]\nk=1\n\n[s]\nk=9\n"},
    {"a new key goes behind the last of its section", "[s]\na=1\n\n; more\n[t]\nk=1\n",
     "[s]\na=1\nk=9\n\n; more\n[t]\nk=1\n"},
    {"a section without keys gets one", "[s]\n\n[t]\n", "[s]\nk=9\n\n[t]\n"},
    {"a value is replaced in its place", "[s]\nk=1\na=2\n", "[s]\nk=9\na=2\n"},
    {"blanks around a value stay", "[s]\n \tk = 1 \t\n", "[s]\n \tk = 9 \t\n"},
    {"an empty value is a value", "[s]\r\nk=\r\na=\r\n", "[s]\r\nk=9\r\na=\r\n"},
    {"the first of equal keys counts", "[s]\nk=1\nk=2\n[s]\nk=3\n", "[s]\nk=9\nk=2\n[s]\nk=3\n"},
    {"a section may come twice", "[s]\na=1\n[t]\n[s]\nk=1\n", "[s]\na=1\n[t]\n[s]\nk=9\n"},
    {"new lines end like the others", "[s]\r\na=1\r\n", "[s]\r\na=1\r\nk=9\r\n"},
    {"a last line without an end gets one", "[s]\na=1", "[s]\na=1\nk=9\n"},
    {"a cut CRLF file goes on as one", "[t]\r\na=1", "[t]\r\na=1\r\n\r\n[s]\r\nk=9\r\n"},
    {"comments hold no keys", "[s]\n;k=1\n#k=1\n", "[s]\nk=9\n;k=1\n#k=1\n"},
    {"what follows a heading is skipped", "[ s ] ; k\nk=1\n", "[ s ] ; k\nk=9\n"},
    {"keys of a broken heading are nobody's", "[s]\na=1\n[t\nk=1\n", "[s]\na=1\nk=9\n[t\nk=1\n"},
    {"lines that are nothing stay", "x\n=\n[s]\n\x01\xFF\nk\nk=1\n]\n",
     "x\n=\n[s]\n\x01\xFF\nk\nk=9\n]\n"},
    {"a zero byte is a byte", std::string("\0\n[s]\n\0k=1\nk=\0\n", 15),
     std::string("\0\n[s]\n\0k=1\nk=9\n", 15)},
    {"a byte order mark belongs to no name", "\xEF\xBB\xBF[s]\nk=1\n", "\xEF\xBB\xBF[s]\nk=9\n"},
};

struct Removal {
    const char* why;
    std::string before;
    std::string after;  // once key k of section s is gone
};

const Removal kRemovals[] = {
    {"only its line goes", "; k\n[s]\na=1\nk=1\nb=2\n[t]\nk=1\n", "; k\n[s]\na=1\nb=2\n[t]\nk=1\n"},
    {"the section stays", "[s]\r\nk=1\r\n", "[s]\r\n"},
    {"none of its name is left to count", "[s]\nk=1\na=1\nk=2\n[s]\nk=\n", "[s]\na=1\n[s]\n"},
    {"a last line without an end", "[s]\nk=1", "[s]\n"},
    {"a last line without a value", "[s]\nk=", "[s]\n"},
    {"a key that isn't there", "[s]\n;k=1\nkk=1", "[s]\n;k=1\nkk=1"},
    {"a section that isn't there", "[t]\nk=1\n", "[t]\nk=1\n"},
};

}  // namespace

TEST(SettingsText, ARemovalKeepsEveryOtherLine) {
    for (const Removal& removal : kRemovals) {
        SettingsText text(removal.before);

        text.Remove("s", "k");

        EXPECT_EQ(text.Bytes(), removal.after) << removal.why;
        EXPECT_EQ(text.Find("s", "k"), std::nullopt) << removal.why;
    }
}

TEST(SettingsText, ASectionWithoutKeysIsThere) {
    SettingsText text("[a/b]\n");
    EXPECT_TRUE(text.HasSection("a/b"));
    EXPECT_FALSE(text.HasSection("a"));
    EXPECT_TRUE(text.HasSectionFrom("a/"));
    EXPECT_FALSE(text.HasSectionFrom("a/c"));

    text.AddSection("a/c");
    text.AddSection("a/b");

    EXPECT_EQ(text.Bytes(), "[a/b]\n\n[a/c]\n");
    EXPECT_TRUE(text.HasSectionFrom("a/c"));
}

TEST(SettingsText, AChangeKeepsEveryOtherByte) {
    for (const Change& change : kChanges) {
        SettingsText text(change.before);

        text.Set("s", "k", "9");

        EXPECT_EQ(text.Bytes(), change.after) << change.why;
        EXPECT_EQ(text.Find("s", "k"), "9") << change.why;
    }
}

TEST(SettingsText, AnyBytesCanBeReadAndTakeAValue) {
    constexpr std::string_view kAlphabet("[]=;#sk \t\r\n\\\0\xEF\xBB\xBF", 16);
    std::mt19937 random(20260101);
    for (int round = 0; round < 20'000; ++round) {
        std::string bytes(random() % 40, '\0');
        for (char& byte : bytes) byte = kAlphabet[random() % kAlphabet.size()];
        SettingsText text(bytes);
        const bool wasThere = text.Find("s", "k").has_value();

        text.Set("s", "k", "9");

        ASSERT_EQ(text.Find("s", "k"), "9") << testing::PrintToString(bytes);
        SettingsText without = text;
        without.Remove("s", "k");
        ASSERT_EQ(without.Find("s", "k"), std::nullopt) << testing::PrintToString(bytes);
        if (wasThere) continue;
        // Nothing but whole lines came in, so without them the old bytes are there again.
        std::size_t same = 0;
        while (same < bytes.size() && bytes[same] == text.Bytes()[same]) ++same;
        ASSERT_TRUE(text.Bytes().ends_with(bytes.substr(same))) << testing::PrintToString(bytes);
    }
}

}  // namespace orvo
