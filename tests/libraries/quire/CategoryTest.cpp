// Tests of the category manager.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <contract/RecordValues.h>
#include <contract/StoreFolder.h>
#include <contracts/DefaultTexts.h>
#include <platform/io/CArchive.h>
#include <platform/io/CFile.h>
#include <platform/text/SystemText.h>
#include <support/CodePages.h>

namespace orvo {

TEST(CategoryMgr, TakesSixteenAndGivesEachTheLowestFreeIndex) {
    CCategoryMgr manager;
    for (const int index : {1, 16, -1}) manager.Load(index, "stored, or nowhere");
    for (int i = 0; i < 15; ++i) EXPECT_EQ(AddCategory(manager, std::to_string(i)), 0);

    EXPECT_NE(AddCategory(manager, "one too many"), 0);
    EXPECT_EQ(manager.GetCount(), 16);
    EXPECT_EQ(CategoryIndex(manager, "0"), 0);
    EXPECT_EQ(CategoryIndex(manager, "1"), 2);
}

TEST(CategoryMgr, RefusesNothingAnEmptyNameAndATakenOne) {
    CCategoryMgr manager;
    ASSERT_EQ(AddCategory(manager, "Friends"), 0);

    EXPECT_NE(manager.Add(nullptr), 0);
    EXPECT_NE(AddCategory(manager, ""), 0);
    EXPECT_NE(AddCategory(manager, "fRIENDS"), 0);
    EXPECT_EQ(AddCategory(manager, " "), 0);
}

TEST(CategoryMgr, RefusesANameOfMoreThan15BytesOfThePage) {
    for (const auto& [page, longest] :
         {std::pair(65001u, "表表表表表"), std::pair(932u, "表表表表表表表a")}) {
        const LocaleInForce locale("ja-JP", page);
        CCategoryMgr manager;
        CCategory category;
        category.SetNameUtf8(longest + std::string("b"));
        EXPECT_NE(manager.Add(&category), 0) << page;
        EXPECT_EQ(AddCategory(manager, longest), 0) << page;
    }
}

TEST(CategoryMgr, TheDefaultCategoryIsShownAndFoundInTheUsersLanguage) {
    ShownDefaults() = [](unsigned) { return std::string("Ohne"); };
    CCategoryMgr manager;
    manager.Load(0, kNoCategoryName);
    manager.Load(1, kNoCategoryName);
    CCategory* category = nullptr;

    EXPECT_NE(AddCategory(manager, "ohne"), 0) << "two would look the same";
    ASSERT_EQ(manager.FindName("Ohne", category), 0);
    EXPECT_EQ(category->GetName(), "Ohne");
    EXPECT_EQ(category->Utf8(), kNoCategoryName);
    manager.Load(0, "Rest");
    EXPECT_EQ(category->GetName(), "Rest") << "renamed";
    manager.FindIndex(1, category);
    EXPECT_EQ(category->GetName(), kNoCategoryName) << "another one of that name";
    ShownDefaults() = nullptr;
}

TEST(CategoryMgr, NamesMatchByTheirCaseFolding) {
    const std::tuple<const char*, const char*, const char*, bool> rows[] = {
        {"case doesn't count", "Ärzte", "äRZTE", true},
        {"a letter that folds to two", "Straße", "STRASSE", true},
        {"width counts", "Ａ", "A", false},
        {"full-width case doesn't", "Ａ", "ａ", true},
        {"accents count", "resume", "résumé", false},
        {"blanks count", "a", "a ", false},
    };
    for (const LocaleCase& locale : kBothCodePages) {
        const LocaleInForce scoped(locale.tag, locale.codePage);
        for (const auto& [why, name, asked, matches] : rows) {
            CCategoryMgr manager;
            CCategory* found = nullptr;
            ASSERT_EQ(AddCategory(manager, name), 0);
            EXPECT_EQ(manager.FindName(SystemText(asked), found) == 0, matches) << why;
        }
    }
}

TEST(CategoryMgr, NamesThatThePageLacksStayApartAndWhole) {
    const LocaleInForce scoped("en-US", 1252);
    CCategoryMgr manager;
    manager.Load(1, "漢字");
    manager.Load(2, "家族");
    CCategory* found = nullptr;

    ASSERT_EQ(manager.FindUtf8Name("家族", found), 0);
    EXPECT_EQ(found->GetIndex(), 2);
    EXPECT_EQ(found->GetName(), "??");
    found->SetName(CString(found->GetName()));
    EXPECT_EQ(found->Utf8(), "家族");
    found->SetName("Caf\xE9");
    EXPECT_EQ(found->Utf8(), "Café");
    EXPECT_EQ(AddCategory(manager, "CAFÉ"), 1) << "taken";
}

TEST(CategoryMgr, WalksByRisingIndexOverGaps) {
    CCategoryMgr manager;
    for (const int index : {9, 2, 15}) manager.Load(index, std::to_string(index));
    std::vector<int> walked;
    CCategory* category = nullptr;

    for (manager.FindFirst(category); category != nullptr; manager.FindNext(category)) {
        walked.push_back(category->GetIndex());
    }

    EXPECT_THAT(walked, ElementsAre(2, 9, 15));
    EXPECT_NE(manager.FindNext(category), 0);
}

TEST(CategoryMgr, ALoadedNameReplacesTheOldOneAndKeepsTheObject) {
    CCategoryMgr manager;
    manager.Load(3, "old");
    CCategory* before = nullptr;
    CCategory* after = nullptr;
    manager.FindIndex(3, before);

    manager.Load(3, "new");

    EXPECT_EQ(manager.FindName("new", after), 0);
    EXPECT_EQ(after, before);
    EXPECT_NE(manager.FindName("old", after), 0);
}

TEST(Category, ComesBackFromAnArchiveAndRefusesAnIndexThatCantBe) {
    const StoreFolder folder;
    CCategoryMgr manager;
    manager.Load(5, "Friends");
    CCategory* category = nullptr;
    ASSERT_EQ(manager.FindIndex(5, category), 0);
    CFile file;
    ASSERT_NE(file.Open(folder.Path("a").c_str(), CFile::modeCreate | CFile::modeReadWrite), 0);
    {
        CArchive archive(&file, CArchive::store);
        category->Serialize(archive);
        archive << CString("Family") << 16;
        archive.Close();
    }
    file.Seek(0, CFile::begin);
    CArchive archive(&file, CArchive::load);
    CCategory read;

    read.Serialize(archive);

    EXPECT_EQ(read.GetName(), "Friends");
    EXPECT_EQ(read.GetIndex(), 5);
    EXPECT_THROW(read.Serialize(archive), CArchiveException);
    EXPECT_EQ(read.GetName(), "Friends");
    EXPECT_NE(CCategory::classCCategory.CreateObject(), nullptr);
}

}  // namespace orvo
