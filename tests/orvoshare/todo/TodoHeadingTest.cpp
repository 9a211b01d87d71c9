// The heading of a list of to-dos: its columns and pictures, by default, saved and read back.
// SPDX-License-Identifier: MIT
#include <contracts/Profile.h>
#include <orvoshare/text/ListHeading.h>
#include <orvoshare/todo/TodoWindow.h>

namespace orvo {
namespace {

constexpr const char* kSection = "To Do";
constexpr const char* kKey = "ToDoHeading";
constexpr const char* kDefault = "(7) 6 29 1 30 0 330 2 65 3 110 4 29 5 29 (0)";

class TodoHeading : public TodoWindowTest {
protected:
    // Set up as a host does, but for the heading.
    std::unique_ptr<TodoWindowList> Bare() {
        auto made = std::make_unique<TodoWindowList>();
        made->Create(LVS_REPORT, {0, 0, 700, 400}, nullptr, 0);
        EXPECT_EQ(made->Initialize(), 1);
        return made;
    }
};

TEST_F(TodoHeading, TheColumnsStandInTheirOrder) {
    struct Row {
        const char* name;
        int width;
        int image;
        const char* heading;
    };
    constexpr Row kRows[] = {
        {"Description", 330, -1, "Description"},
        {"Priority", 30, -1, "Pri"},
        {"Due Date", 65, -1, "Due Date"},
        {"Category", 110, -1, "Category"},
        {"Note", 29, 1, ""},
        {"Private", 29, 0, ""},
        {"Completed Status", 29, 2, ""},
    };
    view = Bare();
    ASSERT_EQ(view->m_aColumns.size(), std::size(kRows));
    int id = 0;
    for (const Row& row : kRows) {
        const COrvoLVColumn& column = view->m_aColumns[static_cast<std::size_t>(id)];
        EXPECT_EQ(column.nId, id);
        EXPECT_EQ(column.strName, row.name);
        EXPECT_EQ(column.strHeading, row.heading);
        EXPECT_EQ(column.nWidth, row.width) << row.name;
        EXPECT_EQ(column.nHeadingImage, row.image) << row.name;
        EXPECT_EQ(column.bPictureCell, row.image >= 0) << row.name;
        EXPECT_EQ(column.bPictureHeading, row.image >= 0) << row.name;
        EXPECT_EQ(column.bOptional, id != 0) << row.name;
        EXPECT_EQ(column.bShown, 0) << row.name;
        ++id;
    }
}

TEST_F(TodoHeading, TheHeadingHasThreeDifferentPictures) {
    const CImageList* images = CImageList::FromHandle(view->GetHeaderCtrl()->GetImageList());
    ASSERT_NE(images, nullptr);
    ASSERT_EQ(images->GetImageCount(), 3);
    EXPECT_EQ(images->ImageSize(), (CSize{16, 16}));
    EXPECT_NE(*images->GetImage(0), *images->GetImage(1));
    EXPECT_NE(*images->GetImage(1), *images->GetImage(2));
    EXPECT_NE(*images->GetImage(2), *images->GetImage(0));
}

TEST_F(TodoHeading, WithNothingSavedTheDefaultIsShown) {
    for (const int unread : {0, 1}) {
        view = Bare();
        EXPECT_EQ(view->ReadHeaderColumnInfo(kSection, unread), 1);
        EXPECT_EQ(HeadingOf(*view), kDefault);
    }
    EXPECT_EQ(OUIGetProfileString(kSection, kKey, nullptr), "") << "reading writes nothing";
}

TEST_F(TodoHeading, AHeadingComesBackAsItWasSaved) {
    view->HideColumn(TodoColumn::Category);
    view->SetColumnWidth(view->IndexOf(TodoColumn::Description), 200);
    const CString before = HeadingOf(*view);
    ASSERT_NE(before, kDefault);
    EXPECT_NE(view->WriteHeaderColumnInfo(kSection), 0);
    EXPECT_EQ(OUIGetProfileString(kSection, kKey, nullptr), before);

    view = Bare();
    EXPECT_EQ(view->ReadHeaderColumnInfo(kSection, 0), 1);
    EXPECT_EQ(HeadingOf(*view), before);
}

TEST_F(TodoHeading, WithoutSectionColumnsOrNumberNothingIsReadOrWritten) {
    view = Bare();
    EXPECT_EQ(view->ReadHeaderColumnInfo(nullptr, 0), 0);
    EXPECT_EQ(view->WriteHeaderColumnInfo(nullptr), 0);
    ASSERT_NE(OUIWriteProfileString(kSection, kKey, "(0) 1 2"), 0);
    EXPECT_EQ(view->ReadHeaderColumnInfo(kSection, 0), 0);
    EXPECT_TRUE(view->GetShownColumns().empty());
    EXPECT_EQ(view->WriteHeaderColumnInfo(kSection), 0);
    EXPECT_EQ(OUIGetProfileString(kSection, kKey, nullptr), "(0) 1 2") << "what was saved stays";
}

}  // namespace
}  // namespace orvo
