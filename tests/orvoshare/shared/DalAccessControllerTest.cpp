// Tests of the table of accessors: its rules, its bytes, and what kills leave of it.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <csignal>
#include <cstring>
#include <functional>
#include <random>
#include <set>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>
#include <vector>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <orvoshare/shared/DalAccessController.h>
#include <platform/ipc/RuntimeFixture.h>
#include <platform/text/SystemText.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kRows = 28;
constexpr std::size_t kRow = 52;
constexpr std::size_t kBehindRows = kRows + 629 * kRow;  // the row to move to, the count to come

class AccessTable : public RuntimeFixture {
protected:
    AccessTable() { EXPECT_EQ(table.Initialize(), 1); }

    std::vector<std::string> Users() {
        unsigned long count = 0;
        CAccessInfo* rows = nullptr;
        EXPECT_EQ(table.GetAccessInfoArray(&count, &rows), 1);
        std::vector<std::string> users;
        for (unsigned long i = 0; i < count; ++i) users.emplace_back(rows[i].user);
        return users;
    }

    std::string OwnerOf(const char* user, unsigned long creator = 1) {
        CString owner;
        return table.GetOwner(user, creator, owner) != 0 ? owner.Bytes() : "nobody";
    }
    int Add(const char* user, unsigned long creator, const char* owner) {
        return table.AddAccessorInfo(user, creator, owner);
    }
    void AddEach(std::initializer_list<const char*> users) {
        for (const char* user : users) EXPECT_EQ(Add(user, 1, user), 1);
    }

    char* Block() { return static_cast<char*>(table.GetDataBuffer()) - 24; }

    std::uint32_t Word(std::size_t offset) {
        std::uint32_t word = 0;
        std::memcpy(&word, Block() + offset, sizeof word);
        return word;
    }
    void PutWord(std::size_t offset, std::uint32_t word) {
        std::memcpy(Block() + offset, &word, sizeof word);
    }

    CDalAccessController table;
};

TEST_F(AccessTable, EachByteLiesAtItsOffset) {
    EXPECT_EQ(Add("first", 1, "A"), 1);
    EXPECT_EQ(Add(std::string(25, 'u').c_str(), 0x04030201, std::string(30, 'o').c_str()), 1);

    EXPECT_EQ(Word(0), 1U);
    EXPECT_EQ(Word(4), 1U);
    for (const std::size_t offset : {8U, 12U, 16U, 20U}) EXPECT_EQ(Word(offset), 0U) << offset;
    EXPECT_EQ(Word(24), 2U);
    EXPECT_STREQ(Block() + kRows, "first");
    EXPECT_EQ(std::string(Block() + kRows + kRow, kRow),
              std::string(20, 'u') + std::string(4, '\0') + "\x01\x02\x03\x04" +
                  std::string(23, 'o') + '\0');
    char* behind = Block() + kRows + 2 * kRow;
    EXPECT_TRUE(std::all_of(behind, Block() + 0x8000, [](char byte) { return byte == 0; }));
}

TEST_F(AccessTable, AKeyIsUserWithoutCaseAndCreator) {
    EXPECT_EQ(Add("Anna", 7, "A"), 1);
    EXPECT_EQ(Add("ABCDEFGHIJKLMNOPQRSTUVWXYZ", 7, "B"), 1);
    constexpr std::tuple<const char*, const char*, unsigned long, const char*> rows[] = {
        {"the same", "Anna", 7, "A"},
        {"another case", "aNNA", 7, "A"},
        {"another creator", "Anna", 8, "nobody"},
        {"a longer name", "Annabel", 7, "nobody"},
        {"a shorter name", "Ann", 7, "nobody"},
        {"a name that the row doesn't hold as a whole", "abcdefghijklmnopqrstuvwxyz", 7, "B"},
        {"what the row holds of it", "ABCDEFGHIJKLMNOPQRST", 7, "B"},
    };
    for (const auto& [why, user, creator, owner] : rows) {
        EXPECT_EQ(OwnerOf(user, creator), owner) << why;
        const bool isFree = owner == std::string_view("nobody");
        EXPECT_EQ(Add(user, creator, "C"), isFree) << why;
        if (isFree) table.RemoveAccessorInfo(user, creator);
    }
    EXPECT_EQ(OwnerOf("anna", 7), "A") << "a refused row changes nothing";
    EXPECT_THAT(Users(), ElementsAre("Anna", "ABCDEFGHIJKLMNOPQRST"));
}

TEST_F(AccessTable, WhatNobodyHasIsAllowedAndOnlyTheDesktopSharesItsDataSet) {
    int heldByDesktop = 7;
    EXPECT_EQ(table.AllowDataAccess("u", 1, &heldByDesktop), 1);
    EXPECT_EQ(heldByDesktop, 0);
    EXPECT_EQ(table.RemoveAccessorInfo("u", 1) + table.RemoveAccessorInfo(nullptr, 1), 0);
    for (const auto& [owner, isShared] :
         {std::pair{"Orvo Desktop", 1}, {"ORVO desktop", 1}, {"Orvo Desktop 2", 0}, {"orvo", 0}}) {
        EXPECT_EQ(Add("u", 1, owner), 1);
        EXPECT_EQ(table.AllowDataAccess("U", 1, &heldByDesktop), isShared) << owner;
        EXPECT_EQ(heldByDesktop, isShared) << owner;
        EXPECT_EQ(table.RemoveAccessorInfo("U", 1), 1);
    }
}

TEST_F(AccessTable, ARemovedRowLeavesTheOthersInTheirOrder) {
    for (const std::string removed : {"a", "b", "c"}) {
        AddEach({"a", "b", "c"});
        EXPECT_EQ(table.RemoveAccessorInfo(removed.c_str(), 1), 1);
        std::string left;
        for (const std::string& user : Users()) {
            left += OwnerOf(user.c_str());
            EXPECT_EQ(table.RemoveAccessorInfo(user.c_str(), 1), 1);
        }
        EXPECT_EQ(left, removed == "a" ? "bc" : removed == "b" ? "ac" : "ab");
    }
}

TEST_F(AccessTable, AFullTableRefusesARowAndIsUntouched) {
    for (unsigned long i = 0; i < 629; ++i) ASSERT_EQ(Add("u", i, "o"), 1);
    const std::string before(Block(), 0x8000);

    EXPECT_EQ(Add("u", 629, "o"), 0);

    EXPECT_EQ(std::string(Block(), 0x8000), before);
    EXPECT_EQ(table.RemoveAccessorInfo("u", 0), 1);
    EXPECT_EQ(Add("u", 629, "o"), 1);
    EXPECT_EQ(Word(kBehindRows), 0U) << "a removal leaves no mark behind";
    EXPECT_EQ(Word(kBehindRows + 4), 0U);
}

TEST_F(AccessTable, TheCountIsNeverMoreThanTheRows) {
    Add("u", 1, "o");
    for (const unsigned long count : {629UL, 630UL, 0xFFFFFFFFUL}) {
        table.SetAccessorCount(count);
        EXPECT_EQ(Users().size(), 629U);
        EXPECT_EQ(OwnerOf("none"), "nobody");
    }
    PutWord(24, 0xFFFFFFFF);
    EXPECT_EQ(Users().size(), 629U) << "whoever wrote it";
    table.SetAccessorCount(1);
    EXPECT_THAT(Users(), ElementsAre("u"));
}

// What a kill at any moment of `work` could leave in a block: its bytes after each instruction that
// changed them, as another process sees them.
std::vector<std::string> MomentsOf(const char* block, const std::function<void()>& work) {
    std::vector<std::string> moments{std::string(block, 0x8000)};
    const pid_t child = ::fork();
    if (child == 0) {
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        work();
        ::_exit(0);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) == child && WIFSTOPPED(status)) {
        if (std::memcmp(moments.back().data(), block, 0x8000) != 0) {
            moments.emplace_back(block, 0x8000);
        }
        EXPECT_EQ(::ptrace(PTRACE_SINGLESTEP, child, nullptr, nullptr), 0);
    }
    EXPECT_TRUE(WIFEXITED(status));
    return moments;
}

TEST_F(AccessTable, ARemovalCutAtAnyMomentIsDoneAsAWholeOrNotAtAll) {
    AddEach({"a", "b", "c", "d"});

    const auto moments = MomentsOf(Block(), [&] { table.RemoveAccessorInfo("b", 1); });

    std::size_t whole = 0;
    for (const std::string& moment : moments) {
        std::memcpy(Block(), moment.data(), moment.size());
        const std::vector<std::string> users = Users();
        whole += users == std::vector<std::string>{"a", "b", "c", "d"};
        ASSERT_THAT(users, AnyOf(ElementsAre("a", "b", "c", "d"), ElementsAre("a", "c", "d")));
        for (const std::string& user : users) ASSERT_EQ(OwnerOf(user.c_str()), user);
        ASSERT_EQ(Word(kBehindRows), 0U);
    }
    EXPECT_EQ(whole, 2U) << "before its mark is set";
    EXPECT_GE(moments.size(), 9U) << "the marks, two rows, the count, and before them";
}

TEST_F(AccessTable, AnAdditionCutAtAnyMomentShowsAWholeRowOrNone) {
    Add("a", 1, "a");

    const auto moments = MomentsOf(Block(), [&] { Add("b", 2, "owner"); });

    for (const std::string& moment : moments) {
        std::memcpy(Block(), moment.data(), moment.size());
        ASSERT_EQ(OwnerOf("b", 2), Users().size() == 1 ? "nobody" : "owner");
    }
    EXPECT_EQ(Users().size(), 2U);
}

TEST_F(AccessTable, AMarkThatNoRemovalMakesHarmsNothing) {
    AddEach({"a"});
    using Mark = std::pair<std::uint32_t, std::uint32_t>;
    for (const auto& [movingTo, countAfter] :
         {Mark(1, 629), Mark(3, 1), Mark(630, 629), Mark(1, 0xFFFFFFFF), Mark(0xFFFFFFFF, 5)}) {
        PutWord(kBehindRows, movingTo);
        PutWord(kBehindRows + 4, countAfter);
        EXPECT_THAT(Users(), ElementsAre("a")) << movingTo;
        EXPECT_EQ(Word(kBehindRows), 0U);
    }
}

TEST_F(AccessTable, OnlyInitializeMakesTheBlock) {
    CDalAccessController other;
    EXPECT_EQ(other.Attach(), 1);
    EXPECT_EQ(Add("u", 1, "o"), 1);
    CString owner;
    EXPECT_EQ(other.GetOwner("u", 1, owner), 1);
    EXPECT_EQ(table.Initialize(), 1) << "once more changes nothing";
    EXPECT_EQ(table.CloseMap(), 1);
    EXPECT_EQ(other.CloseMap(), 1);

    EXPECT_EQ(other.Attach(), 0);
    EXPECT_EQ(other.DoesMapExist("KvtDalAccessController"), 0);
    EXPECT_EQ(other.Initialize(), 1);
    EXPECT_EQ(other.GetOwner("u", 1, owner), 0) << "a new table is empty";
}

TEST_F(AccessTable, ATableWithoutAViewIsEmptyAndTakesNothing) {
    table.CloseMap();
    CMapFileHelper tooSmall;
    ASSERT_EQ(tooSmall.CreateOrOpenMap(1, "KvtDalAccessController", 100, 1, 1), 1);
    EXPECT_EQ(table.Initialize(), 1) << "the block is there";

    int heldByDesktop = 0;
    EXPECT_EQ(Add("u", 1, "o"), 0);
    EXPECT_EQ(table.RemoveAccessorInfo("u", 1), 0);
    EXPECT_EQ(table.AllowDataAccess("u", 1, &heldByDesktop), 1);
    table.SetAccessorCount(5);
    EXPECT_THAT(Users(), IsEmpty());
}

TEST_F(AccessTable, ACutSplitsNoCharacter) {
    for (const LocaleCase& page : kBothCodePages) {
        const LocaleInForce locale(page.tag, page.codePage);
        const std::string hyo = SystemText("表").Bytes();
        const std::string name = std::string(19, 'x') + hyo;
        EXPECT_EQ(Add(name.c_str(), page.codePage, (std::string(22, 'x') + hyo).c_str()), 1);
        EXPECT_EQ(OwnerOf(name.c_str(), page.codePage), std::string(22, 'x'));
        EXPECT_EQ(Users().back(), std::string(19, 'x'));
    }
}

// A process that removes and adds its rows until it is killed, and ends where one isn't as it left
// it. Rows of a former one of its number may be there or not.
pid_t StartMember(int number) {
    const pid_t child = ::fork();
    if (child != 0) return child;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    constexpr unsigned kKeys = 40;
    CDalAccessController table;
    bool isSound = table.Initialize() != 0;
    for (unsigned step = 0; isSound; ++step) {
        const unsigned key = step * 7 % kKeys;
        const std::string user = fmt::format("P{}-{}", number, key);
        CString owner;
        const bool wasThere = table.GetOwner(user.c_str(), key, owner) != 0;
        isSound = (wasThere || step < kKeys) && (!wasThere || owner.Bytes() == user) &&
                  (table.RemoveAccessorInfo(user.c_str(), key) != 0) == wasThere &&
                  table.AddAccessorInfo(user.c_str(), key, user.c_str()) != 0;
    }
    ::_exit(1);
}

using AccessCrowd = RuntimeFixture;

TEST_F(AccessCrowd, NoRowIsLostDoubledOrMixedWhoeverIsKilledAndAllComeToOneTable) {
    std::mt19937 random(20260101);
    for (int crowd = 0; crowd < 3; ++crowd) {
        std::vector<pid_t> members;
        for (int number = 0; number < 8; ++number) members.push_back(StartMember(number));
        CDalAccessController table;
        ASSERT_EQ(table.Initialize(), 1);
        const auto kill = [&](std::size_t number) {
            ::kill(members[number], SIGKILL);
            int status = 0;
            EXPECT_EQ(::waitpid(members[number], &status, 0), members[number]);
            EXPECT_TRUE(WIFSIGNALED(status)) << "it found a row that isn't as it left it";
        };
        for (int round = 0; round < 70; ++round) {
            ::usleep(random() % 20'000);
            const std::size_t victim = random() % members.size();
            kill(victim);
            members[victim] = StartMember(static_cast<int>(victim));
        }
        ::usleep(500'000);
        for (std::size_t number = 0; number < members.size(); ++number) kill(number);

        unsigned long count = 0;
        CAccessInfo* rows = nullptr;
        table.GetAccessInfoArray(&count, &rows);
        std::set<std::string> users;
        for (unsigned long i = 0; i < count; ++i) {
            EXPECT_TRUE(users.insert(rows[i].user).second) << rows[i].user << " stands twice";
            EXPECT_STREQ(rows[i].user, rows[i].owner);
        }
        EXPECT_GE(count, 8U * 39);
    }
}

}  // namespace
}  // namespace orvo
