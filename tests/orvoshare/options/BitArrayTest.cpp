// Tests of the bits that an archive can store.
// SPDX-License-Identifier: MIT
#include <iterator>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <orvoshare/options/BitArray.h>
#include <platform/io/CArchive.h>
#include <platform/io/TempFolder.h>

namespace orvo {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

std::string Stored(CBitArrayHelper& array) {
    const TempFolder folder;
    CFile file;
    EXPECT_TRUE(file.Open(folder.Path("bits").c_str(), CFile::modeCreate | CFile::modeReadWrite));
    CArchive archive(&file, CArchive::store);
    array.Serialize(archive);
    archive.Close();
    return TempFolder::Content(folder.Path("bits"));
}

void Load(CBitArrayHelper& array, const std::string& bytes) {
    const TempFolder folder;
    CFile file;
    EXPECT_TRUE(file.Open(folder.File("bits", bytes).c_str(), CFile::modeRead));
    CArchive archive(&file, CArchive::load);
    array.Serialize(archive);
}

std::vector<unsigned char> Bytes(const CBitArrayHelper& array) {
    std::vector<unsigned char> bytes(array.GetArraySize());
    array.GetByteArray(bytes.data());
    return bytes;
}

TEST(BitArray, HasAByteForEachEightBitsBegun) {
    struct {
        unsigned long count, bytes;
    } const rows[] = {{0, 0}, {1, 1}, {8, 1}, {9, 2}, {16, 2}, {17, 3}};
    CBitArrayHelper array;
    for (const auto& row : rows) {
        EXPECT_EQ(array.Initialize(row.count), 1);
        EXPECT_EQ(array.GetNofElements(), row.count);
        EXPECT_EQ(array.GetArraySize(), row.bytes) << row.count;
    }
}

TEST(BitArray, AnIndexBehindTheLastBitIsRefusedEvenWhereItsByteIsThere) {
    CBitArrayHelper array;
    array.Initialize(9);
    int error = 0;

    EXPECT_EQ(array.SetValue(8, 1), 1);
    EXPECT_EQ(array.SetValue(9, 1), 0);
    EXPECT_EQ(array.GetValue(9, &error), 0);
    EXPECT_EQ(error, 1);
    EXPECT_EQ(array.GetValue(8, &error), 1);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(array.GetValue(9, nullptr), 0);
    EXPECT_THAT(Bytes(array), ElementsAre(0, 1));
}

TEST(BitArray, CountsBitsFromTheLeastSignificantAndLeavesTheOthers) {
    CBitArrayHelper array;
    array.Initialize(16);
    for (const unsigned long index : {0UL, 3UL, 7UL, 10UL}) array.SetValue(index, 5);
    array.SetValue(3, 0);

    EXPECT_THAT(Bytes(array), ElementsAre(0x81, 0x04));
}

TEST(BitArray, StoresItsNumbersAndItsBytes) {
    CBitArrayHelper array;
    array.Initialize(9);
    array.SetValue(1, 1);
    array.SetValue(8, 1);
    EXPECT_EQ(Stored(array), "\x09\0\0\0\x02\0\0\0\x02\x01"s);
    array.Initialize(0);
    EXPECT_EQ(Stored(array), std::string(8, '\0'));
    EXPECT_EQ(array.GetByteArray(nullptr), 0);
}

TEST(BitArray, LoadingReplacesWhatItHeld) {
    CBitArrayHelper array;
    array.Initialize(100);

    Load(array, "\x09\0\0\0\x02\0\0\0\x02\x01"s);
    EXPECT_EQ(array.GetNofElements(), 9U);
    EXPECT_THAT(Bytes(array), ElementsAre(2, 1));

    Load(array, std::string(8, '\0'));
    EXPECT_EQ(array.GetArraySize(), 0U);
}

TEST(BitArray, ADamagedFormIsRefusedAndTheArrayStays) {
    using enum CArchiveException::Cause;
    struct {
        const char* why;
        std::string bytes;
        CArchiveException::Cause cause;
    } const rows[] = {
        {"no number", ""s, endOfFile},
        {"half a number", "\x09\0\0\0\x02\0"s, endOfFile},
        {"a byte too few", "\x09\0\0\0\x02\0\0\0\x02"s, endOfFile},
        {"far too few", "\xF8\xFF\xFF\xFF\xFF\xFF\xFF\x1F\x02"s, endOfFile},
        {"too many for the bits", "\x08\0\0\0\x02\0\0\0\x02\x01"s, badValue},
        {"too few for the bits", "\xFF\xFF\xFF\xFF\0\0\0\0"s, badValue},
    };
    for (const auto& row : rows) {
        CBitArrayHelper array;
        array.Initialize(3);
        array.SetValue(2, 1);
        try {
            Load(array, row.bytes);
            ADD_FAILURE() << row.why;
        } catch (const CArchiveException& exception) {
            EXPECT_EQ(exception.GetCause(), row.cause) << row.why;
        }
        EXPECT_EQ(array.GetNofElements(), 3U) << row.why;
        EXPECT_THAT(Bytes(array), ElementsAre(4)) << row.why;
    }
}

}  // namespace
}  // namespace orvo
