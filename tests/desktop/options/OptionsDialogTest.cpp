// The dialog of options, worked on by hands while it is shown.
// SPDX-License-Identifier: MIT
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>

#include <desktop/options/DesktopPreferences.h>
#include <desktop/options/OptionsDialog.h>
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
}

class OptionsDialog : public SettingsFixture {
protected:
    void TurnPasswordOn() {
        ASSERT_TRUE(SetPassword(TypedPassword("Khan")));
        options.SetPasswordRequired(1);
    }
    static void SwitchPassword(QDialog& dialog) {
        OpenPage(dialog, "Private entries");
        Press(dialog, "Hide them at each start until I give my password");
        Ok(dialog);
    }
    static Hands::Step Typing(const QStringList& texts) {
        return [texts](QDialog& dialog) {
            const auto fields = dialog.findChildren<QLineEdit*>();
            ASSERT_EQ(fields.size(), texts.size());
            for (qsizetype i = 0; i < texts.size(); ++i) QTest::keyClicks(fields[i], texts[i]);
            Ok(dialog);
        };
    }

    COrvoDesktopOptions options;
};

TEST_F(OptionsDialog, GivesWhatTheUserChose) {
    const Hands hands({[](QDialog& dialog) {
        ChangeAll(dialog);
        Ok(dialog);
    }});
    ASSERT_TRUE(EditOptions(nullptr, options));

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
}

TEST_F(OptionsDialog, ThatIsCancelledChangesNothing) {
    const Hands hands({[](QDialog& dialog) {
        ChangeAll(dialog);
        Escape(dialog);
    }});
    ASSERT_FALSE(EditOptions(nullptr, options));

    EXPECT_TRUE(options.IsConfirmOnDelete());
    EXPECT_EQ(options.GetWorkDayBegins(), 0);
    EXPECT_FALSE(options.IsShowingPrivate());
    EXPECT_EQ(options.GetAlarmAdvance(), 5);
    EXPECT_EQ(Bytes(), "");
}

TEST_F(OptionsDialog, LeavesAloneWhatItIsNotAskedFor) {
    options.SetAlarmAdvance(100000);
    options.SetAutoSave(1, 77);
    options.SetWorkDayBegins(8);
    ASSERT_TRUE(SetPreferredLocale("pl-PL"));
    const Hands hands({[](QDialog& dialog) { Ok(dialog); }});
    ASSERT_TRUE(EditOptions(nullptr, options));

    EXPECT_EQ(options.GetAlarmAdvance(), 100000);
    EXPECT_EQ(options.GetAutoSaveInterval(), 77);
    EXPECT_EQ(options.GetWorkDayBegins(), 8);
    EXPECT_EQ(PreferredLocale(), "pl-PL");
}

TEST_F(OptionsDialog, AsksForThePasswordThatIsToGuard) {
    const Hands hands({SwitchPassword, Typing({"Khan", "Khan"})});
    ASSERT_TRUE(EditOptions(nullptr, options));

    EXPECT_TRUE(options.IsPasswordRequired());
    EXPECT_TRUE(IsPassword(TypedPassword("Khan")));
}

TEST_F(OptionsDialog, WithoutAPasswordNothingIsGuarded) {
    const Hands hands({SwitchPassword, Escape, Escape});
    ASSERT_FALSE(EditOptions(nullptr, options));

    EXPECT_FALSE(options.IsPasswordRequired());
    EXPECT_FALSE(IsPasswordSet());
}

TEST_F(OptionsDialog, OnlyWhoKnowsThePasswordTakesItAway) {
    TurnPasswordOn();
    {
        const Hands hands({SwitchPassword, Typing({"Coleridge"}), Escape, Escape});
        ASSERT_FALSE(EditOptions(nullptr, options));
    }
    EXPECT_TRUE(IsPasswordSet());
    const Hands hands({SwitchPassword, Typing({"Khan"})});
    ASSERT_TRUE(EditOptions(nullptr, options));
    EXPECT_FALSE(options.IsPasswordRequired());
    EXPECT_FALSE(IsPasswordSet());
}

TEST_F(OptionsDialog, StaysWhereTheSettingsCannotBeKept) {
    std::filesystem::create_directory(file);
    const Hands hands({[](QDialog& dialog) {
                           ChangeAll(dialog);
                           Ok(dialog);
                       },
                       Ok, Escape});
    EXPECT_FALSE(EditOptions(nullptr, options));
    EXPECT_TRUE(options.IsConfirmOnDelete());
}

TEST_F(OptionsDialog, OfTheSoundOnlyWhatCanBeDoneIsOffered) {
    options.SetAlarmSet(1);
    ASSERT_TRUE(SetReminderSound("/sounds/ring.wav"));
    const Hands hands({[](QDialog& dialog) {
        OpenPage(dialog, "Reminders");
        Press(dialog, "None");
        for (const auto* button : dialog.findChildren<QAbstractButton*>()) {
            const QString text = button->text().remove('&');
            if (text == "Play" || text == "Stop" || text == "None") {
                EXPECT_FALSE(button->isEnabled()) << text.toStdString();
            }
        }
        Ok(dialog);
    }});
    ASSERT_TRUE(EditOptions(nullptr, options));
    EXPECT_EQ(ReminderSound(), "");
}

TEST_F(OptionsDialog, ShowsEachTextWhole) {
    const Hands hands({[](QDialog& dialog) {
        auto* tabs = dialog.findChild<QTabWidget*>();
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            const QWidget& shown = *tabs->currentWidget();
            for (const auto* label : shown.findChildren<QLabel*>()) {
                EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
            }
            for (const auto* button : shown.findChildren<QAbstractButton*>()) {
                EXPECT_GE(button->width(), button->sizeHint().width())
                    << button->text().toStdString();
            }
        }
        Escape(dialog);
    }});
    EXPECT_FALSE(EditOptions(nullptr, options));
}

}  // namespace
}  // namespace orvo::desktop
