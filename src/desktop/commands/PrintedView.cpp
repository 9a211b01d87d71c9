// What a view shows, for paper: the same texts and marks, and nothing of masked entries.
// SPDX-License-Identifier: MIT
#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <numeric>
#include <span>
#include <utility>

#include <desktop/commands/PrintedView.h>
#include <desktop/printing/PrintedCards.h>
#include <desktop/printing/PrintedTable.h>
#include <desktop/texts/Texts.h>
#include <platform/qt/QtConvert.h>
#include <platform/text/SystemLocale.h>
#include <platform/time/CTime.h>

namespace orvo::desktop {
namespace {

struct ColumnMark {
    int id;
    PrintedMark mark;  // where the entry is so
    PrintedMark otherwise = PrintedMark::None;
};
constexpr ColumnMark kAddressMarks[] = {{AddressColumn::Note, PrintedMark::Note},
                                        {AddressColumn::Private, PrintedMark::Padlock}};
constexpr ColumnMark kToDoMarks[] = {
    {TodoColumn::Note, PrintedMark::Note},
    {TodoColumn::Private, PrintedMark::Padlock},
    {TodoColumn::Completed, PrintedMark::CheckedBox, PrintedMark::OpenBox}};

ColumnMark MarkOf(std::span<const ColumnMark> marks, int id) {
    const auto row = std::ranges::find(marks, id, &ColumnMark::id);
    return row == marks.end() ? ColumnMark{id, PrintedMark::None} : *row;
}

int WidthOf(const COrvoUIListViewCtrl& list, int id, std::size_t columnCount) {
    for (int column = 0; column < static_cast<int>(columnCount); ++column) {
        if (list.SubItemFromIndex(column) == id) return list.GetColumnWidth(column);
    }
    return 0;
}

std::vector<PrintedColumn> ColumnsOf(const COrvoUIListViewCtrl& list,
                                     std::span<const ColumnMark> marks) {
    const std::vector<COrvoLVColumn>& known = list.GetColumns();
    const std::vector<int> shown = list.GetShownColumns();
    std::vector<PrintedColumn> columns;
    for (const int id : shown) {
        const auto column = std::ranges::find(known, id, &COrvoLVColumn::nId);
        if (column == known.end()) continue;
        columns.push_back({ToQt(column->strHeading.View()), MarkOf(marks, id).mark,
                           WidthOf(list, id, shown.size()), id == known.front().nId});
    }
    return columns;
}

PrintedCell AddressCellOf(CDetailViewAddrList& list, DWORD data, int id) {
    const AddressCell cell = list.GetCell(RecordOf(data), id);
    return {ToQt(cell.text.View()),
            cell.picture ? MarkOf(kAddressMarks, id).mark : PrintedMark::None};
}

PrintedCell ToDoCellOf(CTodoListbox& list, DWORD data, int id) {
    const TodoCell cell = list.GetCell(ToDoOf(data), id, false);
    const ColumnMark mark = MarkOf(kToDoMarks, id);
    return {ToQt(cell.text.View()), cell.picture ? mark.mark : mark.otherwise, cell.isOverdue};
}

// The columns as they are now.
template <class List>
std::unique_ptr<PrintedItems> TableOf(List& list, std::span<const ColumnMark> marks,
                                      PrintedCell (*cellOf)(List&, DWORD, int),
                                      std::vector<int> rows) {
    const int count = static_cast<int>(rows.size());
    return std::make_unique<PrintedTable>(
        ColumnsOf(list, marks), count,
        [&list, cellOf, rows = std::move(rows), ids = list.GetShownColumns()](int index) {
            const DWORD data = list.GetItemData(rows[static_cast<std::size_t>(index)]);
            PrintedRow row;
            if (data == 0) return row;
            row.isMasked = list.IsRowMasked(data);
            if (row.isMasked) return row;
            for (const int id : ids) row.cells.push_back(cellOf(list, data, id));
            return row;
        });
}

PrintedCardLine CardLineOf(const QString& line) {
    using Kind = PrintedCardLine::Kind;
    if (line.isEmpty()) return {Kind::Space, {}, {}};
    if (line == kCardRule) return {Kind::Rule, {}, {}};
    const qsizetype tab = line.indexOf('\t');
    if (tab < 0) return {Kind::Text, {}, line};
    return {Kind::Value, line.left(tab), line.mid(tab + 1)};
}

PrintedCard CardOf(CDetailViewAddrCard& view, int row) {
    CCardDesc description;
    view.GetCardDescription(row, description);
    PrintedCard card;
    card.isMasked = description.bMasked != 0;
    if (card.isMasked) return card;
    card.title = ToQt(description.strTitle.View());
    card.category = ToQt(description.strCategory.View());
    card.isPrivate = description.bPrivate != 0;
    card.hasNote = description.bHasNote != 0;
    QStringList lines = ToQt(description.strBody.View()).split('\n');
    while (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
    for (const QString& line : std::as_const(lines)) card.lines.push_back(CardLineOf(line));
    return card;
}

QString CategoryName(ViewFrame& frame) {
    CCategoryMgr* categories = frame.Entries().Table().GetCategoryManager();
    CCategory* category = nullptr;
    for (categories->FindFirst(category); category; categories->FindNext(category)) {
        if (category->GetIndex() == frame.Entries().Category())
            return FromUtf8(category->ShownUtf8());
    }
    return {};
}

}  // namespace

std::vector<int> AllRows(ViewFrame& frame) {
    std::vector<int> rows(static_cast<std::size_t>(frame.Entries().RowCount()));
    std::iota(rows.begin(), rows.end(), 0);
    return rows;
}

std::vector<int> SelectedRows(ViewFrame& frame) {
    std::vector<int> rows;
    const auto* peer = dynamic_cast<const ListPeer*>(frame.Entries().Window().GetPeer());
    for (int row = peer ? peer->NextSelected(-1) : -1; row >= 0; row = peer->NextSelected(row)) {
        rows.push_back(row);
    }
    return rows;
}

std::unique_ptr<PrintedItems> ItemsOf(ViewFrame& frame, std::vector<int> rows) {
    CWnd& view = frame.Entries().Window();
    if (auto* cards = dynamic_cast<CDetailViewAddrCard*>(&view)) {
        const int count = static_cast<int>(rows.size());
        return std::make_unique<PrintedCards>(
            count, cards->GetTabStop(), [cards, rows = std::move(rows)](int index) {
                return CardOf(*cards, rows[static_cast<std::size_t>(index)]);
            });
    }
    if (auto* toDos = dynamic_cast<CTodoListbox*>(&view)) {
        return TableOf(*toDos, kToDoMarks, ToDoCellOf, std::move(rows));
    }
    return TableOf(dynamic_cast<CDetailViewAddrList&>(view), kAddressMarks, AddressCellOf,
                   std::move(rows));
}

PageTitle TitleOf(ViewFrame& frame) {
    const bool isOfToDos = frame.IsShowingToDos();
    const QString category = CategoryName(frame);
    QString name = isOfToDos ? Text("To-dos") : Text("Addresses");
    if (!category.isEmpty()) {
        name =
            (isOfToDos ? Text("To-dos of the category %1") : Text("Addresses of the category %1"))
                .arg(category);
    }
    const QLocale locale(QString::fromStdString(SystemLocale::Tag()));
    const QDateTime now = QDateTime::fromSecsSinceEpoch(CTime::GetCurrentTime().GetTime());
    return {name, locale.toString(now.date(), QLocale::LongFormat)};
}

}  // namespace orvo::desktop
