// CDetailViewAddrList: the pictures of headings and rows, and the view modes that show them.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/module/OrvoShareModule.h>

namespace orvo {
namespace {

constexpr COLORREF kBlue = RGB(0, 0, 0xFF);
constexpr COLORREF kMagenta = RGB(0xFF, 0, 0xFF);

// A person, a building, a masked record.
constexpr int kLargePictures[] = {1004, 1007, 9166};
constexpr int kSmallPictures[] = {1005, 1008, 9165};
constexpr int kPictureCount = static_cast<int>(std::size(kLargePictures));
constexpr int kLargePictureSize = 32;
constexpr int kSmallPictureSize = 16;

}  // namespace

void CDetailViewAddrList::MakeRowImages() {
    CClientDC dc(this);
    m_pLargeImages.reset(
        CreateListViewIconImageList(&dc, kLargePictures, kPictureCount, kLargePictureSize));
    m_pSmallImages.reset(
        CreateListViewIconImageList(&dc, kSmallPictures, kPictureCount, kSmallPictureSize));
}

CImageList* CDetailViewAddrList::CreateListViewIconImageList(CDC* dc, const int* ids, int count,
                                                             int size) {
    COLORREF colour = 0;
    OUIGetColors(kIconColour, &colour, nullptr, nullptr, nullptr);
    auto images = std::make_unique<CImageList>();
    if (!images->Create(size, size, ILC_COLOR24 | ILC_MASK, 1, 1)) return nullptr;

    const CDllResourceHandler resources(OrvoShareRecord());
    for (int i = 0; i < count; ++i) {
        CBitmap bitmap;
        bitmap.LoadBitmap(static_cast<unsigned>(ids[i]));
        OUIReplaceBitmapColor(dc, &bitmap, kBlue, colour);
        images->Add(bitmap, kMagenta);
    }
    return images.release();
}

int CDetailViewAddrList::SetViewMode(int mode) {
    if (mode == kLargeIconView) {
        SetImageList(m_pLargeImages.get(), LVSIL_NORMAL);
    } else if (mode == kSmallIconView) {
        SetImageList(m_pSmallImages.get(), LVSIL_SMALL);
    } else if (CHeaderCtrl* header = mode == kReportView ? GetHeaderCtrl() : nullptr) {
        header->SetImageList(m_imageList.GetSafeHandle());
    }
    return COrvoUIListViewCtrl::SetViewMode(mode);
}

void CDetailViewAddrList::OnSysColorChange() {
    COrvoUIListViewCtrl::OnSysColorChange();
    MakeRowImages();
    if (GetViewMode() == kLargeIconView) SetImageList(m_pLargeImages.get(), LVSIL_NORMAL);
    if (GetViewMode() == kSmallIconView) SetImageList(m_pSmallImages.get(), LVSIL_SMALL);
}

}  // namespace orvo
