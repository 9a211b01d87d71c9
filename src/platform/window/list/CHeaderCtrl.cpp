// CHeaderCtrl: the heading of a list control, a window of its own over the list's columns.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <platform/window/base/WindowSystem.h>
#include <platform/window/list/CHeaderCtrl.h>
#include <platform/window/pictures/CDC.h>
#include <platform/window/pictures/CImageList.h>

namespace orvo {

namespace {

constexpr int kTextOffset = 4;

}  // namespace

BOOL CHeaderCtrl::CreateFor(ListPeer& list, CWnd* parent) {
    m_list = &list;
    return Attach(list.MakeHeadingPeer(), WS_CHILD | WS_VISIBLE, parent, 0);
}

void CHeaderCtrl::TellClick(int column) {
    NMHEADER notification{{}, column, 0};
    NotifyParent(notification.hdr, HDN_ITEMCLICK);
}

int CHeaderCtrl::ColumnAt(CPoint point) const {
    for (const int column : m_list->ColumnOrder()) {
        CRect rect;
        if (m_list->HeadingRect(column, rect) && rect.PtInRect(point)) return column;
    }
    return -1;
}

LRESULT CHeaderCtrl::CopyOrder(WPARAM count, LPARAM target) const {
    const std::vector<int> order = m_list->ColumnOrder();
    std::copy_n(order.begin(), std::min<std::size_t>(order.size(), count), PointerOf<int>(target));
    return 1;
}

LRESULT CHeaderCtrl::TakeOrder(WPARAM count, LPARAM source) {
    const int* first = PointerOf<const int>(source);
    return m_list->SetColumnOrder(std::vector<int>(first, first + count));
}

LRESULT CHeaderCtrl::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!m_list) return CWnd::DefWindowProc(message, wParam, lParam);
    const int item = static_cast<int>(wParam);
    switch (message) {
        case HDM_GETITEMCOUNT:
            return m_list->ColumnCount();
        case HDM_GETITEMRECT:
            return m_list->HeadingRect(item, *PointerOf<CRect>(lParam));
        case HDM_HITTEST: {
            auto& hit = *PointerOf<HDHITTESTINFO>(lParam);
            hit.iItem = ColumnAt(hit.pt);
            return hit.iItem;
        }
        case HDM_SETIMAGELIST: {
            const HIMAGELIST before = m_list->Images(ImageUse::Heading);
            m_list->SetImages(ImageUse::Heading, PointerOf<ImageListHandle>(lParam));
            return LParamOf(before);
        }
        case HDM_GETIMAGELIST:
            return LParamOf(m_list->Images(ImageUse::Heading));
        case HDM_ORDERTOINDEX: {
            const std::vector<int> order = m_list->ColumnOrder();
            return wParam < order.size() ? order[wParam] : -1;
        }
        case HDM_GETORDERARRAY:
            return CopyOrder(wParam, lParam);
        case HDM_SETORDERARRAY:
            return TakeOrder(wParam, lParam);
        case WM_LBUTTONUP: {
            const int column = ColumnAt(PointOf(lParam));
            if (column >= 0) TellClick(column);
            return 0;
        }
        case WM_PAINT:
            if (wParam != 0) Paint(*reinterpret_cast<CDC*>(wParam));
            return 0;
        default:
            return CWnd::DefWindowProc(message, wParam, lParam);
    }
}

void CHeaderCtrl::Paint(CDC& dc) const {
    const CImageList* images = CImageList::FromHandle(m_list->Images(ImageUse::Heading));
    dc.SetTextColor(GetSysColor(COLOR_BTNTEXT));
    dc.SetBkColor(GetSysColor(COLOR_BTNFACE));
    for (const int column : m_list->ColumnOrder()) {
        const ListColumn content = m_list->Column(column);
        CRect rect;
        m_list->HeadingRect(column, rect);
        dc.FillSolidRect(rect, dc.GetBkColor());
        rect.left += kTextOffset;
        if (images && content.image >= 0) images->Draw(dc, content.image, rect.TopLeft());
        if (!content.heading.IsEmpty()) {
            dc.DrawText(content.heading, rect,
                        DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
        }
    }
}

}  // namespace orvo
