// The road of dragged data through a drop target, and the data itself.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <platform/desktop/NotingTarget.h>
#include <platform/window/WindowFixture.h>

namespace orvo {
namespace {

struct DropTargetTest : testing::Test {
    DropTargetTest() { window.Create(WS_POPUP, {0, 0, 100, 100}, nullptr, 0); }

    SystemInForce system;
    CWnd window;
    COleDataObject data;
};

TEST_F(DropTargetTest, AWindowHasOneTargetForAsLongAsBothLive) {
    NotingTarget second;
    {
        NotingTarget first;
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
    constexpr DROPEFFECT kCopy = DROPEFFECT_COPY;
    constexpr DROPEFFECT kNone = DROPEFFECT_NONE;
    using Calls = std::vector<std::string>;
    using Row = std::tuple<const char*, DROPEFFECT, DROPEFFECT, BOOL, Calls, DROPEFFECT>;
    const Row rows[] = {
        {"taken", kCopy, kDropNotHandled, 1, {"over", "dropEx", "drop"}, kCopy},
        {"not taken after all", kCopy, kDropNotHandled, 0, {"over", "dropEx", "drop"}, kNone},
        {"taken at once", kCopy, DROPEFFECT_LINK, 1, {"over", "dropEx"}, DROPEFFECT_LINK},
        {"not wanted", kNone, kDropNotHandled, 1, {"over", "dropEx", "leave"}, kNone},
        {"not allowed", DROPEFFECT_MOVE, kDropNotHandled, 1, {"over", "dropEx", "leave"}, kNone},
    };
    for (const auto& [why, over, dropEx, drop, last, want] : rows) {
        NotingTarget target;
        target.Register(&window);
        target.over = over;
        target.dropEx = dropEx;
        target.drop = drop;
        EXPECT_EQ(target.DoDrop(data, 0, DROPEFFECT_COPY | DROPEFFECT_LINK, {}), want) << why;
        EXPECT_EQ(target.calls, last) << why;
    }
}

TEST_F(DropTargetTest, OnlyWhatTheSourceAllowsIsShown) {
    NotingTarget target;
    target.Register(&window);
    EXPECT_EQ(target.DoDragEnter(data, 0, DROPEFFECT_COPY, {}), DROPEFFECT_COPY);
    EXPECT_EQ(target.DoDragEnter(data, 0, DROPEFFECT_MOVE, {}), DROPEFFECT_NONE);
    EXPECT_EQ(target.DoDragOver(data, 0, DROPEFFECT_MOVE, {}), DROPEFFECT_NONE);

    target.scroll = DROPEFFECT_SCROLL | DROPEFFECT_MOVE;
    EXPECT_EQ(target.DoDragOver(data, 0, DROPEFFECT_MOVE, {}), DROPEFFECT_MOVE);
    EXPECT_THAT(target.calls, ElementsAre("enter", "enter", "over")) << "the window scrolls";
}

TEST_F(DropTargetTest, EachEntryOfTheDataIsFoundByItsFormat) {
    data.Add(CF_HDROP, std::make_shared<const DropList>(DropList{"/a"}));
    data.Add(CF_TEXT, nullptr);
    data.Add(CF_HDROP, std::make_shared<const DropList>(DropList{"/b"}));

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
