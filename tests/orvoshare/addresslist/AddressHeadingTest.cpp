// The heading of an address list: its columns, by default, saved and read back.
// SPDX-License-Identifier: MIT
#include <contracts/Profile.h>
#include <orvoshare/addresslist/AddressListFixture.h>
#include <orvoshare/text/ListHeading.h>

namespace orvo {
namespace {

using testing::ElementsAre;

constexpr const char* kSection = "List";
constexpr const char* kKey = "AddressHeading";

class AddressHeading : public AddressListFixture {
protected:
    static void Save(const char* text) {
        EXPECT_NE(OUIWriteProfileString(kSection, kKey, text), 0);
    }
    static CString Saved() { return OUIGetProfileString(kSection, kKey, nullptr); }

    const COrvoLVColumn& Column(int id) {
        for (const COrvoLVColumn& column : list->m_aColumns) {
            if (column.nId == id) return column;
        }
        ADD_FAILURE() << id;
        return list->m_aColumns.front();
    }
};

TEST_F(AddressHeading, TheColumnsStandInTheirOrder) {
    struct Row {
        int id;
        const char* name;
        int width;
        int image;
    };
    constexpr Row kRows[] = {
        {0, "Name", 180, -1},     {1, "Title", 180, -1},     {2, "Company", 180, -1},
        {3, "Category", 110, -1}, {4, "Note", 29, 1},        {5, "Private", 29, 0},
        {6, "Address", 180, -1},  {7, "Primary", 110, -1},   {8, "Custom 1", 110, -1},
        {9, "Custom 2", 110, -1}, {10, "Custom 3", 110, -1}, {11, "Custom 4", 110, -1},
        {17, "Mobile", 110, -1},  {18, "Home", 110, -1},     {19, "Work", 110, -1},
        {20, "Fax", 110, -1},     {21, "E-mail", 110, -1},   {22, "Web", 110, -1},
        {23, "Pager", 110, -1},   {24, "Other", 110, -1},
    };
    ASSERT_EQ(list->m_aColumns.size(), std::size(kRows));
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        const Row& row = kRows[i];
        const COrvoLVColumn& column = list->m_aColumns[i];
        const bool isPicture = row.image >= 0;
        EXPECT_EQ(column.nId, row.id);
        EXPECT_EQ(column.strName, row.name);
        EXPECT_EQ(column.strHeading, isPicture ? "" : row.name) << row.name;
        EXPECT_EQ(column.nWidth, row.width) << row.name;
        EXPECT_EQ(column.nHeadingImage, row.image) << row.name;
        EXPECT_EQ(column.bPictureCell, isPicture) << row.name;
        EXPECT_EQ(column.bPictureHeading, isPicture) << row.name;
        EXPECT_EQ(column.bOptional, row.id != 0) << row.name;
        EXPECT_EQ(column.bShown, 0) << row.name;
    }
}

TEST_F(AddressHeading, APhoneLabelLosesItsColonsAndACustomLabelKeepsThem) {
    addresses.table.SetPhoneLabel(2, ":Work::");
    addresses.table.SetCustomLabel(1, "Born:");
    list = NewList();

    EXPECT_EQ(Column(AddressColumn::FirstPhone + 2).strHeading, "Work");
    EXPECT_EQ(Column(AddressColumn::FirstPhone + 2).strName, "Work");
    EXPECT_EQ(Column(AddressColumn::FirstCustom).strHeading, "Born:");
}

TEST_F(AddressHeading, WithNothingSavedTheDefaultIsShown) {
    struct Row {
        int companyLast;
        const char* shown;
    };
    constexpr Row kRows[] = {{0, "(6) 0 180 2 180 7 110 3 110 5 29 4 29"},
                             {1, "(6) 0 180 7 110 3 110 5 29 4 29 2 180"}};
    constexpr const char* kHidden =
        " (14) 1 180 6 180 8 110 9 110 10 110 11 110 17 110 18 110 19 110 20 110 21 110 22 110 "
        "23 110 24 110";
    for (const Row& row : kRows) {
        list = NewList();
        EXPECT_EQ(list->ReadHeaderColumnInfo(kSection, row.companyLast), 1);
        EXPECT_EQ(HeadingOf(*list), CString(row.shown) + kHidden);
    }
    EXPECT_EQ(Saved(), "") << "reading writes nothing";
}

TEST_F(AddressHeading, ReadingAndWritingGivesTheSameText) {
    constexpr const char* kTexts[] = {
        "(2) 0 200 3 90 (18) 1 181 2 182 4 30 5 31 6 186 7 107 8 108 9 109 10 110 11 111 17 117 "
        "18 118 19 119 20 120 21 121 22 122 23 123 24 124",
        "(20) 24 8 23 4000 22 30 21 31 20 32 19 33 18 34 17 35 11 36 10 37 9 38 8 39 7 40 6 41 5 "
        "42 4 43 3 44 2 45 1 46 0 47 (0)",
    };
    for (const char* text : kTexts) {
        Save(text);
        list = NewList();
        EXPECT_EQ(list->ReadHeaderColumnInfo(kSection, 0), 1);
        Save("spoilt");
        EXPECT_NE(list->WriteHeaderColumnInfo(kSection), 0);
        EXPECT_EQ(Saved(), text);
    }
}

TEST_F(AddressHeading, WhatTheUserDidToTheColumnsIsSaved) {
    list->ReadHeaderColumnInfo(kSection, 0);

    list->SetColumnWidth(list->IndexOf(AddressColumn::Category), 77);
    list->SetColumnWidth(list->IndexOf(AddressColumn::Company), 250);
    list->HideColumn(AddressColumn::Company);
    const int order[] = {4, 0, 1, 2, 3};
    ASSERT_TRUE(list->SetColumnOrderArray(5, order));
    list->WriteHeaderColumnInfo(kSection);

    EXPECT_TRUE(Saved().View().starts_with("(5) 4 29 0 180 7 110 3 77 5 29 (15) 1 180 2 250 "))
        << Saved().View();
    list = NewList();
    list->ReadHeaderColumnInfo(kSection, 0);
    EXPECT_EQ(HeadingOf(*list), Saved());
    list->ShowColumn(AddressColumn::Company, -1);
    EXPECT_EQ(list->GetColumnWidth(list->IndexOf(AddressColumn::Company)), 250);
}

TEST_F(AddressHeading, AnUnsoundTextShowsWhatItNamesAndHarmsNothing) {
    struct Row {
        const char* why;
        const char* text;
        int result;
        const char* shown;
        int companyWidth;
    };
    constexpr Row kRows[] = {
        {"no columns", "(0)", 0, "", 180},
        {"no number", "what's this?", 0, "", 180},
        {"nothing behind the count", "(3)", 0, "", 180},
        {"an id that no column has", "(2) 99 100 0 200 (1) 98 50", 1, "(1) 0 200", 180},
        {"a phone column that is gone", "(2) 25 100 0 200 (0)", 1, "(1) 0 200", 180},
        {"a column named twice is shown once", "(3) 0 100 3 90 0 200 (0)", 1, "(2) 0 200 3 90",
         180},
        {"widths beyond all measure", "(2) 0 99999 3 -7 (1) 2 -5", 1, "(2) 0 4000 3 0", 0},
        {"a hidden width beyond all measure", "(1) 0 200 (1) 2 99999", 1, "(1) 0 200", 4000},
        {"cut in the middle", "(6) 0 200 3 90 7", 1, "(2) 0 200 3 90", 180},
        {"a column both shown and hidden is shown", "(1) 2 90 (1) 2 70", 1, "(1) 2 90", 70},
        {"a count beyond all measure", "(2147483647) 0 200", 1, "(1) 0 200", 180},
    };
    for (const Row& row : kRows) {
        Save(row.text);
        list = NewList();
        EXPECT_EQ(list->ReadHeaderColumnInfo(kSection, 0), row.result) << row.why;
        const CString text = HeadingOf(*list);
        EXPECT_EQ(text.Left(text.Find(" (")), row.shown) << row.why;
        EXPECT_EQ(Column(AddressColumn::Company).nWidth, row.companyWidth) << row.why;
        EXPECT_EQ(Saved(), row.text) << row.why;
    }
}

TEST_F(AddressHeading, NothingIsSavedOfNoHeading) {
    Save("as it was");
    EXPECT_EQ(list->WriteHeaderColumnInfo(kSection), 0) << "no column is shown";
    EXPECT_EQ(HeadingOf(*list), "");

    EXPECT_EQ(list->ReadHeaderColumnInfo(nullptr, 0), 0);
    EXPECT_EQ(HeadingOf(*list), "");

    list->ShowColumn(AddressColumn::Name, -1);
    EXPECT_EQ(list->WriteHeaderColumnInfo(nullptr), 0);
    list->DestroyWindow();
    EXPECT_EQ(list->WriteHeaderColumnInfo(kSection), 0) << "no window";
    EXPECT_EQ(Saved(), "as it was");
}

TEST_F(AddressHeading, CustomLabelsAreRefreshedShownAndHidden) {
    ShowHeading(*list, "(2) 9 77 17 90 (1) 10 66");
    addresses.table.SetCustomLabel(2, "Born");
    addresses.table.SetCustomLabel(3, "Hobby");
    addresses.table.SetPhoneLabel(0, "Cell");
    list->RefreshCustomLabels();

    const CString heading = [this](int column) {
        LVCOLUMN content;
        char text[20] = "";
        content.mask = LVCF_TEXT;
        content.pszText = text;
        content.cchTextMax = sizeof text;
        list->SendMessage(LVM_GETCOLUMN, static_cast<WPARAM>(column), LParamOf(&content));
        return CString(text);
    }(list->IndexOf(9));
    EXPECT_EQ(heading, "Born");
    EXPECT_EQ(Column(10).strHeading, "Hobby");
    EXPECT_EQ(Column(10).nWidth, 66);
    EXPECT_EQ(Column(AddressColumn::FirstPhone).strHeading, "Mobile");
}

}  // namespace
}  // namespace orvo
