// The pictures of an address list, and its rows as icons.
// SPDX-License-Identifier: MIT
#include <set>

#include <orvoshare/addresslist/AddressListFixture.h>

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
    AddressImages() { view = Bare(); }

    CImageList* HeadingImages() {
        return CImageList::FromHandle(view->GetHeaderCtrl()->GetImageList());
    }
};

TEST_F(AddressImages, EachModeGetsItsPictures) {
    EXPECT_NE(view->GetImageList(LVSIL_SMALL), nullptr) << "since Initialize";
    EXPECT_EQ(view->GetImageList(LVSIL_NORMAL), nullptr);
    EXPECT_EQ(HeadingImages(), nullptr);

    EXPECT_NE(view->SetViewMode(kLargeIconView), 0);
    EXPECT_NE(view->SetViewMode(kReportView), 0);
    EXPECT_EQ(view->SetViewMode(7), 0);

    struct Row {
        const CImageList* images;
        int size, count;
    };
    const Row rows[] = {{view->GetImageList(LVSIL_NORMAL), 32, 3},
                        {view->GetImageList(LVSIL_SMALL), 16, 3},
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
    view = Bare();
    view->SetViewMode(kLargeIconView);
    bool isUsed = false;
    for (const int use : {LVSIL_NORMAL, LVSIL_SMALL}) {
        const CImageList& images = *view->GetImageList(use);
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
        const CImageList* images = view->GetImageList(use);
        return images && ColoursOf(*images, 0).count(colour) != 0;
    };
    view->SetViewMode(kLargeIconView);
    system.SetColour(COLOR_HIGHLIGHT, kFirst);
    view->SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_TRUE(has(LVSIL_NORMAL, kFirst));

    view->SetViewMode(kSmallIconView);
    system.SetColour(COLOR_HIGHLIGHT, kSecond);
    view->SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_TRUE(has(LVSIL_SMALL, kSecond));

    view->SetViewMode(kReportView);
    system.SetColour(COLOR_HIGHLIGHT, kFirst);
    view->SendMessage(WM_SYSCOLORCHANGE);
    view->SetViewMode(kSmallIconView);
    EXPECT_TRUE(has(LVSIL_SMALL, kFirst));
    view->SetViewMode(kLargeIconView);
    EXPECT_TRUE(has(LVSIL_NORMAL, kFirst));
}

TEST_F(AddressImages, AListOfNoSizeIsNotMade) {
    CClientDC dc(view.get());
    int ids[] = {1004};
    EXPECT_EQ(view->CreateListViewIconImageList(&dc, ids, 1, 0), nullptr);
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
        request.hdr = {view->GetSafeHwnd(), 0, LVN_GETDISPINFO};
        request.item.mask = mask;
        request.item.iItem = 0;
        request.item.iImage = -9;
        request.item.pszText = buffer.data();
        request.item.cchTextMax = room;
        owner.SendMessage(WM_NOTIFY, 0, LParamOf(&request.hdr));
        return {request.item.iImage, CString(buffer.c_str())};
    }
};

TEST_F(AddressIcons, ARowShowsPersonBuildingOrMask) {
    struct Row {
        const char* why;
        AddressTexts fields;
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
        view->SetViewMode(mode);
        for (const Row& row : rows) {
            ShowOne(row.fields).SetPrivate(row.isPrivate);
            view->SetMaskPrivate(row.mask);
            const Answer answer = Ask();
            EXPECT_EQ(answer.image, row.image) << row.why;
            EXPECT_EQ(answer.text, row.text) << row.why;
        }
    }
}

TEST_F(AddressIcons, OnlyWhatIsAskedIsAnsweredAndNothingInAReport) {
    ShowOne({{Name, "Lee"}});
    EXPECT_EQ(Ask().image, -9) << "a report";

    view->SetViewMode(kLargeIconView);
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
    view->SetViewMode(kLargeIconView);
    ShowOne({{Name, "1234567890123456789012345678901234567890"}});
    EXPECT_EQ(Ask().text, "12345678901234567890123456789");

    // The 29th byte is the last of a character, then the first.
    const std::string kanji = "\u6F22";
    const auto bytes = static_cast<std::size_t>(SystemText(kanji).GetLength());
    ShowOne({{Name, std::string(29 - bytes, 'x') + kanji + "y"}});
    EXPECT_EQ(Ask().text, SystemText(std::string(29 - bytes, 'x') + kanji));
    ShowOne({{Name, std::string(28, 'x') + kanji + "y"}});
    EXPECT_EQ(Ask().text, CString('x', 28));
}

}  // namespace
}  // namespace orvo
