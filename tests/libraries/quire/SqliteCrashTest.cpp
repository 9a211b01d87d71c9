// Tests of what is left after a program dies or the disk is full.
// SPDX-License-Identifier: MIT
#include <optional>
#include <sys/mount.h>

#include <contract/RecordValues.h>
#include <platform/io/FileSizeLimit.h>
#include <support/AddressFixture.h>
#include <support/ChildProcess.h>

#include "RawStore.h"

namespace orvo {

using testing::AnyOf;

TEST(SqliteCrash, AKilledImportIsThereAsAWholeOrNotAtAll) {
    constexpr int kRows = 2000;
    constexpr int kRowsAStep = 250;
    for (int killedAfter = 1; killedAfter <= 9; ++killedAfter) {
        const StoreFolder folder;
        folder.Open().reset();
        ChildProcess import([&](const Line& parent) {
            const auto engine = folder.Open();
            StoreTransaction transaction(*engine);
            for (int i = 0; i < kRows; ++i) {
                if (StoreFolder::AddRow(*engine, {std::string(2000, 'n'), "source", "origin"}) !=
                    StoreStatus::Ok)
                    return 1;
                if ((i + 1) % kRowsAStep == 0) parent.Tell();
            }
            if (transaction.Commit() != StoreStatus::Ok) return 2;
            parent.Tell();
            pause();
            return 0;
        });
        for (int i = 0; i < killedAfter; ++i) ASSERT_TRUE(import.Await());
        import.Kill();
        EXPECT_EQ(import.Wait(), -1);

        ExpectSound(folder);
        const std::int64_t count = folder.Open()->Count(TableKind::Address);
        if (killedAfter == 9) {
            EXPECT_EQ(count, kRows) << "the commit was acknowledged";
        } else {
            EXPECT_THAT(count, AnyOf(0, kRows));
        }
    }
}

TEST(SqliteCrash, AcknowledgedEditsOutliveAKill) {
    const StoreFolder folder;
    std::int64_t id = 0;
    {
        const auto engine = folder.Open();
        CAddressTable table(*engine);
        id = AddAddress(table, {{AddressField::Name, "0"}})->GetId();
    }
    int edits = 0;
    for (const int killedAfter : {1, 2, 5, 17, 40, 150}) {
        ChildProcess editor([&](const Line& parent) {
            const auto engine = folder.Open();
            CAddressTable table(*engine);
            CAddressRecord record(table);
            if (table.Find(id, record) != 0) return 1;
            for (int i = edits + 1;; ++i) {
                if (record.SetUtf8(AddressField::Name, std::to_string(i)) != 0) return 2;
                parent.Tell();
            }
        });
        for (int i = 0; i < killedAfter; ++i) ASSERT_TRUE(editor.Await());
        editor.Kill();
        int acknowledged = edits + killedAfter;
        while (editor.Await()) ++acknowledged;
        EXPECT_EQ(editor.Wait(), -1);

        ExpectSound(folder);
        const auto engine = folder.Open();
        CAddressTable table(*engine);
        CAddressRecord record(table);
        ASSERT_EQ(table.Find(id, record), 0);
        edits = std::stoi(std::string(record.Utf8(AddressField::Name)));
        EXPECT_THAT(edits, AnyOf(acknowledged, acknowledged + 1));
    }
}

TEST(SqliteCrash, AStoreBesideWhichNothingMayGrowOpensForReading) {
    for (const bool hasLog : {false, true}) {
        const StoreFolder folder;
        ChildProcess writer([&](const Line& parent) {
            const auto engine = folder.Open();
            EXPECT_EQ(StoreFolder::AddRow(*engine, {"a note", "", ""}), StoreStatus::Ok);
            parent.Tell();
            pause();
            return 0;
        });
        ASSERT_TRUE(writer.Await());
        writer.Kill();
        writer.Wait();
        if (hasLog) {
            ASSERT_GT(folder.Read("test.orvo-wal").size(), 0u);
            fs::resize_file(folder.Path("test.orvo-shm"), 0);
        } else {
            folder.Open().reset();
        }
        const std::string before = folder.Read();
        {
            const FileSizeLimit limit(0);
            const auto engine = folder.Open();
            CAddressTable table(*engine);
            CAddressRecord record(table);
            EXPECT_EQ(table.Find(1, record), 0) << table.LastError();
            EXPECT_EQ(NoteOf(record), "a note");
            EXPECT_EQ(record.SetPrivate(1), kFailed);
            EXPECT_EQ(table.LastError(), folder.Path() + ": a file may not grow beyond its limit");
        }
        EXPECT_TRUE(folder.Read() == before);
        EXPECT_EQ(folder.Open()->Count(TableKind::Address), 1);
    }
}

TEST(SqliteCrash, AStoreOnAFullDiskOpensForReading) {
    const StoreFolder folder;
    fs::create_directory(folder.Path("disk"));
    if (mount("none", folder.Path("disk").c_str(), "tmpfs", 0, "size=256k") != 0) {
        GTEST_SKIP() << "a small disk needs the right to mount one";
    }
    const auto unmount = [](const std::string* path) { umount2(path->c_str(), MNT_DETACH); };
    const std::string disk = folder.Path("disk");
    const std::unique_ptr<const std::string, decltype(unmount)> mounted(&disk, unmount);
    std::string error;
    const std::string path = disk + "/test.orvo";
    {
        const auto engine = SqliteEngine::Open(path, error);
        ASSERT_NE(engine, nullptr) << error;
        ASSERT_EQ(StoreFolder::AddRow(*engine), StoreStatus::Ok);
    }
    std::ofstream(disk + "/filler") << std::string(1 << 20, 'x');

    const auto engine = SqliteEngine::Open(path, error);

    ASSERT_NE(engine, nullptr) << error;
    EXPECT_EQ(engine->Count(TableKind::Address), 1);
    EXPECT_EQ(StoreFolder::AddRow(*engine), StoreStatus::Failed);
    EXPECT_EQ(engine->LastError(), path + ": the disk is full");
}

TEST(SqliteCrash, AFullDiskGetsAClearErrorAndChangesNothing) {
    const StoreFolder folder;
    const auto engine = folder.Open();
    CAddressTable table(*engine);
    const auto record = AddAddress(table, {{AddressField::Name, "Ito"}});
    CAddressRecord fresh(table);
    fresh.SetNoteUtf8(std::string(3'000'000, 'n'));
    {
        const FileSizeLimit limit(400'000);

        EXPECT_EQ(record->SetUtf8(AddressField::Name, std::string(3'000'000, 'x')), kFailed);
        EXPECT_EQ(table.Add(fresh), kFailed);
    }
    EXPECT_EQ(table.LastError(), folder.Path() + ": a file may not grow beyond its limit");
    EXPECT_EQ(record->Utf8(AddressField::Name), "Ito");
    EXPECT_EQ(fresh.GetId(), 0);
    EXPECT_FALSE(engine->InTransaction());
    EXPECT_EQ(table.GetCount(), 1);
    ExpectSound(folder);
    EXPECT_EQ(record->SetUtf8(AddressField::City, "Kyoto"), 0) << "with room again it goes on";
    EXPECT_EQ(table.Add(fresh), 0);
}

TEST(SqliteCrash, ATransactionThatMeetsAFullDiskKeepsNothing) {
    const StoreFolder folder;
    const auto engine = folder.Open();
    CAddressTable table(*engine);
    {
        StoreTransaction transaction(*engine);
        std::optional<FileSizeLimit> limit(400'000);
        StoreStatus status = StoreStatus::Ok;
        for (int i = 0; i < 3000 && status == StoreStatus::Ok; ++i) {
            status = StoreFolder::AddRow(*engine, {std::string(3000, 'n'), "", ""});
        }
        EXPECT_EQ(status, StoreStatus::Failed);
        limit.reset();
        EXPECT_EQ(StoreFolder::AddRow(*engine), StoreStatus::Failed)
            << "nothing slips out of a transaction that was dropped";
        EXPECT_EQ(transaction.Commit(), StoreStatus::Failed);
    }
    EXPECT_FALSE(engine->InTransaction());
    EXPECT_EQ(table.GetCount(), 0);
    ExpectSound(folder);
    AddAddress(table);
}

}  // namespace orvo
