// CImageList: pictures of one size, each with the pixels that stay clear.
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <platform/Export.h>
#include <platform/window/list/ListMessages.h>
#include <platform/window/pictures/CBitmap.h>

namespace orvo {

class CDC;

constexpr UINT ILC_MASK = 0x01;
constexpr UINT ILC_COLOR24 = 0x18;

// A control keeps a list's handle, not the list: once the list is gone, its pictures are simply
// no longer drawn.
class ORVO_API CImageList {
public:
    CImageList() = default;
    ~CImageList();
    CImageList(const CImageList&) = delete;
    CImageList& operator=(const CImageList&) = delete;

    // Returns:  non-zero on success; 0 for a size that isn't positive, or where the list exists.
    BOOL Create(int width, int height, UINT flags, int initialCount, int growth);
    void DeleteImageList();

    // Cuts the bitmap into pictures of the list's width; pixels of the mask colour stay clear.
    // Returns:  the index of the first new picture, -1 where the bitmap is narrower or lower than
    //           one.
    int Add(const CBitmap& bitmap, COLORREF mask);

    int GetImageCount() const { return static_cast<int>(m_images.size()); }
    CSize ImageSize() const { return m_size; }
    const CBitmap* GetImage(int index) const;  // null outside the list
    COLORREF GetMask(int index) const;

    BOOL Draw(CDC& dc, int index, CPoint place) const;

    HIMAGELIST GetSafeHandle() const { return m_handle; }
    static CImageList* FromHandle(HIMAGELIST handle);  // null where the list is gone

private:
    struct Image {
        CBitmap bitmap;
        COLORREF mask;
    };

    HIMAGELIST m_handle = nullptr;
    CSize m_size;
    std::vector<Image> m_images;
};

}  // namespace orvo
