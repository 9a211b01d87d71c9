// The windows of an import, worked on by hands while they are shown.
// SPDX-License-Identifier: MIT
#include <QClipboard>
#include <QLabel>
#include <QProgressDialog>
#include <QTableView>

#include <contract/StoreFolder.h>
#include <desktop/import/ImportProgress.h>
#include <desktop/import/ImportReportDialog.h>
#include <desktop/store/StoreSession.h>

#include "../forms/FormFixture.h"

namespace orvo::desktop {
namespace {

constexpr std::size_t kForever = 1'000'000'000;

// Goes on until it is ended.
ImportResult Endless(const FileProgress& progress) {
    for (std::size_t done = 0; done < kForever; ++done) {
        if (!progress(0, done, kForever))
            return {.skipped = {}, .failure = {}, .isCancelled = true};
    }
    return {};
}

}  // namespace

TEST(ImportProgressWindow, NamesTheFileAndEndsTheImport) {
    const QString longName = QString(300, 'x') + "<b>.vcf";
    const Hands hands({[&](QDialog& dialog) {
        EXPECT_THAT(dialog.findChild<QLabel*>()->text().toStdString(),
                    testing::StartsWith("Importing xxx"));
        EXPECT_LT(dialog.width(), 600);
        Press(dialog, "Cancel");
    }});
    EXPECT_TRUE(RunImport(nullptr, {"/files/" + longName.toStdString()}, Endless).isCancelled);
}

TEST(ImportProgressWindow, EndsTheImportOfAWindowThatIsClosed) {
    QWidget window;
    window.show();
    const Hands hands({[&](QDialog&) { window.close(); }});
    EXPECT_TRUE(RunImport(&window, {"friends.vcf"}, Endless).isCancelled);
}

TEST(ImportProgressWindow, IsNotShownForAShortImport) {
    const ImportResult result = RunImport(nullptr, {"a", "b"}, [](const FileProgress& progress) {
        EXPECT_TRUE(progress(0, 0, 10));
        EXPECT_TRUE(progress(1, 10, 10));
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        return ImportResult{.addresses = 2, .skipped = {}, .failure = {}};
    });
    EXPECT_EQ(result.addresses, 2u);
}

TEST(ImportReportWindow, ShowsCopiesAndSavesEveryEntry) {
    constexpr std::size_t count = 100'000;
    const QTemporaryDir folder;
    const std::string path = folder.filePath("report.txt").toStdString();
    const std::string last = "/files/friends.vcf:100000: the card holds nothing\n";
    const Hands hands(
        {[&](QDialog& dialog) {
             auto& table = *dialog.findChild<QTableView*>();
             EXPECT_EQ(table.model()->rowCount(), static_cast<int>(count));
             const auto cell = table.model()->index(41, 1);
             EXPECT_EQ(cell.data().toString(), "42");
             Press(dialog, "Copy");
             EXPECT_TRUE(QApplication::clipboard()->text().endsWith(QString::fromStdString(last)));
             Press(dialog, "Save report...");
         },
         [&](QDialog& dialog) {
             dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path.c_str());
             Press(dialog, "Save");
         },
         [&](QDialog& dialog) {
             EXPECT_TRUE(TempFolder::Content(path).ends_with(last));
             Escape(dialog);
         }});
    std::vector<SkippedLine> skipped;
    for (std::size_t line = 1; line <= count; ++line) {
        skipped.push_back({"/files/friends.vcf", line, "the card holds nothing"});
    }
    ShowImportReport(nullptr, "done", skipped);
}

TEST(ImportOfASession, LeavesNothingWhereItIsCancelled) {
    const StoreFolder folder;
    std::string error;
    const auto session = StoreSession::Open(folder.Path(), error);
    std::string cards;
    for (int i = 0; i < 500; ++i) {
        cards += "BEGIN:VCARD\nN:Lee\nCATEGORIES:Crowd\nTEL;X-ORVO-LABEL=Boat:1\nEND:VCARD\n";
    }
    const std::vector<std::string> files{folder.File("a.vcf", cards), folder.File("b.vcf", cards)};
    const int labels = session->Addresses().GetPhoneLabelCount();

    const ImportResult result = session->Import(
        files,
        [](std::size_t file, std::size_t done, std::size_t) { return file == 0 || done < 10'000; });

    EXPECT_TRUE(result.isCancelled);
    EXPECT_EQ(result.addresses + result.skipped.size(), 0u);
    EXPECT_EQ(session->Addresses().GetCount(), 0);
    EXPECT_EQ(session->Addresses().GetCategoryManager()->GetCount(), 1);
    EXPECT_EQ(session->Addresses().GetPhoneLabelCount(), labels);
    EXPECT_FALSE(session->History().CanUndo());
    const ImportResult again = session->Import(files);
    EXPECT_EQ(again.lastAddress - again.firstAddress, 999);
}

}  // namespace orvo::desktop
