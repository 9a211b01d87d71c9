// CHeaderCtrl: the heading of a list control, a window of its own over the list's columns.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/window/base/CWnd.h>
#include <platform/window/list/ListPeer.h>

namespace orvo {

class ORVO_API CHeaderCtrl : public CWnd {
public:
    // The list lives as long as the heading's window, whose parent it is.
    BOOL CreateFor(ListPeer& list, CWnd* parent);

    int GetItemCount() const { return static_cast<int>(SendMessage(HDM_GETITEMCOUNT)); }
    HIMAGELIST SetImageList(HIMAGELIST images) {
        return PointerOf<ImageListHandle>(SendMessage(HDM_SETIMAGELIST, 0, LParamOf(images)));
    }
    HIMAGELIST GetImageList() const {
        return PointerOf<ImageListHandle>(SendMessage(HDM_GETIMAGELIST));
    }

    // HDN_ITEMCLICK to the list.
    void TellClick(int column);

protected:
    void LosePeer() override { m_list = nullptr; }
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    int ColumnAt(CPoint point) const;
    LRESULT CopyOrder(WPARAM count, LPARAM target) const;
    LRESULT TakeOrder(WPARAM count, LPARAM source);
    void Paint(CDC& dc) const;

    ListPeer* m_list = nullptr;
};

}  // namespace orvo
