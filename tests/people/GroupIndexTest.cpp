// Groups of people, and who is in them.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <exchange/files/ImportFile.h>
#include <libraries/quire/MemoryEngine.h>
#include <people/GroupIndex.h>
#include <people/PersonEdits.h>

namespace orvo {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

constexpr const char* kCards =
    "BEGIN:VCARD\nVERSION:3.0\nFN:Ann\nUID:A-1\nEMAIL:ann@x.org\nEND:VCARD\n"
    "BEGIN:VCARD\nVERSION:4.0\nFN:Bo\nUID:urn:uuid:b-2\nTEL:1\nEND:VCARD\n"
    "BEGIN:VCARD\nVERSION:4.0\nKIND:group\nFN:Team\nUID:t\nMEMBER:urn:uuid:a-1\n"
    "MEMBER:urn:uuid:B-2\nMEMBER:urn:uuid:t\nEND:VCARD\n"
    "BEGIN:VCARD\nVERSION:3.0\nX-EVOLUTION-LIST:TRUE\nFN:List\nEMAIL:ANN@x.org\nEND:VCARD\n"
    "BEGIN:VCARD\nVERSION:3.0\nX-ADDRESSBOOKSERVER-KIND:group\nFN:Old\n"
    "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:b-2\nEND:VCARD\n";

struct GroupIndexTest : testing::Test {
    GroupIndexTest() {
        ImportBytes(kCards, addresses, toDos);
        ReadAll();
    }

    void ReadAll() {
        // A moment is enough for one record at least.
        for (int i = 0; i < 10; ++i) groups.Read(milliseconds::zero());
        ASSERT_TRUE(groups.IsWhole());
    }

    MemoryEngine engine;
    CAddressTable addresses{engine};
    CToDoTable toDos{engine};
    GroupIndex groups{addresses};
};

TEST_F(GroupIndexTest, MembersAreFoundByUidAndMailInEachFormOfGroups) {
    EXPECT_EQ(groups.Groups().size(), 3u);
    EXPECT_EQ(groups.Groups().at(4).name, "List");
    EXPECT_THAT(groups.GroupsOf(1), ElementsAre(3, 4));
    EXPECT_THAT(groups.GroupsOf(2), ElementsAre(3, 5));
    // One that names itself.
    EXPECT_THAT(groups.GroupsOf(3), ElementsAre(3));
    EXPECT_EQ(groups.PersonOf("mailto:ann@X.org"), 1);
    EXPECT_EQ(groups.PersonOf("urn:uuid:nobody"), std::nullopt);
}

TEST_F(GroupIndexTest, WhatHasChangedIsReadAgain) {
    CAddressRecord team(addresses);
    ASSERT_EQ(addresses.Find(3, team), 0);
    Person person;
    ASSERT_EQ(ReadKeptPerson(team, person), 0);
    PersonEdits edits;
    edits.details = {{false, true, person.details.front()}};
    ASSERT_EQ(EditPerson(team, addresses, edits), 0);
    CAddressRecord bo(addresses);
    ASSERT_EQ(addresses.Find(2, bo), 0);
    ASSERT_EQ(addresses.Delete(bo), 0);
    groups.Forget(3);
    groups.Forget(2);
    ReadAll();
    EXPECT_THAT(groups.GroupsOf(1), ElementsAre(4));
    EXPECT_THAT(groups.GroupsOf(2), ElementsAre());
    groups.Clear();
    EXPECT_EQ(groups.Groups().size(), 0u);
    ReadAll();
    EXPECT_EQ(groups.Groups().size(), 3u);
}

}  // namespace
}  // namespace orvo
