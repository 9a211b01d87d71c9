// The pictures of an address list, and its rows as icons.
// SPDX-License-Identifier: MIT
#include <set>

#include <orvoshare/addresslist/AddressListFixture.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

using enum AddressField;

constexpr COLORREF kBlue = RGB(0, 0, 0xFF);
constexpr COLORREF kMagenta = RGB(0xFF, 0, 0xFF);

std::set<COLORREF> ColoursOf(const CImageList& images, int index) {
    std::set<COLORREF> colours;
    const CSize size = images.ImageSize();
    for (int y = 0; y < size.cy; ++y) {
        for (int x = 0; x < size.cx; ++x) {
            colours.insert(images.GetImage(index)->GetPixel({x, y}));
        }
    }
    return colours;
}

class AddressImages : public AddressListFixture {
protected:
    CImageList* HeadingImages() {
        return CImageList::FromHandle(list->GetHeaderCtrl()->GetImageList());
    }
};

TEST_F(AddressImages, EachModeGetsItsPictures) {
    EXPECT_NE(list->GetImageList(LVSIL_SMALL), nullptr) << "since Initialize";
    EXPECT_EQ(list->GetImageList(LVSIL_NORMAL), nullptr);
    EXPECT_EQ(HeadingImages(), nullptr);

    EXPECT_NE(list->SetViewMode(kLargeIconView), 0);
    EXPECT_NE(list->SetViewMode(kReportView), 0);
    EXPECT_EQ(list->SetViewMode(7), 0);

    struct Row {
        const CImageList* images;
        int size;
        int count;
    };
    const Row rows[] = {{list->GetImageList(LVSIL_NORMAL), 32, 3},
                        {list->GetImageList(LVSIL_SMALL), 16, 3},
                        {HeadingImages(), 16, 2}};
    for (const Row& row : rows) {
        ASSERT_NE(row.images, nullptr) << row.size;
        EXPECT_EQ(row.images->ImageSize(), (CSize{row.size, row.size}));
        EXPECT_EQ(row.images->GetImageCount(), row.count);
    }
}

TEST_F(AddressImages, RowPicturesTakeTheIconColourInPlaceOfBlue) {
    constexpr COLORREF kIcons = RGB(1, 2, 3);
    system.SetColour(COLOR_HIGHLIGHT, kIcons);
    list = NewList();
    list->SetViewMode(kLargeIconView);
    bool isUsed = false;
    for (const int use : {LVSIL_NORMAL, LVSIL_SMALL}) {
        const CImageList& images = *list->GetImageList(use);
        for (int index = 0; index < images.GetImageCount(); ++index) {
            const std::set<COLORREF> colours = ColoursOf(images, index);
            EXPECT_EQ(colours.count(kBlue), 0U) << index;
            EXPECT_EQ(images.GetMask(index), kMagenta);
            isUsed = isUsed || colours.count(kIcons) != 0;
        }
    }
    EXPECT_TRUE(isUsed);
}

TEST_F(AddressImages, AChangeOfColoursReachesTheIconsAtOnceAndAfterAReportLater) {
    constexpr COLORREF kFirst = RGB(1, 2, 3);
    constexpr COLORREF kSecond = RGB(4, 5, 6);
    const auto has = [this](int use, COLORREF colour) {
        const CImageList* images = list->GetImageList(use);
        return images && ColoursOf(*images, 0).count(colour) != 0;
    };
    list->SetViewMode(kLargeIconView);
    system.SetColour(COLOR_HIGHLIGHT, kFirst);
    list->SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_TRUE(has(LVSIL_NORMAL, kFirst));

    list->SetViewMode(kSmallIconView);
    system.SetColour(COLOR_HIGHLIGHT, kSecond);
    list->SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_TRUE(has(LVSIL_SMALL, kSecond));

    list->SetViewMode(kReportView);
    system.SetColour(COLOR_HIGHLIGHT, kFirst);
    list->SendMessage(WM_SYSCOLORCHANGE);
    list->SetViewMode(kSmallIconView);
    EXPECT_TRUE(has(LVSIL_SMALL, kFirst));
    list->SetViewMode(kLargeIconView);
    EXPECT_TRUE(has(LVSIL_NORMAL, kFirst));
}

TEST_F(AddressImages, AListOfNoSizeIsNotMade) {
    CClientDC dc(list.get());
    int ids[] = {1004};
    EXPECT_EQ(list->CreateListViewIconImageList(&dc, ids, 1, 0), nullptr);
}

class AddressIcons : public AddressImages {
protected:
    // What the control gets to see of the first row.
    struct Answer {
        int image;
        CString text;
    };
    Answer Ask(UINT mask = LVIF_TEXT | LVIF_IMAGE, int room = 260) {
        std::string buffer(static_cast<std::size_t>(room), 'x');
        NMLVDISPINFO request;
        request.hdr = {list->GetSafeHwnd(), 0, LVN_GETDISPINFO};
        request.item.mask = mask;
        request.item.iItem = 0;
        request.item.iImage = -9;
        request.item.pszText = buffer.data();
        request.item.cchTextMax = room;
        CWnd parent;
        parent.Create(WS_POPUP, {0, 0, 9, 9}, nullptr, 0);
        parent.SendMessage(WM_NOTIFY, 0, LParamOf(&request.hdr));
        return {request.item.iImage, CString(buffer.c_str())};
    }
    CAddressRecord& Show(std::initializer_list<AddressFixture::Text> fields) {
        list->DV_DeleteAll();
        CAddressRecord* record = addresses.Make(fields).release();
        list->DV_InsertRecord(0, record, 0);
        return *record;
    }
};

TEST_F(AddressIcons, ARowShowsPersonBuildingOrMask) {
    struct Row {
        const char* why;
        std::initializer_list<AddressFixture::Text> fields;
        int mask;
        bool isPrivate;
        int image;
        const char* text;
    };
    const Row rows[] = {
        {"a person", {{Name, "Lee"}, {First, "Ann"}, {Company, "Acme"}}, 0, false, 0, "Lee, Ann"},
        {"a first name alone", {{First, "Ann"}, {Company, "Acme"}}, 0, false, 0, "Ann"},
        {"a company", {{Company, "Acme"}}, 0, false, 1, "Acme"},
        {"nothing", {}, 0, false, 0, ""},
        {"masked", {{Company, "Acme"}}, 1, true, 2, "(Private)"},
        {"private, and masking off", {{Company, "Acme"}}, 0, true, 1, "Acme"},
        {"masking on, and not private", {{Company, "Acme"}}, 1, false, 1, "Acme"},
    };
    for (const int mode : {kLargeIconView, kSmallIconView}) {
        list->SetViewMode(mode);
        for (const Row& row : rows) {
            Show(row.fields).SetPrivate(row.isPrivate);
            list->SetMaskPrivate(row.mask);
            const Answer answer = Ask();
            EXPECT_EQ(answer.image, row.image) << row.why;
            EXPECT_EQ(answer.text, row.text) << row.why;
        }
    }
}

TEST_F(AddressIcons, OnlyWhatIsAskedIsAnsweredAndNothingInAReport) {
    Show({{Name, "Lee"}});
    EXPECT_EQ(Ask().image, -9) << "a report";

    list->SetViewMode(kLargeIconView);
    EXPECT_EQ(Ask(LVIF_IMAGE).text.Left(3), "xxx");
    EXPECT_EQ(Ask(LVIF_TEXT).image, -9);
    EXPECT_EQ(Ask(LVIF_TEXT, 3).text, "Le");
    EXPECT_EQ(Ask(LVIF_TEXT, 1).text, "");
}

class AddressIconLabel : public AddressIcons, public testing::WithParamInterface<LocaleCase> {
protected:
    AddressIconLabel() : m_page(GetParam().tag, GetParam().codePage) {}

private:
    LocaleInForce m_page;
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, AddressIconLabel, testing::ValuesIn(kBothCodePages));

TEST_P(AddressIconLabel, ALabelHas29BytesAtMostAndEndsInAWholeCharacter) {
    list->SetViewMode(kLargeIconView);
    Show({{Name, "1234567890123456789012345678901234567890"}});
    EXPECT_EQ(Ask().text, "12345678901234567890123456789");

    // The 29th byte is the last of a character, then the first.
    const std::string kanji = "\u6F22";
    const auto bytes = static_cast<std::size_t>(FromUtf8(kanji).GetLength());
    Show({{Name, std::string(29 - bytes, 'x') + kanji + "y"}});
    EXPECT_EQ(Ask().text, FromUtf8(std::string(29 - bytes, 'x') + kanji));
    Show({{Name, std::string(28, 'x') + kanji + "y"}});
    EXPECT_EQ(Ask().text, CString('x', 28));
}

}  // namespace
}  // namespace orvo
