// Tests of preference files: what can't be read ends in the defaults.
// SPDX-License-Identifier: MIT
#include <string>

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

TEST(UiPrefs, TheFileHoldsNothingButWhatTheClassWrites) {
    const TempFolder folder;
    Widths saved;
    saved.left = 0x0102;
    EXPECT_EQ(saved.Save(folder.Path("p").c_str()), 1);
    EXPECT_EQ(TempFolder::Content(folder.Path("p")), "\x02\x01\0\0\x02\0\0\0"s);

    Widths loaded;
    EXPECT_EQ(loaded.Load(folder.Path("p").c_str()), 1);
    EXPECT_EQ(loaded.left, 0x0102);
    EXPECT_EQ(loaded.defaults, 0);
}

TEST(UiPrefs, AFileThatIsntThereGivesTheDefaultsOnce) {
    Widths widths;
    EXPECT_EQ(widths.Load(TempFolder().Path("p").c_str()), 0);
    EXPECT_EQ(widths.defaults, 1);
}

TEST(UiPrefs, AFileThatEndsEarlyGivesTheDefaults) {
    const TempFolder folder;
    const std::string path = folder.File("p", "\x07\0\0\0\x08"s);
    Widths widths;
    EXPECT_EQ(widths.Load(path.c_str()), 0);
    EXPECT_EQ(widths.defaults, 1);
    EXPECT_EQ(widths.left, 10);
    EXPECT_EQ(widths.right, 2);
}

TEST(UiPrefs, AFileInUseIsNeitherReadNorEmptied) {
    const TempFolder folder;
    const std::string path = folder.File("p", "\x07\0\0\0\x08\0\0\0"s);
    CFile other;
    ASSERT_TRUE(other.Open(path.c_str(), CFile::modeRead));

    Widths widths;
    EXPECT_EQ(widths.Load(path.c_str()), 0);
    EXPECT_EQ(widths.Save(path.c_str()), 0);
    EXPECT_EQ(TempFolder::Content(path).size(), 8U);
}

TEST(UiPrefs, SavingWhereNoFileCanBeGives0) {
    const TempFolder folder;
    EXPECT_EQ(Widths().Save(folder.Path("none/p").c_str()), 0);
    EXPECT_EQ(Widths().Save("/dev/full"), 0);
}

TEST(UiPrefs, TheBaseClassKeepsAnEmptyFile) {
    const TempFolder folder;
    CUiPrefsData prefs;
    EXPECT_EQ(prefs.Save(folder.Path("p").c_str()), 1);
    EXPECT_EQ(TempFolder::Content(folder.Path("p")), "");
    EXPECT_EQ(prefs.Load(folder.Path("p").c_str()), 1);
    EXPECT_NE(CRuntimeClass::Find("CUiPrefsData"), nullptr);
}

}  // namespace
}  // namespace orvo
