// The dialogs of the password, worked on by hands while they are shown.
// SPDX-License-Identifier: MIT
#include <QLabel>
#include <QLineEdit>

#include <desktop/security/PasswordDialogs.h>
#include <host/Password.h>
#include <platform/settings/SettingsFixture.h>

#include "../forms/FormFixture.h"

namespace orvo::desktop {
namespace {

// Types into the fields from top to bottom, and agrees.
Hands::Step Typing(const QStringList& texts) {
    return [texts](QDialog& dialog) {
        const auto fields = dialog.findChildren<QLineEdit*>();
        ASSERT_EQ(fields.size(), texts.size());
        for (qsizetype i = 0; i < texts.size(); ++i) {
            EXPECT_EQ(fields[i]->echoMode(), QLineEdit::Password);
            QTest::keyClicks(fields[i], texts[i]);
        }
        Ok(dialog);
    };
}

Hands::Step Seeing(const char* said) {
    return [said](QDialog& dialog) {
        QStringList labels;
        for (const auto* label : dialog.findChildren<QLabel*>()) labels << label->text();
        EXPECT_TRUE(labels.contains(said)) << labels.join('|').toStdString();
        for (const auto* field : dialog.findChildren<QLineEdit*>()) EXPECT_EQ(field->text(), "");
    };
}

class PasswordDialogs : public SettingsFixture {};

TEST_F(PasswordDialogs, WithoutAPasswordNobodyIsAsked) {
    EXPECT_TRUE(AskForPassword(nullptr));
}

TEST_F(PasswordDialogs, AsksUntilThePasswordIsRight) {
    ASSERT_TRUE(SetPassword(TypedPassword("Khan")));
    const Hands hands({Typing({"Coleridge"}), Seeing("The password is wrong."), Typing({""}),
                       Seeing("The password is wrong."), Typing({"Khan"})});
    EXPECT_TRUE(AskForPassword(nullptr));
}

TEST_F(PasswordDialogs, WhoGivesUpIsNotLetIn) {
    ASSERT_TRUE(SetPassword(TypedPassword("Khan")));
    const Hands hands({Typing({"Coleridge"}), Escape});
    EXPECT_FALSE(AskForPassword(nullptr));
}

TEST_F(PasswordDialogs, ANewPasswordIsGivenTwiceAndNotEmpty) {
    const Hands hands(
        {Typing({"", ""}), Seeing("The new password is empty."), Typing({"Khan", "khan"}),
         Seeing("The new password and its repetition differ."), Typing({"Khan", "Khan"})});
    EXPECT_TRUE(ChoosePassword(nullptr));
    EXPECT_TRUE(IsPassword(TypedPassword("Khan")));
}

TEST_F(PasswordDialogs, OnlyTheOldPasswordLetsItBeChanged) {
    ASSERT_TRUE(SetPassword(TypedPassword("Khan")));
    {
        const Hands hands(
            {Typing({"Coleridge", "new", "new"}), Seeing("The password is wrong."), Escape});
        EXPECT_FALSE(ChoosePassword(nullptr));
    }
    EXPECT_TRUE(IsPassword(TypedPassword("Khan")));
    const Hands hands({Typing({"Khan", "new", "new"})});
    EXPECT_TRUE(ChoosePassword(nullptr));
    EXPECT_TRUE(IsPassword(TypedPassword("new")));
}

}  // namespace
}  // namespace orvo::desktop
