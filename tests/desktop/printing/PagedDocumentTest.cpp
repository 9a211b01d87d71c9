// How items flow over pages.
// SPDX-License-Identifier: MIT
#include <QGuiApplication>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <desktop/printing/PagedDocument.h>
#include <desktop/printing/TextRecorder.h>

namespace orvo::desktop {
namespace {

struct PaintedParts {
    std::string text;  // heading, or item:first-end
    QRectF place;
};

// Of so many parts each, of the height of a tenth of the paper.
class FakeItems : public PrintedItems {
public:
    FakeItems(std::vector<int> partCounts, int columns, std::vector<PaintedParts>& painted)
        : m_partCounts(std::move(partCounts)), m_columns(columns), m_painted(painted) {}

    void SetPaper(const Paper& paper) override { m_part = paper.area.height() / 10; }
    int Count() const override { return static_cast<int>(m_partCounts.size()); }
    std::unique_ptr<PrintedItem> LayOut(int index) const override {
        return std::make_unique<Item>(*this, index);
    }
    int ColumnCount() const override { return m_columns; }
    qreal HeadingHeight() const override { return m_part; }
    void PaintHeading(QPainter&, const QRectF& place) const override {
        m_painted.push_back({"heading", place});
    }

private:
    class Item : public PrintedItem {
    public:
        Item(const FakeItems& items, int index) : m_items(items), m_index(index) {}
        int PartCount() const override {
            return m_items.m_partCounts[static_cast<std::size_t>(m_index)];
        }
        qreal PartHeight(int) const override { return m_items.m_part; }
        void Paint(QPainter&, const QRectF& place, int first, int end) const override {
            m_items.m_painted.push_back(
                {std::to_string(m_index) + ":" + std::to_string(first) + "-" + std::to_string(end),
                 place});
        }

    private:
        const FakeItems& m_items;
        int m_index;
    };

    std::vector<int> m_partCounts;
    int m_columns;
    std::vector<PaintedParts>& m_painted;
    qreal m_part = 0;
};

class PagedDocumentTest : public testing::Test {
protected:
    // What each page holds.
    std::vector<std::string> Pages(const std::vector<int>& partCounts, int columns = 1) {
        PagedDocument document(std::make_unique<FakeItems>(partCounts, columns, m_painted), {});
        EXPECT_TRUE(document.LayOut(m_recorder, GoOn));
        std::vector<std::string> pages;
        QPainter painter(&m_recorder);
        for (int page = 0; page < document.PageCount(); ++page) {
            m_painted.clear();
            document.PaintPage(painter, page);
            pages.emplace_back();
            for (const PaintedParts& parts : m_painted) pages.back() += parts.text + " ";
        }
        return pages;
    }

    TextRecorder m_recorder;
    std::vector<PaintedParts> m_painted;
};

// Beside title, heading and page number there is room for eight parts.
TEST_F(PagedDocumentTest, ItemsFlowOverPagesEachOnceAndBelowAHeading) {
    struct Row {
        const char* why;
        std::vector<int> parts;
        int columns;
        std::vector<std::string> pages;
    };
    const Row kRows[] = {
        {"without items there is an empty page", {}, 1, {"heading "}},
        {"what fits stands on one page", {4, 4}, 1, {"heading 0:0-4 1:0-4 "}},
        {"what doesn't fit stays whole", {4, 5, 1}, 1, {"heading 0:0-4 ", "heading 1:0-5 2:0-1 "}},
        {"what is longer than a page begins at once, and goes on to its end",
         {2, 20, 1},
         1,
         {"heading 0:0-2 1:0-6 ", "heading 1:6-14 ", "heading 1:14-20 2:0-1 "}},
        {"columns are filled in turn", {5, 5, 5}, 2, {"heading 0:0-5 1:0-5 ", "heading 2:0-5 "}},
        {"a long item goes on in the next column", {10, 1}, 2, {"heading 0:0-8 0:8-10 1:0-1 "}}};
    for (const Row& row : kRows) {
        EXPECT_EQ(Pages(row.parts, row.columns), row.pages) << row.why;
    }
}

TEST_F(PagedDocumentTest, ColumnsBeginAtTheRightWhereTextDoes) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    Pages({8, 8}, 2);
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);

    ASSERT_EQ(m_painted.size(), 3U);
    EXPECT_GT(m_painted[1].place.left(), m_painted[2].place.right() - 1);
    EXPECT_EQ(m_painted[2].place.left(), 0);
}

TEST_F(PagedDocumentTest, LayingOutEndsWhereItIsCancelled) {
    PagedDocument document(std::make_unique<FakeItems>(std::vector<int>(100, 8), 1, m_painted), {});
    const auto untilTen = [](int done, int total) {
        EXPECT_EQ(total, 100);
        return done < 10;
    };

    EXPECT_FALSE(document.LayOut(m_recorder, untilTen));
    EXPECT_EQ(document.PageCount(), 10);
}

TEST_F(PagedDocumentTest, APartHigherThanThePageDoesNotHang) {
    class Tall : public FakeItems {
    public:
        using FakeItems::FakeItems;
        void SetPaper(const Paper& paper) override {
            Paper larger = paper;
            larger.area.setHeight(100 * paper.area.height());
            FakeItems::SetPaper(larger);
        }
        qreal HeadingHeight() const override { return 0; }
    };
    PagedDocument document(std::make_unique<Tall>(std::vector<int>{2, 1}, 1, m_painted), {});

    EXPECT_TRUE(document.LayOut(m_recorder, GoOn));
    EXPECT_EQ(document.PageCount(), 3);
}

}  // namespace
}  // namespace orvo::desktop
