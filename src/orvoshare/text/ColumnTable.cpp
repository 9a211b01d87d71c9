// Columns of a list as rows of a table, and the pictures of their headings.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/text/ColumnTable.h>
#include <platform/window/base/Icon.h>

namespace orvo {
namespace {

constexpr int kPictureSize = 16;

}  // namespace

COrvoLVColumn ColumnOfRow(const ColumnRow& row) {
    const bool hasPicture = row.headingImage >= 0;
    COrvoLVColumn column;
    column.nId = row.id;
    column.nWidth = row.width;
    column.bPictureCell = hasPicture;
    column.bOptional = row.id != 0;
    column.bPictureHeading = hasPicture;
    column.nHeadingImage = row.headingImage;
    column.strName = OrvoShareText(row.name);
    if (!hasPicture) column.strHeading = OrvoShareText(row.heading);
    return column;
}

void MakeHeadingImages(CImageList& images, std::span<const unsigned> icons) {
    const int count = static_cast<int>(icons.size());
    if (!images.Create(kPictureSize, kPictureSize, ILC_MASK, count, 1)) return;
    const CDllResourceHandler resources(OrvoShareRecord());
    for (const unsigned number : icons) {
        Icon icon;
        LoadIcon(number, icon);
        images.Add(icon.picture, icon.clear);
    }
}

}  // namespace orvo
