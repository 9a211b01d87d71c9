// Columns that fill their list, as long as the user leaves the heading as it comes.
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <contracts/ListWidget.h>

namespace orvo::desktop {

class HeadingSpread {
public:
    // The list, which outlives this, shows its default heading now.
    explicit HeadingSpread(COrvoUIListViewCtrl& list);

    // Widens the columns of text in proportion, so that all columns together have that width in
    // pixels. Does nothing once the heading is another one, or where there is no room.
    void FillWidth(int width);

    // True once the heading is the user's, by a saved one or by his hand.
    bool IsChanged();

private:
    struct DefaultWidth {
        int id;
        int width;
        bool isOfText;
    };

    COrvoUIListViewCtrl& m_list;
    std::vector<DefaultWidth> m_defaults;
    CString m_heading;  // as it was left here last
};

}  // namespace orvo::desktop
