// The window of the desktop program: the address list below its lookup box.
// SPDX-License-Identifier: MIT
#pragma once

#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/LookupEdit.h>

namespace orvo::desktop {

class MainWindow : public CWnd {
public:
    ~MainWindow() override;

    // Makes the window and fills the list. The table outlives the window.
    // Gives:  false where the window can't be made.
    bool Open(CAddressTable& table);

    // From now on the heading, as the user leaves it, is saved when the window goes.
    void KeepHeading() { m_keepsHeading = true; }

    CDetailViewAddrList& List() { return m_list; }

    static const MessageMap& ThisMap();
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

private:
    LRESULT OnPaint(WPARAM wParam, LPARAM lParam);
    void OnSize(UINT kind, int width, int height);
    void OnDestroy();
    void Arrange(CSize size);

    bool m_keepsHeading = false;
    CString m_label;  // of the lookup box
    CRect m_labelPlace;
    CLookupEdit m_box;
    CCategoryCombo m_categories;  // the list opens no menu of categories without it
    CDetailViewAddrList m_list;
};

}  // namespace orvo::desktop
