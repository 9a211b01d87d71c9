// A drop target that answers as it is told to and notes what it is asked.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <platform/desktop/DropTarget.h>

namespace orvo {

struct NotingTarget : COleDropTarget {
    DROPEFFECT over = DROPEFFECT_COPY;
    DROPEFFECT dropEx = kDropNotHandled;
    DROPEFFECT scroll = DROPEFFECT_NONE;
    BOOL drop = 1;
    std::function<void()> whenDropped = [] {};

    std::vector<std::string> calls;
    DropList files;
    CPoint point;
    DWORD keyState = 0;

    DROPEFFECT OnDragEnter(CWnd*, COleDataObject* data, DWORD keys, CPoint at) override {
        Note("enter", data, at);
        keyState = keys;
        return over;
    }
    DROPEFFECT OnDragOver(CWnd*, COleDataObject* data, DWORD, CPoint at) override {
        Note("over", data, at);
        return over;
    }
    DROPEFFECT OnDropEx(CWnd*, COleDataObject*, DROPEFFECT, DROPEFFECT, CPoint) override {
        calls.push_back("dropEx");
        return dropEx;
    }
    BOOL OnDrop(CWnd*, COleDataObject* data, DROPEFFECT, CPoint at) override {
        Note("drop", data, at);
        whenDropped();
        return drop;
    }
    void OnDragLeave(CWnd*) override { calls.push_back("leave"); }
    DROPEFFECT OnDragScroll(CWnd*, DWORD, CPoint) override { return scroll; }

private:
    void Note(const char* call, COleDataObject* data, CPoint at) {
        calls.push_back(call);
        const HDROP dragged = data->GetGlobalData(CF_HDROP);
        files = dragged ? *dragged : DropList();
        point = at;
    }
};

}  // namespace orvo
