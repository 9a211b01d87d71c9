// Eight processes that add and remove rows at once while some of them are killed.
// SPDX-License-Identifier: MIT
#include <csignal>
#include <random>
#include <set>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <orvoshare/shared/DalAccessController.h>
#include <platform/ipc/RuntimeFixture.h>

namespace orvo {
namespace {

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
