// The user's password, and the hash of it in the settings file.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <host/Password.h>
#include <platform/settings/SettingsFixture.h>

namespace orvo {
namespace {

using testing::HasSubstr;
using testing::Not;

class Password : public SettingsFixture {
protected:
    static bool Set(std::string_view text) { return SetPassword(TypedPassword(text)); }
    static bool Is(std::string_view text) { return IsPassword(TypedPassword(text)); }
};

TEST_F(Password, IsKeptAsAHashWithASaltOfItsOwn) {
    ASSERT_TRUE(Set("Kubla Khan"));
    const std::string first = Bytes();
    ASSERT_TRUE(Set("Kubla Khan"));

    EXPECT_THAT(first, HasSubstr("$argon2id$"));
    EXPECT_THAT(first, Not(HasSubstr("Kubla")));
    EXPECT_NE(first, Bytes());
}

TEST_F(Password, IsTheWholeTextToTheLetter) {
    const std::string longOne(300, 'x');
    struct {
        const char* why;
        std::string set;
        std::string typed;
        bool want;
    } const rows[] = {{"the same", "Khan", "Khan", true},
                      {"another case", "Khan", "khan", false},
                      {"a blank more", "Khan", "Khan ", false},
                      {"a part", "Khan", "Kha", false},
                      {"a long one differs at its end", longOne, longOne + "y", false},
                      {"composed as well as decomposed", "M\u00fcller", "Mu\u0308ller", true},
                      {"another letter", "M\u00fcller", "Muller", false},
                      {"any script", "秘密の言葉", "秘密の言葉", true}};
    for (const auto& row : rows) {
        ASSERT_TRUE(Set(row.set)) << row.why;
        EXPECT_EQ(Is(row.typed), row.want) << row.why;
    }
}

TEST_F(Password, IsTheLastOneAndNoneBeforeTheFirstOrOnceItIsRemoved) {
    EXPECT_FALSE(IsPasswordSet());
    EXPECT_FALSE(Is(""));
    ASSERT_TRUE(Set("old"));
    ASSERT_TRUE(Set("new"));
    EXPECT_FALSE(Is("old"));
    EXPECT_TRUE(Is("new"));
    ASSERT_TRUE(RemovePassword());
    EXPECT_FALSE(IsPasswordSet());
    EXPECT_FALSE(Is("new"));
    EXPECT_THAT(Bytes(), Not(HasSubstr("argon2")));
}

TEST_F(Password, ClosesTheSettingsFileToOthers) {
    using std::filesystem::perms;
    Put("[Application/Core]\n");
    std::filesystem::permissions(file, perms(0644));
    ASSERT_TRUE(Set("Khan"));
    EXPECT_EQ(std::filesystem::status(file).permissions(), perms(0600));
}

TEST_F(Password, ThatCannotBeKeptLeavesTheOldOne) {
    ASSERT_TRUE(Set("old"));
    const std::string before = Bytes();
    SettingsStore::SetPath((folder / "settings.ini" / "below").string());
    EXPECT_FALSE(Set("new"));
    SettingsStore::SetPath(file.string());
    EXPECT_EQ(Bytes(), before);
    EXPECT_TRUE(Is("old"));
}

TEST_F(Password, NoneFitsAHashThatIsDamaged) {
    Put("[Application/Security]\nPasswordHash=$argon2id$v=19$m=65536\n");
    EXPECT_TRUE(IsPasswordSet());
    EXPECT_FALSE(Is(""));
}

}  // namespace
}  // namespace orvo
