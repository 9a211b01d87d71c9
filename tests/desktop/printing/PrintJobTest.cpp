// Writing PDF files, and what becomes of the file where it fails.
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <memory>
#include <sys/resource.h>

#include <gmock/gmock.h>

#include <desktop/printing/PrintJob.h>
#include <desktop/printing/PrintedTable.h>

namespace orvo::desktop {
namespace {

using testing::HasSubstr;

constexpr const char* kOldContent = "the old file";

class PrintJobTest : public testing::Test {
protected:
    QString Path() const { return m_folder.filePath("out.pdf"); }

    void WriteOldFile() {
        QFile file(Path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(kOldContent);
    }

    QByteArray Content() const {
        QFile file(Path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // What lies in the folder beside the file.
    int FileCount() const { return static_cast<int>(QDir(m_folder.path()).count()) - 2; }

    static PrintResult Save(
        const QString& path, const PrintedPages& pages = {},
        const PrintProgress& progress = [](int, int) { return true; }) {
        PagedDocument document(
            std::make_unique<PrintedTable>(
                std::vector<PrintedColumn>{{"Name", PrintedMark::None, 100, true}}, 500,
                [](int row) { return PrintedRow{.cells = {{QString::number(row)}}}; }),
            {"Title", "Today"});
        const QPageLayout layout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {15, 15, 15, 15},
                                 QPageLayout::Millimeter);
        return SaveAsPdf(document, layout, path, "Title", pages, progress);
    }

    static int PageCount(const QByteArray& pdf) {
        return static_cast<int>(pdf.count("/Type /Page\n"));
    }

    QTemporaryDir m_folder;
};

TEST_F(PrintJobTest, TheFileIsReplacedByAWholeOne) {
    WriteOldFile();

    EXPECT_EQ(Save(Path()).end, PrintEnd::Done);

    EXPECT_TRUE(Content().startsWith("%PDF-"));
    EXPECT_TRUE(Content().trimmed().endsWith("%%EOF"));
    EXPECT_GT(PageCount(Content()), 3);
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(PrintJobTest, OnlyTheChosenPagesComeOut) {
    PrintedPages pages;
    pages.ranges = QPageRanges::fromString("2-3,5");

    EXPECT_EQ(Save(Path(), pages).end, PrintEnd::Done);

    EXPECT_EQ(PageCount(Content()), 3);
}

TEST_F(PrintJobTest, CancellingAtAnyTimeLeavesTheOldFile) {
    int steps = 0;
    Save(Path(), {}, [&steps](int, int) { return ++steps > 0; });
    for (int last = 1; last <= steps; ++last) {
        WriteOldFile();
        int step = 0;

        const PrintResult result =
            Save(Path(), {}, [&step, last](int, int) { return ++step < last; });

        EXPECT_EQ(result.end, PrintEnd::Cancelled) << last;
        EXPECT_EQ(Content(), kOldContent) << last;
        EXPECT_EQ(FileCount(), 1) << last;
    }
}

TEST_F(PrintJobTest, AFolderThatIsNotThereIsTold) {
    const QString path = m_folder.filePath("none/out.pdf");

    const PrintResult result = Save(path);

    EXPECT_EQ(result.end, PrintEnd::Failed);
    EXPECT_THAT(result.problem.toStdString(), HasSubstr(path.toStdString()));
    EXPECT_THAT(result.problem.toStdString(), HasSubstr("No such file or directory"));
}

TEST_F(PrintJobTest, AFullDiskIsToldAndLeavesTheOldFile) {
    WriteOldFile();
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{2000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);

    const PrintResult result = Save(Path());

    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(result.end, PrintEnd::Failed);
    EXPECT_THAT(result.problem.toStdString(), HasSubstr("File too large"));
    EXPECT_EQ(Content(), kOldContent);
    EXPECT_EQ(FileCount(), 1);
}

}  // namespace
}  // namespace orvo::desktop
