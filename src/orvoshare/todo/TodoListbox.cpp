// CTodoListbox: the list of to-dos, edited in place.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/options/DesktopOptions.h>
#include <orvoshare/options/DesktopOptionsOfMainWindow.h>
#include <orvoshare/resources/ResourceTable.h>
#include <orvoshare/todo/TodoListbox.h>

namespace orvo {
namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0);

}  // namespace

CTodoListbox::CTodoListbox() {
    RegisterTodoSortKeys();
    const COrvoDesktopOptions* options = AskMainWindowForOptions();
    m_bHidePrivate = options != nullptr && options->IsShowingPrivate() == 0;

    MakeSelectedCheck();
    const CDllResourceHandler resources(OrvoShareRecord());
    m_bmpCheck.LoadBitmap(kBitmapCheck);
    m_bmpNote.LoadBitmap(kBitmapNote);
    m_bmpPrivate.LoadBitmap(kBitmapPrivate);
    m_nBitmapHeight = m_bmpPrivate.Size().cy;
    m_hHandCursor = LoadCursor(kCursorHand);
}

void CTodoListbox::MakeSelectedCheck() {
    COLORREF selectedText = kBlack;
    OUIGetColors(kSelectedTextColour, nullptr, nullptr, nullptr, &selectedText);
    const CDllResourceHandler resources(OrvoShareRecord());
    m_bmpCheckSelected.CreateMappedBitmap(kBitmapCheck, kBlack, selectedText);
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
