// The lookup box of an address view: what is typed moves the selection to the first record that
// starts with it.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include <contracts/OrvoEdit.h>
#include <platform/Export.h>

namespace orvo {

class CDetailViewAddrInf;

// The text of the search is the box's own text; it stays until something clears it. Without a view
// the box is an ordinary edit.
class ORVO_API CLookupEdit : public COrvoEdit {
public:
    // The view isn't owned and outlives the box's last message.
    void SetListBox(CDetailViewAddrInf* pView) { m_pListBox = pView; }

    // Called with all that was typed where no record starts with it, what was refused before
    // included, and with an empty text once that is over.
    void SetRefusalListener(std::function<void(const CString& typed)> listener) {
        m_refusalListener = std::move(listener);
    }
    // True from a refusal until the next key or click in the box or the view, or the next call.
    bool TakeRefusal() { return std::exchange(m_isRefused, false); }

    // Also called by the views for what is typed in them, as if it were typed here.
    void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);

    // The keys that move the selection in the view, also when they are pressed in the box; they
    // empty the box.
    static constexpr bool IsForView(UINT key) {
        return key == VK_PRIOR || key == VK_NEXT || key == VK_UP || key == VK_DOWN;
    }

    // Empties the box; the view's selection stays.
    void Clear();

    // Removes the selection, or without one the character after the caret, and searches again.
    // Returns:  0 where there was nothing to remove, else 1.
    int Delete();

    // Makes one item of the view the only selected one and brings it into view.
    void SelectAndScroll(int nIndex);

    static const MessageMap& ThisMap();
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

private:
    void StartOver();
    void Search(const CString& before, const CString& text, bool isLonger);
    void Refuse();
    void EndRefusal();

    CDetailViewAddrInf* m_pListBox = nullptr;
    std::function<void(const CString&)> m_refusalListener;
    CString m_typed;              // without a pause, refused letters among it
    CString m_box;                // its text after that
    std::uint32_t m_lastKey = 0;  // milliseconds
    bool m_isRefused = false;
    bool m_isRefusalTold = false;
};

}  // namespace orvo
