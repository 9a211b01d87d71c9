// Blocks of memory and the streams on them.
// SPDX-License-Identifier: MIT
#include <cstring>

#include <gtest/gtest.h>

#include <platform/com/StreamOn.h>

namespace orvo {
namespace {

TEST(GlobalMemory, ALockedBlockKeepsItsPlace) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 3);
    auto* bytes = static_cast<char*>(GlobalLock(block));
    EXPECT_EQ(bytes[2], 0);
    GlobalLock(block);

    EXPECT_EQ(GlobalReAlloc(block, 100), nullptr);
    EXPECT_NE(GlobalUnlock(block), 0);
    EXPECT_EQ(GlobalUnlock(block), 0);
    EXPECT_EQ(GlobalReAlloc(block, 100), block);
    EXPECT_EQ(GlobalSize(block), 100U);

    EXPECT_EQ(GlobalFree(block), nullptr);
    EXPECT_EQ(GlobalFree(block), block) << "it has gone";
    EXPECT_EQ(GlobalLock(block), nullptr);
    EXPECT_EQ(GlobalAlloc(0, 3), nullptr);
}

TEST(Stream, WritingBehindTheEndMakesTheBlockGrow) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 4);
    const ComPointer<IStream> stream = StreamOn(block);
    std::uint64_t place = 0;
    char bytes[8] = {};
    ULONG done = 0;

    EXPECT_EQ(stream->Write("abcdef", 6, nullptr), S_OK);
    EXPECT_EQ(GlobalReAlloc(block, 6), block) << "a write leaves it unlocked";
    EXPECT_EQ(stream->Seek(-2, STREAM_SEEK_END, &place), S_OK);
    EXPECT_EQ(place, 4U);
    EXPECT_EQ(stream->Read(bytes, 8, &done), S_FALSE);
    EXPECT_EQ(done, 2U);
    EXPECT_STREQ(bytes, "ef");
    EXPECT_EQ(GlobalReAlloc(block, 6), block) << "and so does a read";
    EXPECT_EQ(stream->Seek(-7, STREAM_SEEK_CUR, nullptr), E_INVALIDARG);
    EXPECT_EQ(stream->Seek(1000, STREAM_SEEK_SET, nullptr), S_OK);
    EXPECT_EQ(stream->Read(bytes, 1, &done), S_FALSE);
}

TEST(Stream, OnlyAnOwnerFreesTheBlock) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 1);
    { const ComPointer<IStream> stream = StreamOn(block, false); }
    EXPECT_EQ(GlobalSize(block), 1U);
    {
        const ComPointer<IStream> stream = StreamOn(block);
        const ComPointer<IStream> other = stream;
    }
    EXPECT_EQ(GlobalBlockCount(), 0U);

    IStream* stream = nullptr;
    EXPECT_EQ(CreateStreamOnHGlobal(block, 1, &stream), E_INVALIDARG);
}

}  // namespace
}  // namespace orvo
