// Tests of categories by name, and of the way between two tables' categories.
// SPDX-License-Identifier: MIT
#include <array>
#include <tuple>

#include <gmock/gmock.h>

#include <orvoshare/text/CategoryHelpers.h>
#include <platform/text/SystemText.h>
#include <support/AddressFixture.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

using testing::Each;
using testing::ElementsAre;

int IndexOf(CCategoryMgr& manager, const char16_t* name) {
    std::vector<unsigned short> units;
    do units.push_back(*name);
    while (*name++ != 0);
    return GetCategoryIndexHelper(&manager, units.data());
}

std::string LastName(CCategoryMgr& manager) {
    std::string name;
    CCategory* category = nullptr;
    for (manager.FindFirst(category); category; manager.FindNext(category)) {
        name = category->Utf8();
    }
    return name;
}

TEST(CategoryHelpers, ANameIsCutTo15BytesAndRefusedWhereItIsTakenOrEmptyOrOneTooMany) {
    CCategoryMgr manager;
    const auto create = [&](const char* name) { return CreateCategoryHelper(&manager, name); };
    EXPECT_EQ(create("abcdefghijklmnopqrst"), 0);
    EXPECT_EQ(LastName(manager), "abcdefghijklmno");
    EXPECT_EQ(create("abcdefghijklmnoXYZ"), 0x80006010L);
    EXPECT_EQ(create(""), 0x80006013L);
    EXPECT_EQ(create(nullptr), 0x80006013L);
    EXPECT_EQ(create("  "), 0);
    for (char letter = 'a'; letter < 'a' + 14; ++letter) EXPECT_EQ(create(CString(letter, 1)), 0);
    EXPECT_EQ(create("another"), 0x8000600FL);
    EXPECT_EQ(create(""), 0x8000600FL) << "told before a fault of the name";
    CCategoryMgr refusing([](const std::string&, const CCategoryMgr::Choose&) { return false; });
    EXPECT_EQ(CreateCategoryHelper(&refusing, "name"), 0x8000FFFFL);
    EXPECT_EQ(refusing.GetCount(), 0);
}

TEST(CategoryHelpers, TheCutKeepsWholeCharactersOnEachPage) {
    const std::tuple<unsigned, const char*, const char*> rows[] = {
        {932, "a表表表表表表表表", "a表表表表表表表"},
        {932, "表表表表表表表表", "表表表表表表表"},
        {65001, "a表表表表表", "a表表表表"},
    };
    for (const auto& [page, name, want] : rows) {
        const LocaleInForce locale("ja-JP", page);
        CCategoryMgr manager;
        EXPECT_EQ(CreateCategoryHelper(&manager, SystemText(name)), 0);
        EXPECT_EQ(LastName(manager), want) << page;
    }
}

TEST(CategoryHelpers, ANameInUtf16IsFoundUnderEachCodePage) {
    for (const LocaleCase& row : kBothCodePages) {
        const LocaleInForce locale(row.tag, row.codePage);
        CCategoryMgr manager;
        manager.Load(3, "表");
        manager.Load(5, "All");

        EXPECT_EQ(IndexOf(manager, u"表"), 3);
        EXPECT_EQ(IndexOf(manager, u"aLL"), 16) << "a category of that name is out of reach";
        EXPECT_EQ(IndexOf(manager, u"none"), -1);
        EXPECT_EQ(IndexOf(manager, u""), -1);
    }
}

TEST(CategoryHelpers, CategoriesOfTwoTablesMatchByNameUnlessThereIsOneForAll) {
    MemoryEngine sourceEngine;
    MemoryEngine targetEngine;
    CAddressTable source(sourceEngine);
    CAddressTable target(targetEngine);
    for (const char* name : {"Work", "Home", "Friends", "表"}) {
        EXPECT_EQ(CreateCategoryHelper(source.GetCategoryManager(), name), 0);
    }
    for (const char* name : {"表", "friends", "Work"}) {
        EXPECT_EQ(CreateCategoryHelper(target.GetCategoryManager(), name), 0);
    }
    std::array<int, 16> map{};
    EXPECT_EQ(AdjustCategoryIndices(3, nullptr, nullptr, map.data()), 1);
    EXPECT_THAT(map, Each(3));

    EXPECT_EQ(AdjustCategoryIndices(16, &target, &source, map.data()), 1);

    EXPECT_THAT(map, ElementsAre(0, 3, 0, 2, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
}

TEST(CategoryHelpers, ARecordCountsUnlessItIsArchivedDeletedOrNone) {
    AddressFixture addresses;
    const auto record = addresses.Make({{AddressField::Name, "Lee"}});
    EXPECT_EQ(IsRecordValid(nullptr), 0);
    EXPECT_EQ(IsRecordValid(record.get()), 1);

    record->SetArchived(1);
    EXPECT_EQ(IsRecordValid(record.get()), 0);
    record->SetArchived(0);
    addresses.table.Add(*record);
    addresses.table.Delete(*record);
    EXPECT_EQ(IsRecordValid(record.get()), 0);
}

}  // namespace
}  // namespace orvo
