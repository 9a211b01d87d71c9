// COrvoOleDropTarget: takes card and calendar files that are dropped on a window.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/desktop/DropTarget.h>
#include <platform/desktop/Shortcut.h>

namespace orvo {

// Sent at a drop to the top level of the main window: lParam is a CStringArray* of the paths, which
// is valid during the message only.
constexpr UINT kFilesDropped = 48845;

// Files named .vcf and .vcs, and shortcuts to such files, are taken wherever in the window they are
// dropped. Paths are in the system's code page.
class ORVO_API COrvoOleDropTarget : public COleDropTarget {
public:
    // Looks once at what is dragged; OnDragOver returns the same for all of the drag.
    DROPEFFECT OnDragEnter(CWnd* window, COleDataObject* data, DWORD keyState,
                           CPoint point) override;
    DROPEFFECT OnDragOver(CWnd* window, COleDataObject* data, DWORD keyState,
                          CPoint point) override;

    // Sends kFilesDropped with the files that are taken, where there are any and `effect` is
    // DROPEFFECT_COPY.
    // Returns:  0 in any case.
    BOOL OnDrop(CWnd* window, COleDataObject* data, DROPEFFECT effect, CPoint point) override;

protected:
    int AreFilesAcceptable(COleDataObject* data, CPoint point);  // 1 where one of them is
    int IsFileAcceptable(CString path);                          // 1 or 0

    // Replaces the path of a shortcut by its target; by an empty text where that can't be found.
    // A symbolic link that is named like an acceptable file stays itself.
    void ResolveFilename(HWND window, CString& path);

    // Writes the path of the shortcut's target, at most MAX_PATH bytes with the ending zero byte;
    // an empty one on failure.
    // Returns:  S_OK, or a number below 0.
    HRESULT ResolveIt(HWND window, const char* shortcut, char* result);

private:
    DROPEFFECT m_dwDropEffect = DROPEFFECT_NONE;  // the answer for the drag that is going on
};

}  // namespace orvo
