// Tests of the bits that an archive can store.
// SPDX-License-Identifier: MIT
#include <tuple>
#include <vector>

#include <gmock/gmock.h>

#include <orvoshare/options/BitArray.h>
#include <platform/io/CArchive.h>
#include <platform/io/TempFolder.h>

namespace orvo {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

// What the array writes, or what is left of `bytes` after it has read them.
std::string Serialized(CBitArrayHelper& array, CArchive::Mode mode, const std::string& bytes = "") {
    const TempFolder folder;
    CFile file;
    file.Open(folder.File("bits", bytes).c_str(), CFile::modeReadWrite);
    CArchive archive(&file, mode);
    array.Serialize(archive);
    archive.Close();
    return TempFolder::Content(folder.Path("bits"));
}

std::vector<unsigned char> Bytes(const CBitArrayHelper& array) {
    std::vector<unsigned char> bytes(array.GetArraySize());
    array.GetByteArray(bytes.data());
    return bytes;
}

TEST(BitArray, HasAByteForEachEightBitsBegun) {
    CBitArrayHelper array;
    for (const auto& [count, bytes] : {std::pair{0UL, 0UL}, {1, 1}, {8, 1}, {9, 2}, {17, 3}}) {
        EXPECT_EQ(array.Initialize(count), 1);
        EXPECT_EQ(array.GetNofElements(), count);
        EXPECT_EQ(array.GetArraySize(), bytes) << count;
    }
}

TEST(BitArray, CountsBitsFromTheLeastSignificantAndRefusesThoseBehindTheLast) {
    CBitArrayHelper array;
    array.Initialize(11);
    for (const unsigned long index : {0UL, 3UL, 7UL, 10UL}) EXPECT_EQ(array.SetValue(index, 5), 1);
    EXPECT_EQ(array.SetValue(3, 0), 1);
    EXPECT_EQ(array.SetValue(11, 1), 0) << "even where its byte is there";
    EXPECT_THAT(Bytes(array), ElementsAre(0x81, 0x04));

    int error = 0;
    EXPECT_EQ(array.GetValue(11, &error), 0);
    EXPECT_EQ(error, 1);
    EXPECT_EQ(array.GetValue(10, &error), 1);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(array.GetValue(11, nullptr), 0);
}

TEST(BitArray, StoresItsNumbersAndItsBytesAndReplacesWhatItHeldByThem) {
    const std::string form = "\x09\0\0\0\x02\0\0\0\x02\x01"s;
    CBitArrayHelper array;
    array.Initialize(100);
    Serialized(array, CArchive::load, form);
    EXPECT_EQ(array.GetNofElements(), 9U);
    EXPECT_THAT(Bytes(array), ElementsAre(2, 1));
    EXPECT_EQ(Serialized(array, CArchive::store), form);

    Serialized(array, CArchive::load, std::string(8, '\0'));
    EXPECT_EQ(array.GetArraySize(), 0U);
    EXPECT_EQ(array.GetByteArray(nullptr), 0);
    EXPECT_EQ(Serialized(array, CArchive::store), std::string(8, '\0'));
}

TEST(BitArray, ADamagedFormIsRefusedAndTheArrayStays) {
    using enum CArchiveException::Cause;
    const std::tuple<const char*, std::string, CArchiveException::Cause> rows[] = {
        {"no number", ""s, endOfFile},
        {"half a number", "\x09\0\0\0\x02\0"s, endOfFile},
        {"a byte too few", "\x09\0\0\0\x02\0\0\0\x02"s, endOfFile},
        {"far too few", "\xF8\xFF\xFF\xFF\xFF\xFF\xFF\x1F\x02"s, endOfFile},
        {"too many for the bits", "\x08\0\0\0\x02\0\0\0\x02\x01"s, badValue},
        {"too few for the bits", "\xFF\xFF\xFF\xFF\0\0\0\0"s, badValue},
    };
    for (const auto& [why, bytes, cause] : rows) {
        CBitArrayHelper array;
        array.Initialize(3);
        array.SetValue(2, 1);
        try {
            Serialized(array, CArchive::load, bytes);
            ADD_FAILURE() << why;
        } catch (const CArchiveException& exception) {
            EXPECT_EQ(exception.GetCause(), cause) << why;
        }
        EXPECT_EQ(array.GetNofElements(), 3U) << why;
        EXPECT_THAT(Bytes(array), ElementsAre(4)) << why;
    }
}

}  // namespace
}  // namespace orvo
