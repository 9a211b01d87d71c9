// Eight processes that add and remove rows at once while some of them are killed.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <orvoshare/shared/DalAccessController.h>
#include <platform/ipc/RuntimeFixture.h>
#include <support/Program.h>

namespace orvo {
namespace {

// One of the eight, started again after each kill, and the keys of the rows that it has told.
class Member {
public:
    explicit Member(int number) : m_name(fmt::format("P{}", number)) { Start(); }

    // Lets it add that many rows, for which the caller needn't wait.
    void Go(unsigned steps) {
        m_program->Write(std::string(steps, '.'));
        m_steps += steps;
    }

    // Reads one line of what it has done; false at the end of the process.
    bool Read() {
        const std::string line = m_program->Line();
        if (line.empty()) return false;
        EXPECT_NE(line.front(), '=') << m_name << line;
        const bool isAdded = line.front() == '+';
        m_rows[static_cast<unsigned>(std::stoul(line.substr(1)))] = isAdded;
        m_added += isAdded;
        m_steps -= isAdded;
        return true;
    }

    // Reads as many lines, or fewer where all its steps are done.
    void Read(unsigned lines) {
        while (lines-- > 0 && m_steps > 0) Read();
    }

    void Await() {
        while (m_steps > 0 && Read()) {
        }
        EXPECT_EQ(m_steps, 0U);
    }

    void KillAndStartAgain(CDalAccessController& table) {
        m_program->Kill();
        while (Read()) {
        }
        EXPECT_EQ(m_program->Wait(), -1);
        m_steps = 0;
        EXPECT_LE(Check(table), 1) << "the step that was cut";
        Start();
    }

    void Finish() { EXPECT_EQ(m_program->Wait(), 0); }

    // How many rows aren't as they were told. Each that is there must be whole.
    int Check(CDalAccessController& table) {
        int differences = 0;
        for (unsigned key = 0; key < 40; ++key) {
            const std::string user = fmt::format("{}-{}", m_name, key);
            CString owner;
            const bool isThere = table.GetOwner(user.c_str(), key, owner) != 0;
            EXPECT_TRUE(!isThere || owner.Bytes() == "owner of " + user) << owner.Bytes();
            differences += std::exchange(m_rows[key], isThere) != isThere;
        }
        return differences;
    }

    unsigned Added() const { return m_added; }
    auto Present() const {
        return std::count_if(m_rows.begin(), m_rows.end(),
                             [](const auto& row) { return row.second; });
    }

private:
    void Start() {
        m_program = std::make_unique<Program>(ACCESSOR, std::vector<std::string>{"crowd", m_name});
    }

    std::string m_name;
    std::unique_ptr<Program> m_program;
    std::map<unsigned, bool> m_rows;
    unsigned m_steps = 0;
    unsigned m_added = 0;
};

using AccessCrowd = RuntimeFixture;

TEST_F(AccessCrowd, NoRowIsLostDoubledOrMixedWhoeverIsKilled) {
    CDalAccessController table;
    ASSERT_EQ(table.Initialize(), 1);
    std::vector<std::unique_ptr<Member>> members;
    for (int i = 0; i < 8; ++i) members.push_back(std::make_unique<Member>(i));
    std::mt19937 random(20260101);

    for (unsigned added = 0; added < 10'000;) {
        for (const auto& member : members) member->Go(1 + random() % 25);
        Member& victim = *members[random() % members.size()];
        victim.Read(random() % 30);
        victim.KillAndStartAgain(table);
        added = 0;
        for (const auto& member : members) {
            member->Await();
            added += member->Added();
        }
    }
    for (const auto& member : members) member->Finish();

    std::ptrdiff_t present = 0;
    for (const auto& member : members) {
        EXPECT_EQ(member->Check(table), 0);
        present += member->Present();
    }
    unsigned long count = 0;
    CAccessInfo* rows = nullptr;
    table.GetAccessInfoArray(&count, &rows);
    EXPECT_EQ(count, static_cast<unsigned long>(present));
    std::set<std::string> users;
    for (unsigned long i = 0; i < count; ++i) {
        EXPECT_TRUE(users.insert(rows[i].user).second) << rows[i].user << " stands twice";
        EXPECT_EQ(fmt::format("owner of {}", rows[i].user), rows[i].owner);
    }
}

TEST_F(AccessCrowd, ManyFirstUsersComeToTheSameTable) {
    for (int round = 0; round < 5; ++round) {
        std::vector<std::unique_ptr<Program>> programs;
        for (int i = 0; i < 8; ++i) {
            programs.push_back(std::make_unique<Program>(
                ACCESSOR, std::vector<std::string>{"claim", fmt::to_string(i), "o"}));
        }
        for (const auto& program : programs) EXPECT_EQ(program->Line(), "own []");
        CDalAccessController table;
        ASSERT_EQ(table.Attach(), 1);
        unsigned long count = 0;
        CAccessInfo* rows = nullptr;
        table.GetAccessInfoArray(&count, &rows);
        EXPECT_EQ(count, 8U);
    }
}

}  // namespace
}  // namespace orvo
