// The heading of a list: which columns are shown, in which order and width, kept in the profile.
// SPDX-License-Identifier: MIT
#include <vector>

#include <contracts/Profile.h>
#include <contracts/ResourceScope.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/text/HeadingText.h>
#include <orvoshare/text/ListHeading.h>

namespace orvo {

CString HeadingOf(COrvoUIListViewCtrl& list) {
    const CHeaderCtrl* header = list.GetHeaderCtrl();
    const int count = header ? header->GetItemCount() : 0;
    if (count <= 0) return {};
    std::vector<int> order(static_cast<std::size_t>(count));
    list.GetColumnOrderArray(order.data(), count);

    Heading heading;
    for (const int index : order) {
        heading.shown.push_back({list.SubItemFromIndex(index), list.GetColumnWidth(index)});
    }
    for (const COrvoLVColumn& column : list.GetColumns()) {
        if (column.bShown == 0) heading.hidden.push_back({column.nId, column.nWidth});
    }
    return FormatHeading(heading);
}

int ShowHeading(COrvoUIListViewCtrl& list, const CString& text) {
    const Heading heading = ParseHeading(text);
    if (heading.shown.empty()) return 0;
    for (const HeadingColumn& column : heading.shown) list.ShowColumn(column.id, column.width);
    for (const HeadingColumn& column : heading.hidden) {
        list.RememberWidth(column.id, column.width);
    }
    return 1;
}

void HideColumns(COrvoUIListViewCtrl& list) {
    for (const int id : list.GetShownColumns()) list.HideColumn(id);
}

void ShowColumns(COrvoUIListViewCtrl& list, std::span<const int> ids) {
    for (const int id : ids) list.ShowColumn(id, -1);
}

int ReadHeading(COrvoUIListViewCtrl& list, const char* section, const char* key,
                std::span<const int> defaultIds) {
    if (!section) return 0;
    const CDllResourceHandler resources(OrvoShareRecord());
    const CString text = OUIGetProfileString(section, key, nullptr);
    if (!text.IsEmpty()) return ShowHeading(list, text);
    ShowColumns(list, defaultIds);
    return 1;
}

int WriteHeading(COrvoUIListViewCtrl& list, const char* section, const char* key) {
    const CDllResourceHandler resources(OrvoShareRecord());
    const CString text = HeadingOf(list);
    if (!section || text.IsEmpty()) return 0;
    return OUIWriteProfileString(section, key, text);
}

}  // namespace orvo
