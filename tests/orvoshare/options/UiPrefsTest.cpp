// Tests of preference files: what can't be read ends in the defaults.
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <orvoshare/options/UiPrefs.h>
#include <platform/io/CArchive.h>
#include <platform/io/TempFolder.h>

namespace orvo {
namespace {

using namespace std::string_literals;

class Widths : public CUiPrefsData {
public:
    void Serialize(CArchive& archive) override {
        CUiPrefsData::Serialize(archive);
        if (archive.IsStoring()) {
            archive << left << right;
        } else {
            archive >> left >> right;
        }
    }
    void InitializeDefault() override {
        left = 10;
        ++defaults;
    }

    int left = 1;
    int right = 2;
    int defaults = 0;
};

class UiPrefs : public testing::Test {
protected:
    int Load() { return widths.Load(path.c_str()); }

    TempFolder folder;
    std::string path = folder.Path("p");
    Widths widths;
};

TEST_F(UiPrefs, TheFileHoldsNothingButWhatTheClassWrites) {
    widths.left = 0x0102;
    EXPECT_EQ(widths.Save(path.c_str()), 1);
    EXPECT_EQ(TempFolder::Content(path), "\x02\x01\0\0\x02\0\0\0"s);

    widths = Widths();
    EXPECT_EQ(Load(), 1);
    EXPECT_EQ(widths.left, 0x0102);
    EXPECT_EQ(widths.defaults, 0);
}

TEST_F(UiPrefs, AFileThatIsntThereOrEndsEarlyGivesTheDefaultsOnce) {
    EXPECT_EQ(Load(), 0);
    EXPECT_EQ(widths.defaults, 1);

    folder.File("p", "\x07\0\0\0\x08"s);
    EXPECT_EQ(Load(), 0);
    EXPECT_EQ(widths.defaults, 2);
    EXPECT_EQ(widths.left, 10);
    EXPECT_EQ(widths.right, 2);
}

TEST_F(UiPrefs, AFileInUseIsNeitherReadNorEmptiedAndWhereNoneCanBeNothingIsSaved) {
    folder.File("p", "\x07\0\0\0\x08\0\0\0"s);
    CFile other;
    ASSERT_TRUE(other.Open(path.c_str(), CFile::modeRead));

    EXPECT_EQ(Load(), 0);
    EXPECT_EQ(widths.Save(path.c_str()), 0);
    EXPECT_EQ(TempFolder::Content(path).size(), 8U);
    EXPECT_EQ(widths.Save(folder.Path("none/p").c_str()), 0);
    EXPECT_EQ(widths.Save("/dev/full"), 0);
}

}  // namespace
}  // namespace orvo
