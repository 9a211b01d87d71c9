// The columns of a list of to-dos.
// SPDX-License-Identifier: MIT
#include <orvoshare/todo/TodoFixture.h>

namespace orvo {
namespace {

using TodoHeading = TodoFixture;

TEST_F(TodoHeading, APictureColumnHasANameAndAPictureInPlaceOfAHeading) {
    struct Row {
        const char *name, *heading;
        int image;
    };
    constexpr Row kRows[] = {
        {"Description", "Description", -1}, {"Priority", "Pri", -1}, {"Due Date", "Due Date", -1},
        {"Category", "Category", -1},       {"Note", "", 1},         {"Private", "", 0},
        {"Completed Status", "", 2},
    };
    ASSERT_EQ(view->m_aColumns.size(), std::size(kRows));
    for (std::size_t id = 0; id < std::size(kRows); ++id) {
        const COrvoLVColumn& column = view->m_aColumns[id];
        const Row& row = kRows[id];
        EXPECT_EQ(column.strName, row.name);
        EXPECT_EQ(column.strHeading, row.heading);
        EXPECT_EQ(column.nHeadingImage, row.image) << row.name;
        EXPECT_EQ(column.bPictureCell, row.image >= 0) << row.name;
        EXPECT_EQ(column.bPictureHeading, row.image >= 0) << row.name;
        EXPECT_EQ(column.bOptional, id != 0) << row.name;
    }
}

TEST_F(TodoHeading, TheHeadingHasThreeDifferentPictures) {
    const CImageList* images = CImageList::FromHandle(view->GetHeaderCtrl()->GetImageList());
    ASSERT_NE(images, nullptr);
    ASSERT_EQ(images->GetImageCount(), 3);
    EXPECT_EQ(images->ImageSize(), (CSize{16, 16}));
    for (int image = 0; image < 3; ++image) {
        EXPECT_NE(*images->GetImage(image), *images->GetImage((image + 1) % 3)) << image;
    }
}

}  // namespace
}  // namespace orvo
