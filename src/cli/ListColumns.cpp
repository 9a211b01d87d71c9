// The columns of a list, as --columns names them and as tables print them.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>

#include <fmt/format.h>

#include <cli/AddressFields.h>
#include <cli/ListColumns.h>

namespace orvo::cli {
namespace {

const COrvoLVColumn* FindColumn(const COrvoUIListViewCtrl& list, int id) {
    const auto& columns = list.GetColumns();
    const auto found = std::ranges::find(columns, id, &COrvoLVColumn::nId);
    return found == columns.end() ? nullptr : &*found;
}

[[noreturn]] void ThrowUnknownColumn(const COrvoUIListViewCtrl& list, std::string_view id) {
    std::string known;
    for (const COrvoLVColumn& column : list.GetColumns()) {
        known +=
            fmt::format("{}{} {}", known.empty() ? "" : ", ", column.nId, ToUtf8(column.strName));
    }
    throw CommandError(
        kWrongUse, fmt::format("--columns: there is no column \"{}\": there are {}", id, known));
}

int NamedColumn(const COrvoUIListViewCtrl& list, std::string_view name) {
    int id = -1;
    const char* end = name.data() + name.size();
    const auto [behind, error] = std::from_chars(name.data(), end, id);
    if (error != std::errc() || behind != end || FindColumn(list, id) == nullptr) {
        ThrowUnknownColumn(list, name);
    }
    return id;
}

}  // namespace

std::vector<int> NamedColumns(const COrvoUIListViewCtrl& list, const std::string& names) {
    std::vector<int> ids;
    if (names == "all") {
        for (const COrvoLVColumn& column : list.GetColumns()) ids.push_back(column.nId);
        return ids;
    }
    for (std::size_t start = 0; start <= names.size();) {
        const std::size_t end = std::min(names.find(',', start), names.size());
        ids.push_back(NamedColumn(list, std::string_view(names).substr(start, end - start)));
        start = end + 1;
    }
    return ids;
}

const COrvoLVColumn& ColumnOf(const COrvoUIListViewCtrl& list, int id) {
    const COrvoLVColumn* column = FindColumn(list, id);
    if (column == nullptr) {
        throw CommandError(kWrongUse, fmt::format("the list has no column {}", id));
    }
    return *column;
}

std::vector<std::string> TableHeadings(const COrvoUIListViewCtrl& list) {
    std::vector<std::string> headings{"Row", "ID"};
    for (const int id : list.GetShownColumns()) {
        headings.push_back(ToUtf8(ColumnOf(list, id).strName));
    }
    return headings;
}

}  // namespace orvo::cli
