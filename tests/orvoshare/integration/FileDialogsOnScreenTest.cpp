// The dialogs for export, import and sound files on the screen.
// SPDX-License-Identifier: MIT
#include <QPushButton>
#include <QRadioButton>

#include <orvoshare/integration/ExportFileDialog.h>
#include <orvoshare/integration/ImportFileDialog.h>
#include <orvoshare/integration/SoundFileDialog.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/qt/FileDialogHands.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

constexpr const char* kCards = "Cards (*.vcf)|*.vcf||";

// The module with the texts of a language.
struct ModuleInForce {
    explicit ModuleInForce(const char* tag, unsigned codePage = 65001) : locale(tag, codePage) {
        OrvoShareMain(OwnModule(), DLL_PROCESS_ATTACH);
    }
    ~ModuleInForce() { OrvoShareMain(OwnModule(), DLL_PROCESS_DETACH); }
    ModuleInForce(const ModuleInForce&) = delete;
    ModuleInForce& operator=(const ModuleInForce&) = delete;

    LocaleInForce locale;
};

class FileDialogsOnScreen : public FileDialogOnScreen {
protected:
    QString InFolder(const char* name) const { return QString::fromStdString(folder.Path(name)); }

    static QPushButton& Face(const QFileDialog& dialog, const char* name) {
        for (auto* each : dialog.findChildren<QPushButton*>()) {
            if (each->accessibleName() == name) return *each;
        }
        throw std::runtime_error(name);
    }
};

TEST_F(FileDialogsOnScreen, ARangeIsChosenByAClick) {
    const ModuleInForce module("en-US");
    CExportFileDialog dialog(nullptr, "vcf", kCards, &parent, 3, 1);
    Use([this](QFileDialog& shown) {
        const auto ranges = shown.findChildren<QRadioButton*>();
        ASSERT_EQ(ranges.size(), 2);
        EXPECT_TRUE(ranges[0]->isChecked());
        QTest::mouseClick(ranges[1], Qt::LeftButton, {}, {5, ranges[1]->height() / 2});
        Name(shown).setText(InFolder("new"));
        Accept(shown).click();
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetRange(), kRangeSelected);
    EXPECT_EQ(dialog.GetPathName(), CString(folder.Path("new.vcf")));
}

TEST_F(FileDialogsOnScreen, ExportKeepsItsTextsWhileTheUserLooksAround) {
    const ModuleInForce module("en-US");
    std::filesystem::create_directory(folder.Path("inside"));
    CExportFileDialog dialog(nullptr, "vcf", kCards, &parent, 3, 1);
    Use([this](QFileDialog& shown) {
        EXPECT_EQ(shown.windowTitle(), "Export As");
        shown.setDirectory(InFolder(""));
        Name(shown).setText(InFolder("inside"));
        Accept(shown).click();  // goes into the folder
        EXPECT_EQ(shown.directory().path(), InFolder("inside"));
        Name(shown).setText("new");
        EXPECT_EQ(Accept(shown).text(), "&Export");
        EXPECT_EQ(Label(shown, "lookInLabel"), "Export &in:");
        EXPECT_EQ(Label(shown, "fileTypeLabel"), "Export &type:");
        Accept(shown).click();
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName(), CString(folder.Path("inside/new.vcf")));
}

TEST_F(FileDialogsOnScreen, JapaneseTextsAreShownWhole) {
    const ModuleInForce module("ja-JP", 932);
    CExportFileDialog dialog(nullptr, "vcf", kCards, &parent, 3, 1);
    Use([](QFileDialog& shown) {
        EXPECT_EQ(Accept(shown).text(), QString::fromUtf8("エクスポート(&E)"));
        for (auto* each : shown.findChildren<QRadioButton*>()) {
            EXPECT_GE(each->width(), each->sizeHint().width()) << each->text().toStdString();
        }
        for (auto* each : shown.findChildren<QLabel*>()) {
            if (!each->isVisible()) continue;
            EXPECT_GE(each->width(), each->sizeHint().width()) << each->text().toStdString();
        }
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(FileDialogsOnScreen, ImportRefusesAFileThatIsNotThere) {
    const ModuleInForce module("en-US");
    folder.File("there.vcf", "x");
    int asked = 0;
    CImportFileDialog dialog(kCards, &parent, "Import cards");
    Use([&](QFileDialog& shown) {
        EXPECT_EQ(shown.windowTitle(), "Import cards");
        EXPECT_EQ(Accept(shown).text(), "Im&port");
        Name(shown).setText(InFolder("absent.vcf"));
        EXPECT_FALSE(Accept(shown).isEnabled());
        Answer(QMessageBox::Ok, asked);
        QTest::keyClick(&Name(shown), Qt::Key_Return);
        EXPECT_TRUE(shown.isVisible());
        Name(shown).setText(InFolder("there.vcf"));
        Accept(shown).click();
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(dialog.GetPathName(), CString(folder.Path("there.vcf")));
}

TEST_F(FileDialogsOnScreen, TheSoundButtonsFollowTheNameAndThePlay) {
    const ModuleInForce module("en-US");
    const std::string ring = folder.File("ring.wav", "not a sound");
    CSoundFileDialog dialog(CString(folder.Path("")), 1, "wav", nullptr, OFN_FILEMUSTEXIST,
                            "Sounds|*.wav||", &parent);
    Use([&](QFileDialog& shown) {
        const QPushButton& stop = Face(shown, "STOP");
        QPushButton& play = Face(shown, "PLAY");
        EXPECT_TRUE(play.isEnabled() && stop.isEnabled());
        Name(shown).setText("ring.wav");
        Name(shown).clear();
        EXPECT_FALSE(play.isEnabled() || stop.isEnabled());
        Name(shown).setText("ring.wav");
        EXPECT_TRUE(play.isEnabled());
        EXPECT_FALSE(stop.isEnabled());
        play.click();
        EXPECT_TRUE(play.isEnabled() && stop.isEnabled());
        const QImage face = stop.icon().pixmap(stop.iconSize()).toImage();
        EXPECT_EQ(ColourFromQt(face.pixelColor(4, 4)), system.Colour(COLOR_BTNTEXT));
        Accept(shown).click();
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName(), CString(ring));
}

}  // namespace
}  // namespace orvo
