// The road of dragged data through a drop target, and the data itself.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <platform/desktop/DropTarget.h>
#include <platform/window/WindowFixture.h>

namespace orvo {
namespace {

using testing::ElementsAre;

// Answers as told and notes what it was asked.
struct ScriptedTarget : COleDropTarget {
    DROPEFFECT over = DROPEFFECT_COPY;
    DROPEFFECT dropEx = kDropNotHandled;
    DROPEFFECT scroll = DROPEFFECT_NONE;
    BOOL drop = 1;
    std::vector<std::string> calls;

    DROPEFFECT OnDragEnter(CWnd*, COleDataObject*, DWORD, CPoint) override { return over; }
    DROPEFFECT OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint) override {
        calls.push_back("over");
        return over;
    }
    BOOL OnDrop(CWnd*, COleDataObject*, DROPEFFECT, CPoint) override {
        calls.push_back("drop");
        return drop;
    }
    DROPEFFECT OnDropEx(CWnd*, COleDataObject*, DROPEFFECT, DROPEFFECT, CPoint) override {
        calls.push_back("dropEx");
        return dropEx;
    }
    void OnDragLeave(CWnd*) override { calls.push_back("leave"); }
    DROPEFFECT OnDragScroll(CWnd*, DWORD, CPoint) override { return scroll; }
};

struct DropTargetTest : testing::Test {
    DropTargetTest() { window.Create(WS_POPUP, {0, 0, 100, 100}, nullptr, 0); }

    SystemInForce system;
    CWnd window;
    COleDataObject data;
};

TEST_F(DropTargetTest, AWindowHasOneTargetForAsLongAsBothLive) {
    ScriptedTarget second;
    {
        ScriptedTarget first;
        EXPECT_EQ(first.Register(&window), 1);
        EXPECT_EQ(first.Register(&window), 0);
        EXPECT_EQ(second.Register(&window), 0);
        EXPECT_EQ(COleDropTarget::FromWindow(window.GetSafeHwnd()), &first);
    }
    EXPECT_EQ(COleDropTarget::FromWindow(window.GetSafeHwnd()), nullptr);
    EXPECT_EQ(second.Register(&window), 1);

    window.DestroyWindow();
    EXPECT_EQ(second.Register(&window), 0) << "the window isn't there";
    window.Create(WS_POPUP, {0, 0, 100, 100}, nullptr, 0);
    EXPECT_EQ(second.Register(&window), 1) << "the former window is gone";
}

TEST_F(DropTargetTest, ADropIsOfferedStepByStep) {
    struct Row {
        const char* why;
        DROPEFFECT over;
        DROPEFFECT dropEx;
        BOOL drop;
        std::vector<std::string> calls;
        DROPEFFECT want;
    };
    const Row rows[] = {
        {"taken", DROPEFFECT_COPY, kDropNotHandled, 1, {"over", "dropEx", "drop"}, DROPEFFECT_COPY},
        {"not taken after all",
         DROPEFFECT_COPY,
         kDropNotHandled,
         0,
         {"over", "dropEx", "drop"},
         DROPEFFECT_NONE},
        {"taken at once", DROPEFFECT_COPY, DROPEFFECT_LINK, 1, {"over", "dropEx"}, DROPEFFECT_LINK},
        {"not wanted",
         DROPEFFECT_NONE,
         kDropNotHandled,
         1,
         {"over", "dropEx", "leave"},
         DROPEFFECT_NONE},
        {"not allowed by its source",
         DROPEFFECT_MOVE,
         kDropNotHandled,
         1,
         {"over", "dropEx", "leave"},
         DROPEFFECT_NONE},
    };
    for (const Row& row : rows) {
        ScriptedTarget target;
        target.Register(&window);
        target.over = row.over;
        target.dropEx = row.dropEx;
        target.drop = row.drop;
        EXPECT_EQ(target.DoDrop(data, 0, DROPEFFECT_COPY | DROPEFFECT_LINK, {}), row.want)
            << row.why;
        EXPECT_EQ(target.calls, row.calls) << row.why;
    }
}

TEST_F(DropTargetTest, OnlyWhatTheSourceAllowsIsShown) {
    ScriptedTarget target;
    target.Register(&window);
    EXPECT_EQ(target.DoDragEnter(data, 0, DROPEFFECT_COPY, {}), DROPEFFECT_COPY);
    EXPECT_EQ(target.DoDragEnter(data, 0, DROPEFFECT_MOVE, {}), DROPEFFECT_NONE);
    EXPECT_EQ(target.DoDragOver(data, 0, DROPEFFECT_MOVE, {}), DROPEFFECT_NONE);
    EXPECT_THAT(target.calls, ElementsAre("over"));

    target.scroll = DROPEFFECT_SCROLL | DROPEFFECT_MOVE;
    EXPECT_EQ(target.DoDragOver(data, 0, DROPEFFECT_MOVE, {}), DROPEFFECT_MOVE);
    EXPECT_THAT(target.calls, ElementsAre("over")) << "the window scrolls";
}

TEST_F(DropTargetTest, EachEntryOfTheDataIsFoundByItsFormat) {
    const auto list = [](const char* path) {
        return std::make_shared<const DropList>(DropList{path});
    };
    data.Add(CF_HDROP, list("/a"));
    data.Add(CF_TEXT, nullptr);
    data.Add(CF_HDROP, list("/b"));

    std::vector<std::string> found;
    FORMATETC format;
    data.BeginEnumFormats();
    while (data.GetNextFormat(&format)) {
        const HDROP entry = data.GetGlobalData(format.cfFormat, &format);
        found.push_back(entry ? entry->front().Bytes() : "text");
    }
    EXPECT_THAT(found, ElementsAre("/a", "text", "/b"));
    EXPECT_EQ(data.GetGlobalData(CF_HDROP)->front(), "/a");
    EXPECT_EQ(data.GetGlobalData(99), nullptr);
}

TEST(DragQueryFile, APathIsCutToTheBuffer) {
    const HDROP drop = std::make_shared<const DropList>(DropList{"/a.vcf", "/b"});
    char buffer[5] = "xxxx";
    EXPECT_EQ(DragQueryFileA(drop, kCountFiles, nullptr, 0), 2U);
    EXPECT_EQ(DragQueryFileA(drop, 0, nullptr, 0), 6U);
    EXPECT_EQ(DragQueryFileA(drop, 0, buffer, 5), 4U);
    EXPECT_STREQ(buffer, "/a.v");
    EXPECT_EQ(DragQueryFileA(drop, 1, buffer, 5), 2U);
    EXPECT_STREQ(buffer, "/b");
    EXPECT_EQ(DragQueryFileA(drop, 2, buffer, 5), 0U);
    EXPECT_EQ(DragQueryFileA(drop, 0, buffer, 0), 0U);
    EXPECT_EQ(DragQueryFileA(nullptr, kCountFiles, nullptr, 0), 0U);
}

}  // namespace
}  // namespace orvo
