// Writing PDF files, and what becomes of the file where it fails.
// SPDX-License-Identifier: MIT
#include <csignal>
#include <filesystem>
#include <memory>
#include <sys/resource.h>

#include <gmock/gmock.h>

#include <desktop/printing/PrintJob.h>
#include <desktop/printing/PrintedTable.h>
#include <desktop/printing/TextRecorder.h>
#include <platform/io/TempFolder.h>

namespace orvo::desktop {
namespace {

using testing::HasSubstr;

constexpr const char* kOldContent = "the old file";

class PrintJobTest : public testing::Test {
protected:
    void WriteOldFile() const { m_folder.File("out.pdf", kOldContent); }
    std::string Content() const { return TempFolder::Content(m_file); }

    // Nothing else lies in the folder.
    void ExpectOldFile() const {
        EXPECT_EQ(Content(), kOldContent);
        EXPECT_EQ(FileCount(), 1);
    }
    std::ptrdiff_t FileCount() const {
        return std::distance(std::filesystem::directory_iterator(m_folder.Path()), {});
    }

    PrintResult Save(const PrintedPages& pages = {}, const PrintProgress& progress = GoOn) const {
        PagedDocument document(
            std::make_unique<PrintedTable>(
                std::vector<PrintedColumn>{{"Name", PrintedMark::None, 100, true}}, 500,
                [](int row) { return PrintedRow{.cells = {{QString::number(row)}}}; }),
            {"Title", "Today"});
        const QPageLayout layout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {15, 15, 15, 15},
                                 QPageLayout::Millimeter);
        return SaveAsPdf(document, layout, QString::fromStdString(m_file), "Title", pages,
                         progress);
    }

    int PageCount() const {
        return static_cast<int>(QByteArray::fromStdString(Content()).count("/Type /Page\n"));
    }

    const TempFolder m_folder;
    const std::string m_file = m_folder.Path("out.pdf");
};

TEST_F(PrintJobTest, TheFileIsReplacedByAWholeOne) {
    WriteOldFile();

    EXPECT_EQ(Save().end, PrintEnd::Done);

    EXPECT_TRUE(Content().starts_with("%PDF-"));
    EXPECT_TRUE(Content().ends_with("%%EOF\n"));
    EXPECT_GT(PageCount(), 3);
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(PrintJobTest, OnlyTheChosenPagesComeOut) {
    PrintedPages pages;
    pages.ranges = QPageRanges::fromString("2-3,5");

    EXPECT_EQ(Save(pages).end, PrintEnd::Done);

    EXPECT_EQ(PageCount(), 3);
}

TEST_F(PrintJobTest, CancellingAtAnyTimeLeavesTheOldFile) {
    int steps = 0;
    Save({}, [&steps](int, int) { return ++steps > 0; });
    for (int last = 1; last <= steps; ++last) {
        SCOPED_TRACE(last);
        WriteOldFile();
        int step = 0;

        EXPECT_EQ(Save({}, [&step, last](int, int) { return ++step < last; }).end,
                  PrintEnd::Cancelled);

        ExpectOldFile();
    }
}

TEST_F(PrintJobTest, AFullDiskIsToldAndLeavesTheOldFile) {
    WriteOldFile();
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{2000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);

    const PrintResult result = Save();

    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(result.end, PrintEnd::Failed);
    EXPECT_THAT(result.problem.toStdString(), HasSubstr("File too large"));
    ExpectOldFile();
}

}  // namespace
}  // namespace orvo::desktop
