// Dialogs on the screen: files with their labels, row and names, and menus, message boxes and the
// choice of a day, which are answered by keys.
// SPDX-License-Identifier: MIT
#include <QCalendarWidget>
#include <QComboBox>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <tuple>

#include <platform/module/TextsModule.h>
#include <platform/qt/FileDialogHands.h>
#include <platform/window/dialogs/CFileDialog.h>
#include <platform/window/dialogs/CMenu.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

constexpr const char* kTemplate =
    "size 100 20\nfont 8 Sans\n"
    "static -1 0 0 9 9 1\n"
    "radio-button 71 0 0 9 9 2 group\nradio-button 72 0 0 9 9 3 disabled\n"
    "bitmap-button 73 0 0 9 9 4 hidden-text\n";

const TextsModule kModule({{1, "Range:"}, {2, "&All"}, {3, "&Some"}, {4, "Play"}},
                          {{1, kTemplate}});

struct RowDialog : CFileDialog {
    RowDialog() : CFileDialog(1, nullptr, nullptr, 0) {
        m_ofn.hInstance = &kModule;
        m_ofn.lpTemplateName = 1;
        m_ofn.Flags |= OFN_ENABLETEMPLATE;
    }

    const MessageMap& GetMessageMap() const override {
        static const MessageMap map{CFileDialog::ThisMap(), {OnCommand(73, &RowDialog::OnPlay)}};
        return map;
    }

    int plays = 0;
    std::vector<CString> titles;

    void OnInitDone() override {
        SetControlText(IDOK, "&Take");
        SetControlText(IDCANCEL, "&Leave");
        SetControlText(kFileDialogFolderLabel, "From(&I):");
        SetControlText(kFileDialogNameLabel, "Na&me:");
        SetControlText(kFileDialogTypeLabel, "T&ype:");
        EnableControl(72, 1);
        CheckDlgButton(71, 1);
        SetControlBitmap(73, CBitmap({8, 9}, RGB(1, 2, 3)));
        EnableControl(99, 1);
        CheckDlgButton(99, 1);
    }
    void OnFileNameChange() override { titles.push_back(GetFileTitle()); }

    void OnPlay() { ++plays; }
};

using QtFileDialogTest = FileDialogOnScreen;

TEST_F(QtFileDialogTest, LabelsAndRowAreAsItsTemplateAndTheDialogSay) {
    RowDialog dialog;
    Use([&](QFileDialog& shown) {
        EXPECT_EQ(Accept(shown).text(), "&Take");
        const std::pair<const char*, const char*> labels[] = {
            {"lookInLabel", "From(&I):"}, {"fileNameLabel", "Na&me:"}, {"fileTypeLabel", "T&ype:"}};
        for (const auto& [name, text] : labels) {
            EXPECT_EQ(Label(shown, name), text);
            EXPECT_NE(shown.findChild<QLabel*>(name)->buddy(), nullptr) << name;
        }

        const auto radios = shown.findChildren<QRadioButton*>();
        ASSERT_EQ(radios.size(), 2);
        EXPECT_TRUE(radios[0]->isChecked());
        EXPECT_TRUE(radios[1]->isEnabled());
        radios[1]->click();
        EXPECT_FALSE(dialog.IsDlgButtonChecked(71));
        EXPECT_TRUE(dialog.IsDlgButtonChecked(72));
        EXPECT_FALSE(dialog.IsDlgButtonChecked(99));

        QPushButton* play = nullptr;
        for (auto* each : shown.findChildren<QPushButton*>()) {
            if (each->accessibleName() == "Play") play = each;
        }
        ASSERT_NE(play, nullptr);
        EXPECT_EQ(play->text(), "") << "the text isn't shown";
        EXPECT_EQ(play->iconSize(), QSize(8, 9));
        QTest::mouseClick(play, Qt::LeftButton);
        dialog.EnableControl(73, 0);
        QTest::mouseClick(play, Qt::LeftButton);
        EXPECT_EQ(dialog.plays, 1);

        for (QWidget* each : std::initializer_list<QWidget*>{radios[0], radios[1], play}) {
            EXPECT_TRUE(
                shown.rect().contains(QRect(each->mapTo(&shown, QPoint()), each->sizeHint())));
        }
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(QtFileDialogTest, EachChangeOfTheNameIsTold) {
    RowDialog dialog;
    const std::string path = folder.Path("ring.wav");
    Use([&](QFileDialog& shown) {
        EXPECT_THAT(dialog.titles, IsEmpty());
        Name(shown).setText(QString::fromStdString(path));
        EXPECT_EQ(dialog.GetPathName(), CString(path));
        Name(shown).clear();
        EXPECT_EQ(dialog.GetPathName(), "");
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_THAT(dialog.titles, ElementsAre("ring", ""));
}

TEST_F(QtFileDialogTest, NamesThatWontDoAreToldAndExistingOnesAskedAbout) {
    const std::string there = folder.File("there.vcf", "x");
    const std::string absent = folder.Path("absent");
    const std::string nowhere = folder.Path("no/where.vcf");
    // Of a file dialog for opening or saving: its flags, the name, the answer, how often it asks,
    // and the path, which is empty where the dialog doesn't end by that.
    using Row = std::tuple<const char*, BOOL, DWORD, std::string, QMessageBox::StandardButton, int,
                           std::string>;
    const auto none = QMessageBox::Close;
    const Row rows[] = {
        {"overwrite", 0, OFN_OVERWRITEPROMPT, there, QMessageBox::Yes, 1, there},
        {"don't overwrite", 0, OFN_OVERWRITEPROMPT, there, QMessageBox::No, 1, ""},
        {"without a question", 0, 0, there, none, 0, there},
        {"the extension is added", 0, OFN_PATHMUSTEXIST, absent, none, 0, absent + ".vcf"},
        {"must exist", 1, OFN_FILEMUSTEXIST, absent, QMessageBox::Ok, 1, ""},
        {"does exist", 1, OFN_FILEMUSTEXIST, there, none, 0, there},
        {"need not exist", 1, 0, absent, none, 0, absent + ".vcf"},
        {"no such folder", 0, OFN_PATHMUSTEXIST, nowhere, QMessageBox::Ok, 1, ""},
        {"nobody cares", 0, 0, nowhere, none, 0, nowhere},
    };
    for (const auto& [why, opens, flags, name, answer, count, want] : rows) {
        int asked = 0;
        CFileDialog dialog(opens, "vcf", nullptr, flags, nullptr, &parent);
        Use([&, &typed = name, button = answer](QFileDialog& shown) {
            Name(shown).setText(QString::fromStdString(typed));
            Answer(button, asked);
            QTest::keyClick(&Name(shown), Qt::Key_Return);
            QCoreApplication::processEvents();  // the answer, where nothing was asked
        });
        EXPECT_EQ(dialog.DoModal(), want.empty() ? IDCANCEL : IDOK) << why;
        EXPECT_EQ(dialog.GetPathName(), CString(want)) << why;
        EXPECT_EQ(asked, count) << why;
    }
}

TEST_F(QtFileDialogTest, TheSetupIsSeen) {
    CFileDialog dialog(0, "vcf", "mine", 0, "Cards (*.vcf)|*.vcf;*.vcs|All (*.*)|*.*||");
    const CString initial(folder.Path(""));
    dialog.m_ofn.lpstrTitle = "Where to?";
    dialog.m_ofn.lpstrInitialDir = initial;
    Use([&](QFileDialog& shown) {
        EXPECT_EQ(shown.windowTitle(), "Where to?");
        EXPECT_EQ(dialog.GetPathName(), CString(folder.Path("mine.vcf")));
        const auto* types = shown.findChild<QComboBox*>("fileTypeCombo");
        EXPECT_EQ(types->itemText(0) + ", " + types->itemText(1), "Cards (*.vcf), All (*.*)");
        EXPECT_EQ(shown.nameFilters(),
                  QStringList({"Cards (*.vcf) (*.vcf *.vcs)", "All (*.*) (*)"}));
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(QtFileDialogTest, TheDialogMayGoWhileItIsShown) {
    struct FleetingDialog : CFileDialog {
        FleetingDialog() : CFileDialog(1) {}
        void OnFileNameChange() override { DestroyWindow(); }
    } fleeting;
    Use([](QFileDialog& shown) { Name(shown).setText("a"); });
    EXPECT_EQ(fleeting.DoModal(), IDCANCEL);

    CFileDialog orphan(1, nullptr, nullptr, 0, nullptr, &parent);
    Use([this](QFileDialog&) {
        parent.DestroyWindow();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
    EXPECT_EQ(orphan.DoModal(), IDCANCEL);
}

TEST_F(QtFileDialogTest, AFileIsChosenByItsNameInTheCodePage) {
    folder.File("\xE8\xA1\xA8.vcf", "x");
    for (const LocaleCase& page : kBothCodePages) {
        const LocaleInForce locale(page.tag, page.codePage);
        const CString name = page.codePage == 932 ? "\x95\x5C" : "\xE8\xA1\xA8";
        const CString path = CString(folder.Path("")) + name + ".vcf";
        CFileDialog dialog(1, nullptr, nullptr, OFN_FILEMUSTEXIST);
        Use([&](QFileDialog& shown) {
            Name(shown).setText(ToQt(path.View()));
            EXPECT_EQ(dialog.GetFileTitle(), name) << page.codePage;
            Accept(shown).click();
        });
        EXPECT_EQ(dialog.DoModal(), IDOK) << page.codePage;
        EXPECT_EQ(dialog.GetPathName(), path) << page.codePage;
    }
}

TEST_F(QtFileDialogTest, NothingPlaysWithoutASoundDevice) {
    qputenv("PULSE_SERVER", "unix:/nonexistent/server");
    EXPECT_FALSE(system.PlaySoundFile(CString(folder.File("ring.wav", "RIFF"))));
    system.StopSound();
}

using QtDialogTest = QtWindowFixture;

void PressIn(QWidget* widget, std::initializer_list<Qt::Key> keys) {
    ASSERT_NE(widget, nullptr);
    for (const Qt::Key key : keys) QTest::keyClick(widget, key);
}

TEST_F(QtDialogTest, AMenuGivesTheCommandThatIsChosenByKey) {
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING | MF_GRAYED, 10, "Gray");
    menu.AppendMenu(MF_STRING | MF_CHECKED, 11, "&Business");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING, 12, "Private");
    constexpr UINT kReturns = TPM_CENTERALIGN | TPM_RETURNCMD;

    Then([] {
        PressIn(QApplication::activePopupWidget(), {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    });
    EXPECT_EQ(menu.TrackPopupMenu(kReturns, 200, 100, &parent), 12);

    Then([] {
        auto* shown = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(shown, nullptr);
        EXPECT_TRUE(shown->actions()[1]->isChecked());
        EXPECT_NEAR(shown->x() + shown->width() / 2, 200, 1);
        PressIn(shown, {Qt::Key_Escape});
    });
    EXPECT_EQ(menu.TrackPopupMenu(kReturns, 200, 100, &parent), 0);
}

TEST_F(QtDialogTest, AMenuMayOutliveItsOwner) {
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 12, "Private");

    Then([this] {
        parent.DestroyWindow();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (QWidget* shown = QApplication::activePopupWidget()) shown->close();
    });

    EXPECT_EQ(menu.TrackPopupMenu(TPM_RETURNCMD, 200, 100, &parent), 0);
}

TEST_F(QtDialogTest, ABoxGivesTheAnswerOfItsButtons) {
    constexpr std::tuple<UINT, QMessageBox::StandardButton, int> kRows[] = {
        {MB_YESNO | MB_ICONQUESTION, QMessageBox::Yes, IDYES},
        {MB_YESNOCANCEL, QMessageBox::No, IDNO},
        {MB_YESNOCANCEL, QMessageBox::Cancel, IDCANCEL},
        {MB_OK, QMessageBox::Ok, IDOK},
    };
    for (const auto& [type, button, want] : kRows) {
        Then([button = button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), "<b>Sure?");
            PressIn(box->button(button), {Qt::Key_Space});
        });
        EXPECT_EQ(parent.MessageBox("<b>Sure?", type), want);
    }
    Then([] { PressIn(QApplication::activeModalWidget(), {Qt::Key_Escape}); });
    EXPECT_EQ(parent.MessageBox("Sure?", MB_OKCANCEL), IDCANCEL);
}

TEST_F(QtDialogTest, ADayIsChosenOrLeftAlone) {
    const CTime first(2024, 2, 28, 13, 0, 0);
    CTime day = first;

    Then([] { PressIn(QApplication::activeModalWidget(), {Qt::Key_Escape}); });
    EXPECT_FALSE(system.PickDay(&parent, day));
    EXPECT_EQ(day, first);

    Then([] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto* calendar = dialog->findChild<QCalendarWidget*>();
        EXPECT_EQ(calendar->selectedDate(), QDate(2024, 2, 28));
        calendar->setSelectedDate({2024, 2, 29});
        dialog->accept();
    });
    EXPECT_TRUE(system.PickDay(&parent, day));
    EXPECT_EQ(day, CTime(2024, 2, 29, 0, 0, 0));
}

}  // namespace
}  // namespace orvo
