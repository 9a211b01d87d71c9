// CTodoListbox: the list of to-dos, edited in place.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/options/DesktopOptions.h>
#include <orvoshare/options/DesktopOptionsOfMainWindow.h>
#include <orvoshare/todo/TodoListbox.h>

namespace orvo {
namespace {

constexpr unsigned kPrivateBitmap = 1000;
constexpr unsigned kNoteBitmap = 1001;
constexpr unsigned kCheckBitmap = 1002;
constexpr unsigned kHandCursor = 1003;

constexpr COLORREF kBlack = RGB(0, 0, 0);

}  // namespace

CTodoListbox::CTodoListbox() {
    RegisterTodoSortKeys();
    const COrvoDesktopOptions* options = AskMainWindowForOptions();
    m_bHidePrivate = options != nullptr && options->IsShowingPrivate() == 0;

    MakeSelectedCheck();
    const CDllResourceHandler resources(OrvoShareRecord());
    m_bmpCheck.LoadBitmap(kCheckBitmap);
    m_bmpNote.LoadBitmap(kNoteBitmap);
    m_bmpPrivate.LoadBitmap(kPrivateBitmap);
    m_nBitmapHeight = m_bmpPrivate.Size().cy;
    m_hHandCursor = LoadCursor(kHandCursor);
}

void CTodoListbox::MakeSelectedCheck() {
    COLORREF selectedText = kBlack;
    OUIGetColors(kSelectedTextColour, nullptr, nullptr, nullptr, &selectedText);
    const CDllResourceHandler resources(OrvoShareRecord());
    m_bmpCheckSelected.CreateMappedBitmap(kCheckBitmap, kBlack, selectedText);
}

void CTodoListbox::OnSysColorChange() {
    COrvoUIListViewCtrl::OnSysColorChange();
    MakeSelectedCheck();
}

// Here OnDestroy is still in reach, which frees the records of the rows; in the destructor of the
// control it isn't.
CTodoListbox::~CTodoListbox() {
    DestroyWindow();
}

}  // namespace orvo
