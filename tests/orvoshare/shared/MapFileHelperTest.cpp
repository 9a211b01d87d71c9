// Tests of a named block and its header.
// SPDX-License-Identifier: MIT
#include <cstring>
#include <vector>

#include <gmock/gmock.h>

#include <orvoshare/shared/MapFileHelper.h>
#include <platform/ipc/RuntimeFixture.h>

namespace orvo {
namespace {

using testing::ElementsAre;

constexpr unsigned long kSize = 256;

class MapFileHelper : public RuntimeFixture {
protected:
    // Makes or opens the block, and its view.
    static void Open(CMapFileHelper& block, int creates, unsigned long value) {
        ASSERT_EQ(block.CreateOrOpenMap(creates, "b", kSize, value, value + 1), 1);
        ASSERT_EQ(block.MapView(), 1);
    }
};

// Of the header.
std::vector<std::uint32_t> WordsOf(CMapFileHelper& block) {
    std::vector<std::uint32_t> words(sizeof(CMapFileHeader) / sizeof(std::uint32_t));
    std::memcpy(words.data(), static_cast<char*>(block.GetDataBuffer()) - sizeof(CMapFileHeader),
                sizeof(CMapFileHeader));
    return words;
}

TEST_F(MapFileHelper, OnlyTheCreatorWritesTheHeader) {
    CMapFileHelper creator;
    Open(creator, 1, 0x11);
    EXPECT_THAT(WordsOf(creator), ElementsAre(0x11, 0x12, 0, 0, 0, 0));
    char data[] = "abcd";
    EXPECT_EQ(creator.SetData(data, 4), 1);
    EXPECT_EQ(creator.UnmapView(), 1);
    ASSERT_EQ(creator.MapView(), 1);
    EXPECT_EQ(creator.GetDataSize(), 0U) << "a new view of the creator begins anew";
    EXPECT_EQ(creator.SetData(data, 4), 1);

    CMapFileHelper opener;
    Open(opener, 0, 0x33);

    EXPECT_THAT(WordsOf(opener), ElementsAre(0x11, 0x12, 0, 4, 0, 0));
    EXPECT_EQ(opener.GetDataSize(), 4U);
    EXPECT_EQ(std::memcmp(opener.GetDataBuffer(), "abcd\0", 5), 0);
}

TEST_F(MapFileHelper, NobodyJoinsABlockByCreatingIt) {
    CMapFileHelper first;
    CMapFileHelper second;
    EXPECT_EQ(second.DoesMapExist("b"), 0);
    EXPECT_EQ(second.CreateOrOpenMap(0, "b", kSize, 1, 1), 0) << "not there yet";
    ASSERT_EQ(first.CreateOrOpenMap(1, "b", kSize, 1, 1), 1);
    EXPECT_EQ(second.DoesMapExist("b"), 1);

    EXPECT_EQ(second.CreateOrOpenMap(1, "b", kSize, 1, 1), 0);

    EXPECT_EQ(second.MapView(), 0) << "it has no handle";
    EXPECT_EQ(first.CreateOrOpenMap(1, "b", kSize, 2, 2), 1) << "it keeps its own";
    EXPECT_EQ(first.MapView(), 1);
    EXPECT_EQ(WordsOf(first).front(), 1U);
    EXPECT_EQ(first.CloseMap(), 1);
    EXPECT_EQ(second.DoesMapExist("b"), 0) << "and nothing of it stays open";
}

TEST_F(MapFileHelper, DataFitTheBlockOrAreRefused) {
    CMapFileHelper block;
    std::string data(kSize, 'x');
    EXPECT_EQ(block.GetDataSize(), 0U);
    EXPECT_EQ(block.GetDataBuffer(), nullptr);
    EXPECT_EQ(block.SetData(data.data(), 1), 0) << "there is no view";
    Open(block, 1, 1);

    EXPECT_EQ(block.SetData(data.data(), kSize - 24), 1);
    EXPECT_EQ(block.SetData(data.data(), kSize - 23), 0);
    EXPECT_EQ(block.GetDataSize(), kSize - 24);

    EXPECT_EQ(block.SetData(nullptr, 0), 1);
    EXPECT_EQ(block.GetDataSize(), 0U);
    EXPECT_EQ(std::memcmp(block.GetDataBuffer(), data.data(), kSize - 24), 0) << "the bytes stay";
}

TEST_F(MapFileHelper, ABlockGoesWithItsLastHandleAndNotBefore) {
    CMapFileHelper first;
    EXPECT_EQ(first.UnmapView() + first.CloseMap(), 2) << "there is none";
    char data[] = "abcd";
    for (int round = 0; round < 2; ++round) {
        Open(first, 1, 1);
        EXPECT_EQ(*static_cast<char*>(first.GetDataBuffer()), '\0') << round;
        first.SetData(data, 4);
        EXPECT_EQ(first.UnmapView(), 1);
        EXPECT_EQ(first.GetDataBuffer(), nullptr);
        EXPECT_EQ(first.DoesMapExist("b"), 1) << "the handle is open";
        EXPECT_EQ(first.CloseMap(), 1);
        EXPECT_EQ(first.DoesMapExist("b"), 0);
    }
    CMapFileHelper last;
    {
        CMapFileHelper block;
        Open(block, 1, 1);
        last = block;
        block.SetAutoClose(0);
    }
    EXPECT_EQ(last.DoesMapExist("b"), 1);
    EXPECT_EQ(last.GetDataSize(), 0U) << "a copy has the same view";
    {
        const CMapFileHelper closes = last;
        last.SetAutoClose(0);
    }
    EXPECT_EQ(last.DoesMapExist("b"), 0);
}

}  // namespace
}  // namespace orvo
