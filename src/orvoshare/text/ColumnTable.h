// Columns of a list as rows of a table, and the pictures of their headings.
// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include <contracts/ListWidget.h>

namespace orvo {

struct ColumnRow {
    int id;            // 0 for the column that isn't optional
    unsigned name;     // the number of the module's string
    unsigned heading;  // that of the shorter text in the heading; 0 for a heading with a picture
    int width;         // pixels
    int headingImage;  // in the heading's image list; -1 for a heading with text
};

// The column of a row, with its texts in the user's language.
COrvoLVColumn ColumnOfRow(const ColumnRow& row);

// Makes the list of heading pictures from icons of this module.
void MakeHeadingImages(CImageList& images, std::span<const unsigned> icons);

}  // namespace orvo
