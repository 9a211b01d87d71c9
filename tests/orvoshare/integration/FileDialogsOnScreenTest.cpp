// The dialog for export on the screen.
// SPDX-License-Identifier: MIT
#include <QRadioButton>

#include <orvoshare/ModuleInForce.h>
#include <orvoshare/integration/ExportFileDialog.h>
#include <platform/qt/FileDialogHands.h>

namespace orvo {
namespace {

constexpr const char* kCards = "Cards (*.vcf)|*.vcf||";

class FileDialogsOnScreen : public FileDialogOnScreen {
protected:
    QString InFolder(const char* name) const { return QString::fromStdString(folder.Path(name)); }
};

TEST_F(FileDialogsOnScreen, ARangeIsChosenByAClickAndTheTextsStayWhileTheUserLooksAround) {
    const LocalizedModule module("en-US", kUtf8CodePage);
    std::filesystem::create_directory(folder.Path("inside"));
    CExportFileDialog dialog(nullptr, "vcf", kCards, &parent, 3, 1);
    Use([this](QFileDialog& shown) {
        const auto ranges = shown.findChildren<QRadioButton*>();
        ASSERT_EQ(ranges.size(), 2);
        EXPECT_TRUE(ranges[0]->isChecked());
        QTest::mouseClick(ranges[1], Qt::LeftButton, {}, {5, ranges[1]->height() / 2});
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
    EXPECT_EQ(dialog.GetRange(), kRangeSelected);
    EXPECT_EQ(dialog.GetPathName(), CString(folder.Path("inside/new.vcf")));
}

TEST_F(FileDialogsOnScreen, JapaneseTextsAreShownWhole) {
    const LocalizedModule module("ja-JP", kJapaneseCodePage);
    CExportFileDialog dialog(nullptr, "vcf", kCards, &parent, 3, 1);
    Use([](QFileDialog& shown) {
        EXPECT_EQ(Accept(shown).text(), QString::fromUtf8("エクスポート(&E)"));
        for (const auto* each : shown.findChildren<QWidget*>()) {
            const bool isText =
                qobject_cast<const QRadioButton*>(each) || qobject_cast<const QLabel*>(each);
            if (!isText || !each->isVisible()) continue;
            EXPECT_GE(each->width(), each->sizeHint().width()) << each->objectName().toStdString();
        }
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

}  // namespace
}  // namespace orvo
