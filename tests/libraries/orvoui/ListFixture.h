// A list widget that records which cells it is asked to paint.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <contracts/ListWidget.h>
#include <platform/window/WindowFixture.h>
#include <platform/window/memory/MemoryListPeer.h>

namespace orvo {

// Rows whose data word is below 100 are private.
class RecordingList : public COrvoUIListViewCtrl {
public:
    static constexpr DWORD kFirstPublic = 100;

    static const MessageMap& ThisMap() {
        static const MessageMap map{COrvoUIListViewCtrl::ThisMap(),
                                    {OnNotifyReflect<LVN_ITEMCHANGED>(&RecordingList::OnChange),
                                     OnNotifyReflect<LVN_GETDISPINFO>(&RecordingList::OnQuestion)}};
        return map;
    }
    const MessageMap& GetMessageMap() const override { return ThisMap(); }
    int IsRecordPrivate(DWORD data) override { return data != 0 && data < kFirstPublic; }

    using COrvoUIListViewCtrl::GetMainItemRect;
    using COrvoUIListViewCtrl::m_aColumns;
    using COrvoUIListViewCtrl::SubItemFromIndex;

    std::vector<std::string> cells;  // "data column id at left,top,right,bottom", and " selected"
    UINT textFlags = 0;
    int changes = 0;
    int questions = 0;

protected:
    void DrawColumn(CDC*, int column, DWORD data, CRect& rect, UINT flags, int reserved,
                    int selected) override {
        EXPECT_EQ(reserved, 0);
        textFlags = flags;
        cells.push_back(fmt::format("{} column {} at {},{},{},{}{}", data, SubItemFromIndex(column),
                                    rect.left, rect.top, rect.right, rect.bottom,
                                    selected != 0 ? " selected" : ""));
    }

private:
    void OnChange(NMHDR*, LRESULT*) { ++changes; }
    void OnQuestion(NMHDR*, LRESULT*) { ++questions; }
};

// Columns 0, 1 and 2, none of them shown. The heading takes 20 pixels, a row 18; six rows fit.
class ListFixture : public testing::Test {
protected:
    void SetUp() override {
        list.Create(LVS_REPORT, {0, 0, 400, 128}, nullptr, 1);
        COrvoLVColumn column;
        column.bShown = 1;  // the widget alone says what is shown
        for (const char* name : {"Name", "Note", "Category"}) {
            column.strHeading = column.strName = name;
            column.nWidth = 100 + 10 * column.nId;
            EXPECT_NE(list.InitializeColumn(&column), 0);
            ++column.nId;
        }
    }

    int Insert(DWORD data) {
        return list.InsertRecord(list.GetItemCount(), reinterpret_cast<void*>(data), 0, 0);
    }
    const Recording& Paint() {
        Peer().ForgetDrawn();
        list.cells.clear();
        list.RedrawWindow();
        return Peer().Drawn();
    }
    MemoryListPeer& Peer() { return dynamic_cast<MemoryListPeer&>(*list.GetPeer()); }

    SystemInForce system;
    RecordingList list;
};

}  // namespace orvo
