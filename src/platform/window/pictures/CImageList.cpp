// CImageList: pictures of one size, each with the pixels that stay clear.
// SPDX-License-Identifier: MIT
#include <platform/window/base/Handles.h>
#include <platform/window/pictures/CDC.h>
#include <platform/window/pictures/CImageList.h>

namespace orvo {

namespace {

HandleTable<HIMAGELIST, CImageList>& Lists() {
    static HandleTable<HIMAGELIST, CImageList> lists;
    return lists;
}

CBitmap CutOut(const CBitmap& bitmap, int left, CSize size) {
    CBitmap part(size, 0);
    for (int y = 0; y < size.cy; ++y) {
        for (int x = 0; x < size.cx; ++x) part.SetPixel({x, y}, bitmap.GetPixel({left + x, y}));
    }
    if (bitmap.Size() == size) part.SetOutline(bitmap.Outline());
    return part;
}

}  // namespace

CImageList::~CImageList() {
    DeleteImageList();
}

BOOL CImageList::Create(int width, int height, UINT, int, int) {
    if (m_handle || width <= 0 || height <= 0) return 0;
    m_size = {width, height};
    m_handle = Lists().Add(this);
    return 1;
}

void CImageList::DeleteImageList() {
    if (m_handle) Lists().Remove(m_handle);
    m_handle = nullptr;
    m_images.clear();
}

int CImageList::Add(const CBitmap& bitmap, COLORREF mask) {
    if (!m_handle || bitmap.Size().cx < m_size.cx || bitmap.Size().cy < m_size.cy) return -1;
    const int first = GetImageCount();
    for (int left = 0; left + m_size.cx <= bitmap.Size().cx; left += m_size.cx) {
        m_images.push_back({CutOut(bitmap, left, m_size), mask});
    }
    return first;
}

const CBitmap* CImageList::GetImage(int index) const {
    if (index < 0 || index >= GetImageCount()) return nullptr;
    return &m_images[static_cast<std::size_t>(index)].bitmap;
}

COLORREF CImageList::GetMask(int index) const {
    return GetImage(index) ? m_images[static_cast<std::size_t>(index)].mask : 0;
}

BOOL CImageList::Draw(CDC& dc, int index, CPoint place) const {
    const CBitmap* image = GetImage(index);
    if (!image) return 0;
    dc.DrawBitmap(place, *image, GetMask(index));
    return 1;
}

CImageList* CImageList::FromHandle(HIMAGELIST handle) {
    return Lists().Find(handle);
}

}  // namespace orvo
