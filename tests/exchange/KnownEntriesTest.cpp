// Tests of importing what the store holds already.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

std::string Counts(const ImportReport& report) {
    return fmt::format("imported {}, updated {}, unchanged {}, skipped {}",
                       report.addresses + report.toDos, report.updated, report.unchanged,
                       report.skipped.size());
}

// What another program does to an entry, or the user to the record, between two imports.
struct Row {
    const char* why;
    const char* first;
    const char* title;  // that the user sets; null for no edit
    const char* second;
    const char* counts;
    const char* then;
};

constexpr const char* kAdded = "imported 1, updated 0, unchanged 0, skipped 0";
constexpr const char* kUpdated = "imported 0, updated 1, unchanged 0, skipped 0";
constexpr const char* kUnchanged = "imported 0, updated 0, unchanged 1, skipped 0";
constexpr const char* kSkipped = "imported 0, updated 0, unchanged 0, skipped 1";

constexpr Row kRows[] = {
    {"the way in which it is written doesn't count, nor when",
     "UID:A-1\nN:Lee;Ann;;;\nitem1.TEL;TYPE=WORK,VOICE:1\nitem1.X-ABLabel:Boat\nNOTE:a\\, "
     "b\nREV:20200101",
     nullptr,
     "REV:20300101\nUID:urn:uuid:a-1\nNOTE:a,\n  "
     "b\nx.X-ABLabel:Boat\nx.tel;type=voice;type=work:1\nN:Lee;Ann",
     kUnchanged, "name: Lee | first: Ann | phone1 (Work): 1 | note: a, b"},
    {"a later REV updates", "UID:1\nN:Lee\nREV:20200101", nullptr,
     "UID:1\nN:Li\nREV:2020-01-02T00:00:00Z", kUpdated, "name: Li"},
    {"an earlier one leaves", "UID:1\nN:Lee\nREV:20200101", nullptr, "UID:1\nN:Li\nREV:20190101",
     kSkipped, "name: Lee"},
    {"an equal one leaves", "UID:1\nN:Lee\nREV:20200101", nullptr, "UID:1\nN:Li\nREV:20200101",
     kSkipped, "name: Lee"},
    {"no time updates what wasn't edited", "UID:1\nN:Lee", nullptr, "UID:1\nN:Li", kUpdated,
     "name: Li"},
    {"no time leaves what was", "UID:1\nN:Lee", "Dr", "UID:1\nN:Li", kSkipped,
     "name: Lee | title: Dr"},
    {"an edit is later than a past REV", "UID:1\nN:Lee\nREV:20200101", "Dr",
     "UID:1\nN:Li\nREV:20210101", kSkipped, "name: Lee | title: Dr"},
    {"of a newer entry the edit stays that it doesn't touch", "UID:1\nN:Lee\nTEL:1\nREV:20200101",
     "Dr", "UID:1\nN:Lee\nTEL:2\nREV:29990101", kUpdated,
     "name: Lee | title: Dr | phone1 (Other): 2"},
    {"and goes where it does", "UID:1\nN:Lee\nREV:20200101", "Dr",
     "UID:1\nN:Lee\nTITLE:Prof\nREV:29990101", kUpdated, "name: Lee | title: Prof"},
    {"the sequence comes before the time", "UID:1\nN:Lee\nSEQUENCE:1\nREV:20200101", nullptr,
     "UID:1\nN:Li\nSEQUENCE:2\nREV:20190101", kUpdated, "name: Li"},
    {"without a UID it is another one", "N:Lee", nullptr, "N:Lee", kAdded, "name: Lee"},
};

TEST(KnownEntries, AreUpdatedWhereTheyAreNewer) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.why);
        Tables tables(Card(row.first));
        if (row.title) tables.Address()->SetUtf8(AddressField::Title, row.title);

        const ImportReport report = tables.Import(Card(row.second));

        EXPECT_EQ(Counts(report), row.counts);
        EXPECT_EQ(Describe(*tables.Address()), row.then);
    }
}

TEST(KnownEntries, ToDosAreUpdatedPropertyByProperty) {
    Tables tables(
        Calendar(ToDo("UID:1\nSUMMARY:a\nDUE:20260105T120000\nDTSTAMP:20200101T000000Z")));
    tables.ToDo()->SetPriority(1);
    const std::string next = "UID:1\nSUMMARY:b\nDUE:20260106T120000\nDTSTAMP:";

    EXPECT_EQ(Counts(tables.Import(Calendar(ToDo(next + "20210101T000000Z")))), kSkipped);
    EXPECT_EQ(Counts(tables.Import(Calendar(ToDo(next + "29990101T000000Z")))), kUpdated);

    EXPECT_THAT(DescribeAll(tables), ElementsAre("b | priority: 1 | due: 2026-01-06T12:00:00"));
    const std::string series = "UID:1\nRECURRENCE-ID:20260106T120000Z\nSUMMARY:b";
    EXPECT_EQ(Counts(tables.Import(Calendar(ToDo(series)))), kAdded) << "another of the series";
}

TEST(KnownEntries, AFileThatHoldsOneUidTwiceBringsBothAndFindsBoth) {
    const std::string file = Card("UID:1\nN:a") + Card("UID:1\nN:b");
    Tables tables(Card("UID:2\nN:c"));

    EXPECT_EQ(Counts(tables.Import(file)), "imported 2, updated 0, unchanged 0, skipped 0");
    EXPECT_EQ(Counts(tables.Import(Card("UID:1\nN:b") + Card("UID:1\nN:d"))),
              "imported 0, updated 1, unchanged 1, skipped 0");

    EXPECT_THAT(DescribeAll(tables), ElementsAre("name: c", "name: d", "name: b"));
}

TEST(KnownEntries, OneInTheTrashComesBackUpToDate) {
    Tables tables(Card("UID:1\nN:Lee\nREV:20200101"));
    const auto record = tables.Address();
    tables.addresses.Delete(*record);

    const ImportReport report = tables.Import(Card("UID:1\nN:Li\nREV:20200101"));

    EXPECT_EQ(Counts(report), kAdded);
    EXPECT_EQ(report.firstAddress, 0) << "no id is new";
    EXPECT_THAT(DescribeAll(tables), ElementsAre("name: Li"));
    EXPECT_EQ(tables.Address()->GetId(), record->GetId());
}

}  // namespace
}  // namespace orvo
