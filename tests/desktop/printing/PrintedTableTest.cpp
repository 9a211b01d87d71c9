// What stands on a page of rows and of cards.
// SPDX-License-Identifier: MIT
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include <desktop/printing/PagedDocument.h>
#include <desktop/printing/PrintedCards.h>
#include <desktop/printing/PrintedTable.h>
#include <desktop/printing/TextRecorder.h>

namespace orvo::desktop {
namespace {

std::vector<PrintedColumn> TwoColumns() {
    return {{"Name", PrintedMark::None, 100, true}, {"Company", PrintedMark::None, 200, false}};
}

// All pages, one behind the other.
Painting Painted(std::unique_ptr<PrintedItems> items) {
    TextRecorder recorder;
    PagedDocument document(std::move(items), {});
    EXPECT_TRUE(document.LayOut(recorder, GoOn));
    QPainter painter(&recorder);
    for (int page = 0; page < document.PageCount(); ++page) document.PaintPage(painter, page);
    return recorder.painting;
}

Painting PaintedRows(std::vector<PrintedColumn> columns, const std::vector<PrintedRow>& rows) {
    const int count = static_cast<int>(rows.size());
    return Painted(std::make_unique<PrintedTable>(std::move(columns), count, [rows](int row) {
        return rows[static_cast<std::size_t>(row)];
    }));
}

Painting PaintedCards(const PrintedCard& card, int count) {
    return Painted(std::make_unique<PrintedCards>(count, 0, [card](int) { return card; }));
}

int CountOf(const Painting& painting, const QString& text) {
    return static_cast<int>(painting.Words().count(text));
}

TEST(PrintedTable, ALongCellLosesNothing) {
    const QString word = "word ";
    const PrintedRow row{.cells = {{word.repeated(3000)}, {QString("x").repeated(2000)}}};

    const Painting painting = PaintedRows(TwoColumns(), {row, {.cells = {{"last"}, {}}}});

    EXPECT_EQ(painting.Words().count('w'), 3000);
    EXPECT_EQ(painting.Words().count('x'), 2000);
    EXPECT_GT(CountOf(painting, "Company"), 1) << "the heading stands on each of the pages";
    EXPECT_EQ(CountOf(painting, "last"), 1);
}

TEST(PrintedTable, AMaskedRowTellsNothingButItsPlace) {
    const PrintedRow masked{.isMasked = true, .cells = {{"secret"}, {"secret"}}};
    const PrintedRow longer{.isMasked = true, .cells = {{QString("secret ").repeated(50)}, {}}};

    const Painting one = PaintedRows(TwoColumns(), {masked});
    const Painting other = PaintedRows(TwoColumns(), {longer});

    EXPECT_EQ(CountOf(one, "secret"), 0);
    EXPECT_EQ(one.areas, other.areas);
    EXPECT_GT(one.areas.size(), PaintedRows(TwoColumns(), {}).areas.size());
}

TEST(PrintedTable, AClosedColumnIsLeftOut) {
    std::vector<PrintedColumn> columns = TwoColumns();
    columns[1].width = 1;

    const Painting painting = PaintedRows(columns, {{.cells = {{"seen"}, {"closed"}}}});

    EXPECT_EQ(CountOf(painting, "seen"), 1);
    EXPECT_EQ(CountOf(painting, "closed"), 0);
    EXPECT_EQ(CountOf(painting, "Company"), 0);
}

TEST(PrintedTable, AColumnGetsWhatOthersHaveToSpare) {
    const QString name = "A name as wide as half of the page or so, and still in one line";
    std::vector<PrintedColumn> columns = TwoColumns();
    columns.push_back({"Place", PrintedMark::None, 100, false});

    const Painting painting =
        PaintedRows(columns, {{.cells = {{name}, {"Acme"}, {QString("endless ").repeated(200)}}}});

    EXPECT_EQ(CountOf(painting, name), 1);
}

TEST(PrintedTable, LineEndsAndTabsAreBlanks) {
    const PrintedRow row{.cells = {{QString("a\r\nb\tc") + QChar(1) + "d"}, {}}};

    EXPECT_EQ(CountOf(PaintedRows(TwoColumns(), {row}), "a b c d"), 1);
}

TEST(PrintedCards, CardsStandInTwoColumnsOnA4) {
    PrintedCard card;
    card.title = "title";

    const Painting painting = PaintedCards(card, 100);

    int atLeft = 0;
    int atRight = 0;
    for (const PaintedText& painted : painting.texts) {
        if (painted.text != "title") continue;
        ++(painted.place.x() < kRecordedWidth / 2.0 ? atLeft : atRight);
    }
    EXPECT_EQ(atLeft + atRight, 100);
    EXPECT_GT(atRight, 0);
}

}  // namespace
}  // namespace orvo::desktop
