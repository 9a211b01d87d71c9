// The dialog of options, worked on by hands while it is shown.
// SPDX-License-Identifier: MIT
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>
#include <QTabWidget>

#include <desktop/options/DesktopPreferences.h>
#include <desktop/options/OptionsDialog.h>
#include <host/AutomaticBackup.h>
#include <host/Password.h>
#include <platform/settings/SettingsFixture.h>

#include "../forms/FormFixture.h"

namespace orvo::desktop {
namespace {

void OpenPage(QDialog& dialog, const char* title) {
    auto* tabs = dialog.findChild<QTabWidget*>();
    for (int page = 0; page < tabs->count(); ++page) {
        if (tabs->tabText(page) == title) tabs->setCurrentIndex(page);
    }
    ASSERT_EQ(tabs->tabText(tabs->currentIndex()), title);
}

// The field that the label with that mnemonic leads to.
template <class Widget>
Widget& Labelled(QDialog& dialog, const char* text) {
    for (const auto* label : dialog.findChildren<QLabel*>()) {
        if (label->text().remove('&') != text) continue;
        if (auto* field = dynamic_cast<Widget*>(label->buddy())) return *field;
    }
    throw std::runtime_error(text);
}

// Chooses the next entry by a key, or another number by keys.
void Down(QWidget& field) {
    QTest::keyClick(&field, Qt::Key_Down);
}
void Number(QSpinBox& field, const QString& digits) {
    field.selectAll();
    QTest::keyClicks(&field, digits);
}

// Something else on each page.
void ChangeAll(QDialog& dialog) {
    Press(dialog, "Ask before something is deleted");
    Down(Labelled<QComboBox>(dialog, "Language (from the next start):"));
    Down(Labelled<QComboBox>(dialog, "Colours:"));
    Down(Labelled<QComboBox>(dialog, "Work day begins at:"));
    Down(Labelled<QComboBox>(dialog, "Work week begins on:"));
    OpenPage(dialog, "Private entries");
    Press(dialog, "Mask them: their rows stay, without content");
    OpenPage(dialog, "To-dos");
    Press(dialog, "Show completed to-dos");
    Press(dialog, "Show only what is due");
    Press(dialog, "Record the day of completion");
    OpenPage(dialog, "Reminders");
    Press(dialog, "Remind me of to-dos before they are due");
    Number(Labelled<QSpinBox>(dialog, "When:"), "15");
    Down(Labelled<QComboBox>(dialog, "Remind me of birthdays:"));
    OpenPage(dialog, "Backups");
    Press(dialog, "Back up the store each day");
}

class OptionsDialog : public SettingsFixture {
protected:
    static void SwitchPassword(QDialog& dialog) {
        OpenPage(dialog, "Private entries");
        Press(dialog, "Hide them at each start until I give my password");
        Ok(dialog);
    }
    bool Edit(std::deque<Hands::Step> steps) {
        const Hands hands(std::move(steps));
        return EditOptions(nullptr, options, {});
    }

    COrvoDesktopOptions options;
};

TEST_F(OptionsDialog, GivesWhatTheUserChose) {
    ASSERT_TRUE(Edit({ChangeAll, Ok}));

    EXPECT_FALSE(options.IsConfirmOnDelete());
    EXPECT_EQ(options.GetWorkDayBegins(), 1);
    EXPECT_EQ(options.GetWorkWeekBegins(), 1);
    EXPECT_TRUE(options.IsShowingPrivate() && options.IsMaskingPrivate());
    EXPECT_FALSE(options.GetTodoShowCompleted());
    EXPECT_TRUE(options.GetTodoShowDueItemsOnly());
    EXPECT_TRUE(options.GetTodoMarkCompletionDate());
    EXPECT_TRUE(options.IsAlarmSet());
    EXPECT_EQ(options.GetAlarmAdvance(), 15);
    EXPECT_EQ(PreferredLocale(), "en-US");
    EXPECT_EQ(PreferredColours(), Colours::Light);
    EXPECT_EQ(BirthdayAdvance(), 0);
    EXPECT_FALSE(AreBackupsAutomatic());
}

TEST_F(OptionsDialog, ThatIsCancelledChangesNothing) {
    ASSERT_FALSE(Edit({ChangeAll, Escape}));

    EXPECT_TRUE(options.IsConfirmOnDelete());
    EXPECT_EQ(options.GetWorkDayBegins(), 0);
    EXPECT_FALSE(options.IsShowingPrivate());
    EXPECT_EQ(options.GetAlarmAdvance(), 5);
    EXPECT_EQ(Bytes(), "");
}

TEST_F(OptionsDialog, StaysWithAPageOfMapsThatIsNoneAndSaysWhy) {
    const auto type = [](const char* address) {
        return [address](QDialog& dialog) {
            auto& field = Labelled<QLineEdit>(dialog, "Page of maps:");
            field.selectAll();
            QTest::keyClicks(&field, address);
            OpenPage(dialog, "Reminders");
            Ok(dialog);
        };
    };
    const auto isRefused = [](QDialog& dialog) {
        const auto& field = Labelled<QLineEdit>(dialog, "Page of maps:");
        EXPECT_TRUE(field.isVisible());
        EXPECT_THAT(field.accessibleDescription().toStdString(), testing::HasSubstr("must begin"));
    };
    ASSERT_TRUE(Edit({type("file:///%1"), isRefused, type("https://x.y/?q=%1")}));
    EXPECT_EQ(MapAddress(), "https://x.y/?q=%1");
}

TEST_F(OptionsDialog, LeavesAloneWhatItIsNotAskedFor) {
    options.SetAlarmAdvance(100000);
    options.SetAutoSave(1, 77);
    options.SetWorkDayBegins(8);
    ASSERT_TRUE(SetPreferredLocale("pl-PL"));
    ASSERT_TRUE(Edit({Ok}));

    EXPECT_EQ(options.GetAlarmAdvance(), 100000);
    EXPECT_EQ(options.GetAutoSaveInterval(), 77);
    EXPECT_EQ(options.GetWorkDayBegins(), 8);
    EXPECT_EQ(PreferredLocale(), "pl-PL");
}

TEST_F(OptionsDialog, WithoutAPasswordNothingIsGuarded) {
    ASSERT_FALSE(Edit({SwitchPassword, Escape, Escape}));

    EXPECT_FALSE(options.IsPasswordRequired());
    EXPECT_FALSE(IsPasswordSet());
}

TEST_F(OptionsDialog, OnlyWhoKnowsThePasswordTakesItAway) {
    ASSERT_TRUE(SetPassword(TypedPassword("Khan")));
    options.SetPasswordRequired(1);
    ASSERT_FALSE(Edit({SwitchPassword, Typing({"Coleridge"}), Escape, Escape}));
    EXPECT_TRUE(IsPasswordSet());
    ASSERT_TRUE(Edit({SwitchPassword, Typing({"Khan"})}));
    EXPECT_FALSE(options.IsPasswordRequired());
    EXPECT_FALSE(IsPasswordSet());
}

TEST_F(OptionsDialog, StaysWhereTheSettingsCannotBeKept) {
    std::filesystem::create_directory(file);
    EXPECT_FALSE(Edit({ChangeAll, Ok, Ok, Escape}));
    EXPECT_TRUE(options.IsConfirmOnDelete());
}

TEST_F(OptionsDialog, OfTheSoundOnlyWhatCanBeDoneIsOffered) {
    options.SetAlarmSet(1);
    ASSERT_TRUE(SetReminderSound("/sounds/ring.wav"));
    ASSERT_TRUE(Edit({[](QDialog& dialog) {
                          OpenPage(dialog, "Reminders");
                          Press(dialog, "None");
                          for (const char* const text : {"Play", "Stop", "None"}) {
                              EXPECT_FALSE(Button(dialog, text)->isEnabled()) << text;
                          }
                      },
                      Ok}));
    EXPECT_EQ(ReminderSound(), "");
}

TEST_F(OptionsDialog, ShowsEachTextWhole) {
    const auto look = [](QDialog& dialog) {
        auto* tabs = dialog.findChild<QTabWidget*>();
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            for (const auto* part : tabs->currentWidget()->findChildren<QWidget*>()) {
                if (!qobject_cast<const QLabel*>(part) &&
                    !qobject_cast<const QAbstractButton*>(part)) {
                    continue;
                }
                EXPECT_GE(part->width(), part->sizeHint().width())
                    << part->property("text").toString().toStdString();
            }
        }
    };
    EXPECT_FALSE(Edit({look, Escape}));
}

}  // namespace
}  // namespace orvo::desktop
