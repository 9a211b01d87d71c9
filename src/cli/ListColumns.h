// The columns of a list, as --columns names them and as tables print them.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <cli/Store.h>
#include <contracts/ListWidget.h>
#include <orvoshare/text/ListHeading.h>

namespace orvo::cli {

// What stands for a picture in a table.
constexpr const char* kPictureSign = "*";

// The ids of the columns that --columns names: "all", or ids separated by commas.
// Fails:    CommandError where there is no such column.
std::vector<int> NamedColumns(const COrvoUIListViewCtrl& list, const std::string& names);

// The column of an id that the list has.
const COrvoLVColumn& ColumnOf(const COrvoUIListViewCtrl& list, int id);

// The names of the shown columns, from left to right, behind "Row" and "ID".
std::vector<std::string> TableHeadings(const COrvoUIListViewCtrl& list);

// Sets up the heading as it was saved under the section; where `columns` isn't empty ("default",
// "all", or ids) anew, and saves it.
// Fails:    CommandError.
template <class List>
void SetUpHeading(List& list, const char* section, const std::string& columns) {
    if (columns == "default") {
        list.ShowDefaultHeading();
    } else {
        list.ReadHeaderColumnInfo(section, 0);
    }
    if (columns.empty()) return;
    if (columns != "default") {
        const std::vector<int> ids = NamedColumns(list, columns);
        HideColumns(list);
        ShowColumns(list, ids);
    }
    if (list.WriteHeaderColumnInfo(section) == 0) {
        throw CommandError(kWrongUse, "--columns: the heading can't be saved");
    }
}

}  // namespace orvo::cli
