// Which to-dos are parts of which.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <libraries/quire/MemoryEngine.h>
#include <orvoshare/todo/TodoParts.h>

namespace orvo {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

class TodoPartsTest : public testing::Test {
protected:
    // A stored to-do whose UID is "u" and its number in capital letters, as a file may write it.
    void Add(std::int64_t number, const std::string& parent, bool isCompleted = false) {
        CToDoRecord record(table);
        record.SetSource("BEGIN:VTODO\r\nUID:U" + std::to_string(number) + "\r\nEND:VTODO\r\n");
        ASSERT_EQ(table.Add(record), 0);
        ASSERT_EQ(record.GetId(), number);
        parts.Note(number, parent, isCompleted);
    }

    MemoryEngine engine;
    CToDoTable table{engine};
    TodoParts parts{table};
};

TEST_F(TodoPartsTest, APartBelongsToTheToDoWhoseUidItNames) {
    Add(1, "");
    Add(2, "urn:uuid:u1", true);
    Add(3, "u1");
    Add(4, "u3");
    Add(5, "elsewhere");
    EXPECT_THAT(parts.PartsOf("U1"), ElementsAre(2, 3));
    EXPECT_EQ(parts.CountOf("u1"), (PartCount{1, 2}));
    EXPECT_EQ(parts.ParentOf(4), 3);
    EXPECT_EQ(parts.ParentOf(5), 0);
    EXPECT_THAT(parts.AllBelow(1), UnorderedElementsAre(2, 3, 4));

    parts.Note(2, "", false);
    parts.Note(4, "u1", true);
    CToDoRecord gone(table);
    EXPECT_EQ(table.Find(3, gone), 0);
    EXPECT_EQ(table.Delete(gone), 0);
    parts.Forget(3);
    EXPECT_THAT(parts.PartsOf("u1"), ElementsAre(4));
    EXPECT_TRUE(parts.AllBelow(3).empty());
}

TEST_F(TodoPartsTest, WithinACircleNobodyIsAPart) {
    Add(1, "u3");
    Add(2, "u1");
    Add(3, "u2");
    Add(4, "u3");
    Add(5, "u5");
    Add(6, "u4");
    EXPECT_EQ(parts.ParentOf(1), 0);
    EXPECT_EQ(parts.ParentOf(5), 0);
    EXPECT_EQ(parts.ParentOf(4), 3);
    EXPECT_THAT(parts.PartsOf("u3"), ElementsAre(4));
    EXPECT_TRUE(parts.PartsOf("u1").empty());
    EXPECT_THAT(parts.AllBelow(3), UnorderedElementsAre(4, 6));
    EXPECT_TRUE(parts.AllBelow(1).empty());
}

}  // namespace
}  // namespace orvo
