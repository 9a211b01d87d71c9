// Tests of backups of a store and of the way back to them.
// SPDX-License-Identifier: MIT
#include <chrono>
#include <random>

#include <fmt/format.h>

#include <libraries/quire/StoreBackup.h>
#include <platform/io/FileSizeLimit.h>
#include <support/ChildProcess.h>

#include "RawStore.h"

namespace orvo {

namespace {

constexpr const char* kKept = "test.orvo.before-restore";

void AddRows(StoreEngine& engine, int count, const std::string& note) {
    StoreTransaction transaction(engine);
    for (int i = 0; i < count; ++i) {
        EXPECT_EQ(StoreFolder::AddRow(engine, {note, "source", "origin", {SharedText(note)}}),
                  StoreStatus::Ok);
    }
    EXPECT_EQ(transaction.Commit(), StoreStatus::Ok);
}

class StoreBackup : public testing::Test {
protected:
    bool BackUp(const std::string& target = "backup.db", bool mayReplace = false) {
        return BackUpStore(folder.Path(), folder.Path(target), mayReplace, counts, error);
    }
    bool Restore(const std::string& backup = "backup.db") {
        return RestoreStore(folder.Path(), folder.Path(backup), report, error);
    }
    // How many rows, with which notes and texts.
    std::string Content(const std::string& name = "test.orvo") const {
        return RawStore(folder.Path(name))
            .Run(
                "SELECT count(*) || group_concat(DISTINCT note || CAST(bytes AS TEXT)) FROM "
                "address "
                "JOIN address_extra USING (id) JOIN address_shared USING (id) "
                "JOIN shared ON shared.id = shared");
    }
    void Damage() const {
        std::string bytes = folder.Read();
        std::fill_n(bytes.begin() + 4096, 8192, '\xff');
        folder.Write("test.orvo", bytes);
    }

    const StoreFolder folder;
    StoreCounts counts;
    RestoreReport report;
    std::string error;
};

}  // namespace

TEST_F(StoreBackup, IsWholeWhileAnotherProcessWrites) {
    folder.Open().reset();
    ChildProcess writer([&](const Line& parent) {
        const auto engine = folder.Open();
        for (int i = 0;; ++i) {
            AddRows(*engine, 10, std::to_string(i));
            parent.Tell();
        }
        return 0;
    });
    for (int i = 0; i < 8; ++i) {
        for (int told = 0; told < 5; ++told) ASSERT_TRUE(writer.Await());
        ASSERT_TRUE(BackUp("backup.db", true)) << error;
        EXPECT_EQ(counts.addresses % 10, 0);
        EXPECT_GE(counts.addresses, (i + 1) * 50);
    }
    writer.Kill();
}

TEST_F(StoreBackup, IsRefusedWithOneLineWhereItWouldHarm) {
    AddRows(*folder.Open(), 1, "a");
    ASSERT_TRUE(BackUp()) << error;
    folder.Write("letter.txt", "Dear Ada");
    fs::create_symlink(folder.Path(), folder.Path("link.db"));
    fs::create_hard_link(folder.Path(), folder.Path("hard.db"));
    fs::copy_file(folder.Path("backup.db"), folder.Path("open.db"));
    folder.Write("open.db-wal", "log");
    const auto open = folder.Open();
    const auto names = folder.Names();
    const std::string store = folder.Read();

    for (const char* target :
         {"test.orvo", "link.db", "hard.db", "test.orvo-wal", "letter.txt", "open.db", "no/b.db"}) {
        EXPECT_FALSE(BackUp(target, true)) << target;
        EXPECT_THAT(error, testing::MatchesRegex("[^\n]*: [^\n]+")) << target;
    }
    EXPECT_FALSE(BackUp("backup.db"));
    EXPECT_EQ(error, folder.Path("backup.db") + ": is there already; name a new file");
    EXPECT_EQ(folder.Names(), names);
    EXPECT_TRUE(folder.Read() == store);
    EXPECT_EQ(folder.Read("letter.txt"), "Dear Ada");
}

TEST_F(StoreBackup, OnAFullDiskOrOfADamagedStoreLeavesTheEarlierOne) {
    AddRows(*folder.Open(), 100, std::string(5000, 'n'));
    ASSERT_TRUE(BackUp()) << error;
    const std::string before = folder.Read("backup.db");
    {
        const FileSizeLimit limit(100'000);
        EXPECT_FALSE(BackUp("backup.db", true));
        EXPECT_THAT(error, HasSubstr("backup.db: can't be written: a file may not grow"));
        EXPECT_FALSE(Restore());
    }
    EXPECT_EQ(folder.Open()->Count(TableKind::Address), 100);
    Damage();
    EXPECT_FALSE(BackUp("backup.db", true));
    EXPECT_EQ(error, folder.Path() + ": the store is damaged");
    EXPECT_TRUE(folder.Read("backup.db") == before);
    EXPECT_THAT(folder.Names(), ElementsAre("backup.db", "test.orvo"));
}

TEST_F(StoreBackup, IsRestoredUnderOthersEyesAndTakenBack) {
    AddRows(*folder.Open("backup.db"), 1, "first");
    AddRows(*folder.Open("backup.db"), 2, "old");
    AddRows(*folder.Open(), 3, "old");
    AddRows(*folder.Open(), 2, "new");
    const std::string before = Content();
    const auto other = folder.Open();
    RowExtra held;
    ASSERT_EQ(other->ReadExtra(TableKind::Address, 5, held), StoreStatus::Ok);
    const std::int64_t version = other->ForeignVersion();
    ChangePlace place(other->Revision());

    ASSERT_TRUE(Restore()) << error;

    EXPECT_EQ(report.kept, folder.Path(kKept));
    EXPECT_NE(other->ForeignVersion(), version);
    EXPECT_EQ(other->Count(TableKind::Address), 3);
    std::vector<StoreChange> changes;
    EXPECT_GT(other->Revision(), place.since);
    EXPECT_EQ(other->ReadChanges(place, 10, changes), StoreStatus::Gone);
    RowExtra read;
    ASSERT_EQ(other->ReadExtra(TableKind::Address, 3, read), StoreStatus::Ok);
    EXPECT_EQ(read.shared.front().Text(), "old");
    AddRows(*other, 1, "new");
    EXPECT_EQ(RawStore(folder.Path()).Run("SELECT max(id) FROM address"), "6");
    ASSERT_TRUE(Restore(kKept)) << error;
    EXPECT_EQ(Content(), before);
    EXPECT_EQ(Content(kKept + std::string("-2")), "4firstfirst,oldold,newnew");
    ExpectSound(folder);
}

TEST_F(StoreBackup, OfAnOlderVersionAndForADamagedOrMissingStoreIsRestored) {
    fs::copy_file(ORVO_OLD_STORES "/version-1.db", folder.Path("old.db"));
    ASSERT_TRUE(Restore("old.db")) << error;
    EXPECT_EQ(report.kept, "");
    const std::int64_t count = folder.Open()->Count(TableKind::Address);
    EXPECT_GT(count, 0);
    const std::int64_t revision = folder.Open()->Revision();
    Damage();
    const std::string damaged = folder.Read();
    ASSERT_TRUE(Restore("old.db")) << error;
    EXPECT_TRUE(report.isNewFile);
    EXPECT_TRUE(folder.Read(kKept) == damaged);
    EXPECT_EQ(folder.Open()->Count(TableKind::Address), count);
    EXPECT_GT(folder.Open()->Revision(), revision);
    EXPECT_FALSE(Restore(kKept));
    EXPECT_THAT(folder.Names(), ElementsAre("old.db", "test.orvo", kKept));
}

// Each time the next restore finds what the killed one has left.
TEST_F(StoreBackup, AKilledRestoreLeavesOneOfBothStoresWhole) {
    AddRows(*folder.Open(), 200, std::string(1000, 'o'));
    ASSERT_TRUE(BackUp()) << error;
    AddRows(*folder.Open(), 100, std::string(1000, 'n'));
    const std::string texts[] = {Content("backup.db"), Content()};
    fs::copy_file(folder.Path(), folder.Path("present.db"));
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(Restore()) << error;
    const auto time = std::chrono::duration_cast<std::chrono::microseconds>(
        std::chrono::steady_clock::now() - start);
    std::mt19937 chance(7);  // NOLINT(cert-msc51-cpp): the same moments in each run
    int restored = 0;
    int unchanged = 0;
    // On a busy machine a restore may take much longer than the one that was timed.
    const auto isOneSided = [&] { return restored <= 3 || unchanged <= 3; };
    for (int i = 0; i < 24 || (i < 200 && isOneSided()); ++i) {
        const bool isDamaged = i % 3 == 2;
        ASSERT_TRUE(Restore("present.db")) << error;
        for (const auto& name : folder.Names()) {
            if (name.starts_with(kKept)) fs::remove(folder.Path(name));
        }
        if (isDamaged) Damage();
        const std::string before = folder.Read();
        ChildProcess restorer([&](const Line& parent) {
            parent.Tell();
            return Restore() ? 0 : 1;
        });
        ASSERT_TRUE(restorer.Await());
        const auto longest = static_cast<unsigned>(time.count() * 5 / 4) * (i < 24 ? 1 : 4);
        usleep(chance() % longest);
        restorer.Kill();
        restorer.Wait();
        if (isDamaged && folder.Read() == before) continue;
        const std::string now = Content();
        ExpectSound(folder);
        EXPECT_THAT(now, testing::AnyOf(texts[0], texts[1]));
        (now == texts[0] ? restored : unchanged) += 1;
        if (now == texts[0] && isDamaged) EXPECT_TRUE(folder.Read(kKept) == before);
        if (now == texts[0] && !isDamaged) EXPECT_EQ(Content(kKept), texts[1]);
    }
    EXPECT_GT(restored, 3);
    EXPECT_GT(unchanged, 3);
    ASSERT_TRUE(Restore()) << error;
    for (const std::string& name : folder.Names())
        EXPECT_THAT(name, testing::Not(HasSubstr("part")));
}

}  // namespace orvo
