// Eight processes that add and remove rows at once while some of them are killed.
// SPDX-License-Identifier: MIT
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <orvoshare/shared/DalAccessController.h>
#include <platform/ipc/RuntimeFixture.h>
#include <support/Program.h>

namespace orvo {
namespace {

enum class Row { Absent, Present, Unknown };

// One of the eight, started again after each kill, and what must be in the table of it.
class Member {
public:
    explicit Member(int number) : m_name(fmt::format("P{}", number)) { Start(); }

    // Lets it add that many rows, for which the caller needn't wait.
    void Go(unsigned steps) {
        m_program->Write(std::string(steps, '.'));
        m_steps += steps;
    }

    // Reads one line of what it does; false at the end of the process.
    bool Read() {
        const std::string line = m_program->Line();
        if (line.empty()) return false;
        EXPECT_NE(line.front(), '=') << m_name << line;
        const unsigned key = static_cast<unsigned>(std::stoul(line.substr(1)));
        const Row after = line.front() == '+' ? Row::Present : Row::Absent;
        const bool isDone = line.back() == '!';
        m_rows[key] = isDone ? after : Row::Unknown;
        if (isDone && after == Row::Present) {
            ++m_added;
            --m_steps;
        }
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
        Check(table);
        Start();
    }

    void Finish() { EXPECT_EQ(m_program->Wait(), 0); }

    // A row whose step was cut may be there or not, as long as it is whole.
    void Check(CDalAccessController& table) {
        for (auto& [key, row] : m_rows) {
            const std::string user = fmt::format("{}-{}", m_name, key);
            CString owner;
            const bool isThere = table.GetOwner(user.c_str(), key, owner) != 0;
            EXPECT_NE(row, isThere ? Row::Absent : Row::Present) << user;
            EXPECT_TRUE(!isThere || owner.Bytes() == "owner of " + user) << owner.Bytes();
            row = isThere ? Row::Present : Row::Absent;
        }
    }

    unsigned Added() const { return m_added; }
    std::size_t Present() const {
        std::size_t count = 0;
        for (const auto& [key, row] : m_rows) count += row == Row::Present;
        return count;
    }

private:
    void Start() {
        m_program = std::make_unique<Program>(ACCESSOR, std::vector<std::string>{"crowd", m_name});
    }

    std::string m_name;
    std::unique_ptr<Program> m_program;
    std::map<unsigned, Row> m_rows;
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

    std::size_t present = 0;
    for (const auto& member : members) {
        member->Check(table);
        present += member->Present();
    }
    unsigned long count = 0;
    CAccessInfo* rows = nullptr;
    table.GetAccessInfoArray(&count, &rows);
    EXPECT_EQ(count, present);
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
