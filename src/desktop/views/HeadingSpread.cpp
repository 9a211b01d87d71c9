// Columns that fill their list, as long as the user leaves the heading as it comes.
// SPDX-License-Identifier: MIT
#include <desktop/views/HeadingSpread.h>
#include <orvoshare/text/ListHeading.h>

namespace orvo::desktop {

HeadingSpread::HeadingSpread(COrvoUIListViewCtrl& list) : m_list(list), m_heading(HeadingOf(list)) {
    for (const COrvoLVColumn& column : list.GetColumns()) {
        if (column.bShown != 0)
            m_defaults.push_back({column.nId, column.nWidth, column.bPictureCell == 0});
    }
}

bool HeadingSpread::IsChanged() {
    return HeadingOf(m_list) != m_heading;
}

void HeadingSpread::FillWidth(int width) {
    if (IsChanged()) return;
    int textWidth = 0;
    int otherWidth = 0;
    for (const DefaultWidth& column : m_defaults) {
        (column.isOfText ? textWidth : otherWidth) += column.width;
    }
    const int room = width - otherWidth;
    if (room < textWidth) return;
    for (const DefaultWidth& column : m_defaults) {
        if (column.isOfText) m_list.ShowColumn(column.id, column.width * room / textWidth);
    }
    m_heading = HeadingOf(m_list);
}

}  // namespace orvo::desktop
