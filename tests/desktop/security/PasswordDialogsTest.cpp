// The dialogs of the password, worked on by hands while they are shown.
// SPDX-License-Identifier: MIT
#include <QLabel>

#include <desktop/security/PasswordDialogs.h>
#include <host/Password.h>
#include <platform/settings/SettingsFixture.h>

#include "../forms/FormFixture.h"

namespace orvo::desktop {
namespace {

Hands::Step Seeing(const char* said) {
    return [said](QDialog& dialog) {
        QStringList labels;
        for (const auto* label : dialog.findChildren<QLabel*>()) labels << label->text();
        EXPECT_TRUE(labels.contains(said)) << labels.join('|').toStdString();
        for (const auto* field : dialog.findChildren<QLineEdit*>()) {
            EXPECT_EQ(field->text(), "");
            EXPECT_EQ(field->echoMode(), QLineEdit::Password);
        }
    };
}

class PasswordDialogs : public SettingsFixture {
protected:
    static bool Choose(std::deque<Hands::Step> steps) {
        const Hands hands(std::move(steps));
        return ChoosePassword(nullptr);
    }
};

TEST_F(PasswordDialogs, WithoutAPasswordNobodyIsAsked) {
    EXPECT_TRUE(AskForPassword(nullptr));
}

TEST_F(PasswordDialogs, ANewPasswordIsGivenTwiceAndNotEmpty) {
    EXPECT_TRUE(
        Choose({Typing({"", ""}), Seeing("The new password is empty."), Typing({"Khan", "khan"}),
                Seeing("The new password and its repetition differ."), Typing({"Khan", "Khan"})}));
    EXPECT_TRUE(IsPassword(TypedPassword("Khan")));
}

TEST_F(PasswordDialogs, OnlyTheOldPasswordLetsItBeChanged) {
    ASSERT_TRUE(SetPassword(TypedPassword("Khan")));
    EXPECT_FALSE(
        Choose({Typing({"Coleridge", "new", "new"}), Seeing("The password is wrong."), Escape}));
    EXPECT_TRUE(IsPassword(TypedPassword("Khan")));
    EXPECT_TRUE(Choose({Typing({"Khan", "new", "new"})}));
    EXPECT_TRUE(IsPassword(TypedPassword("new")));
}

}  // namespace
}  // namespace orvo::desktop
