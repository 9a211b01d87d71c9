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

    const auto expectPictures = [](const CImageList* images, int size, int count) {
        ASSERT_NE(images, nullptr) << size;
        EXPECT_EQ(images->ImageSize(), (CSize{size, size}));
        EXPECT_EQ(images->GetImageCount(), count);
    };
    expectPictures(view->GetImageList(LVSIL_NORMAL), 32, 3);
    expectPictures(view->GetImageList(LVSIL_SMALL), 16, 3);
    expectPictures(HeadingImages(), 16, 2);
}

TEST_F(AddressImages, RowPicturesTakeTheIconColourInPlaceOfBlueAtOnceAndAfterAReportLater) {
    constexpr COLORREF kFirst = RGB(1, 2, 3);
    constexpr COLORREF kSecond = RGB(4, 5, 6);
    const auto recolour = [this](COLORREF colour) {
        system.SetColour(COLOR_HIGHLIGHT, colour);
        view->SendMessage(WM_SYSCOLORCHANGE);
    };
    const auto expectColour = [this](int use, COLORREF colour) {
        const CImageList& images = *view->GetImageList(use);
        EXPECT_EQ(ColoursOf(images, 0).count(colour), 1U) << use;
        for (int index = 0; index < images.GetImageCount(); ++index) {
            EXPECT_EQ(ColoursOf(images, index).count(kBlue), 0U) << index;
            EXPECT_EQ(images.GetMask(index), kMagenta);
        }
    };
    view->SetViewMode(kLargeIconView);
    recolour(kFirst);
    expectColour(LVSIL_NORMAL, kFirst);
    view->SetViewMode(kSmallIconView);
    recolour(kSecond);
    expectColour(LVSIL_SMALL, kSecond);

    view->SetViewMode(kReportView);
    recolour(kFirst);
    view->SetViewMode(kSmallIconView);
    expectColour(LVSIL_SMALL, kFirst);
    view->SetViewMode(kLargeIconView);
    expectColour(LVSIL_NORMAL, kFirst);
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
    const std::tuple<const char*, AddressTexts, int, bool, int, const char*> rows[] = {
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
        for (const auto& [why, fields, mask, isPrivate, image, text] : rows) {
            ShowOne(fields).SetPrivate(isPrivate);
            view->SetMaskPrivate(mask);
            const Answer answer = Ask();
            EXPECT_EQ(answer.image, image) << why;
            EXPECT_EQ(answer.text, text) << why;
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

TEST_F(AddressIcons, ALabelHas29BytesAtMostAndEndsInAWholeCharacter) {
    view->SetViewMode(kLargeIconView);
    for (const LocaleCase& page : kBothCodePages) {
        const LocaleInForce inForce(page.tag, page.codePage);
        const std::string kanji = "\u6F22";
        const auto bytes = static_cast<std::size_t>(SystemText(kanji).GetLength());
        const std::string asLast = std::string(29 - bytes, 'x') + kanji;
        ShowOne({{Name, std::string(40, 'x')}});
        EXPECT_EQ(Ask().text, CString('x', 29));
        ShowOne({{Name, asLast + "y"}});
        EXPECT_EQ(Ask().text, SystemText(asLast));
        ShowOne({{Name, std::string(28, 'x') + kanji + "y"}});
        EXPECT_EQ(Ask().text, CString('x', 28));
    }
}

}  // namespace
}  // namespace orvo
