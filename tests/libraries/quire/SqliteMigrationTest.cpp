// Tests of bringing stores of older versions, each made by a program of its time, to this one.
// SPDX-License-Identifier: MIT
#include <map>
#include <sys/stat.h>
#include <tuple>

#include <fmt/format.h>

#include <contracts/RecordStore.h>
#include <platform/io/FileSizeLimit.h>
#include <support/ChildProcess.h>

#include "RawStore.h"

namespace orvo {

namespace {

constexpr const char* kZones =
    "SELECT count(*) FROM shared WHERE CAST(bytes AS TEXT) LIKE '%TZID:%'";

std::string Hex(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) text += fmt::format("{:02X}", static_cast<unsigned char>(byte));
    return text;
}

std::string SourceOf(const RowExtra& extra) {
    std::string source;
    for (const SharedText& text : extra.shared) source += text.Text();
    return source + extra.source;
}

// The packed fields that every version has.
std::string OldFields(TableKind kind, std::string_view packed) {
    PackedFields fields;
    EXPECT_TRUE(fields.Assign(packed));
    for (const ToDoField field : {ToDoField::Start, ToDoField::Recurrence, ToDoField::Parent,
                                  ToDoField::Percent, ToDoField::Reminders}) {
        if (kind == TableKind::ToDo) fields.Set(static_cast<std::uint8_t>(field), {});
    }
    return std::string(fields.Bytes());
}

// Every row of a store with its whole source, one a line.
std::string ContentOf(StoreEngine& engine) {
    std::string content;
    for (const TableKind kind : {TableKind::Address, TableKind::ToDo}) {
        std::map<std::int64_t, std::string> lines;
        for (const auto& cursor : {engine.Walk(kind), engine.WalkDeleted(kind)}) {
            StoredRow row;
            while (cursor->Next(row) == StoreStatus::Ok) {
                RowExtra extra;
                EXPECT_EQ(engine.ReadExtra(kind, row.id, extra), StoreStatus::Ok);
                lines[row.id] =
                    fmt::format("{}|{}|{}|{}|{}|{}|{}|{}\n", row.id, row.placement, row.category,
                                row.flags, Hex(OldFields(kind, row.fields)), Hex(extra.note),
                                Hex(SourceOf(extra)), extra.origin);
            }
        }
        for (const auto& [id, line] : lines) content += line;
    }
    return content;
}

std::string ContentOfOld(const std::string& path, int version) {
    RawStore store(path);
    const auto table = [&](const char* name) {
        const std::string shared =
            version < 2 ? "''"
                        : fmt::format(
                              "ifnull((SELECT group_concat(hex(bytes), '') FROM (SELECT "
                              "bytes FROM {0}_shared JOIN shared ON shared.id = shared "
                              "WHERE {0}_shared.id = r.id ORDER BY place)), '')",
                              name);
        return store.Run(fmt::format(
            "SELECT group_concat(format('%d|%d|%d|%d|%s|%s|%s%s|%s', id, ifnull(placement, id), "
            "category, flags, hex(fields), hex(note), {1}, hex(source), origin) || char(10), '') "
            "FROM (SELECT * FROM {0} LEFT JOIN {0}_extra USING (id) ORDER BY id) AS r",
            name, shared));
    };
    return table("address") + table("todo");
}

class SqliteMigration : public testing::TestWithParam<int> {
protected:
    SqliteMigration() { fs::copy_file(store, folder.Path()); }

    std::string Content() const {
        const auto engine = folder.Open();
        return engine ? ContentOf(*engine) : "";
    }

    const std::string store = fmt::format("{}/version-{}.db", ORVO_OLD_STORES, GetParam());
    const std::string copy = fmt::format("test.orvo.version-{}", GetParam());
    const StoreFolder folder;
    const std::string old = ContentOfOld(store, GetParam());
};

INSTANTIATE_TEST_SUITE_P(Versions, SqliteMigration, testing::Values(1, 2, 3));

// Those of the first version alone: their sources hold what is shared now.
class SourceMigration : public SqliteMigration {};
INSTANTIATE_TEST_SUITE_P(Versions, SourceMigration, testing::Values(1));
class IdentityMigration : public SqliteMigration {};
INSTANTIATE_TEST_SUITE_P(Versions, IdentityMigration, testing::Values(2));
class DetailsMigration : public SqliteMigration {};
INSTANTIATE_TEST_SUITE_P(Versions, DetailsMigration, testing::Values(3));

}  // namespace

TEST_P(SqliteMigration, EveryRecordIsAsItWasAndEachZoneIsThereOnce) {
    {
        const auto engine = folder.Open();
        EXPECT_EQ(ContentOf(*engine), old);
        EXPECT_EQ(ContentOfOld(folder.Path(copy), GetParam()), old);
        EXPECT_EQ(fs::status(folder.Path(copy)).permissions(),
                  fs::perms::owner_read | fs::perms::owner_write);
    }
    EXPECT_THAT(folder.Names(), ElementsAre("test.orvo")) << "the copy goes with a clean close";
    ExpectSound(folder);
    RawStore raw(folder.Path());
    EXPECT_EQ(raw.Run("PRAGMA user_version"), "4");
    EXPECT_EQ(raw.Run("SELECT count(*) FROM todo_extra WHERE source LIKE '%VTIMEZONE%'"), "0");
    EXPECT_EQ(raw.Run(kZones), GetParam() < 3 ? "2" : "0");
    EXPECT_EQ(raw.Run("SELECT count(*) FROM address_identity"),
              raw.Run("SELECT count(*) FROM address"));
    EXPECT_EQ(Content(), old);
}

TEST_P(SqliteMigration, WhereverItEndsOrTheDiskIsFullNothingIsLost) {
    const auto size = static_cast<rlim_t>(fs::file_size(folder.Path()));
    int read = 0;
    int migrated = 0;
    for (const bool isFatal : {true, false}) {
        for (rlim_t limit = 0; limit < 3 * size; limit += 4096 * 5) {
            SCOPED_TRACE(fmt::format("{} at {}", isFatal ? "killed" : "no room", limit));
            fs::copy_file(store, folder.Path(), fs::copy_options::overwrite_existing);
            ChildProcess opener([&](const Line&) {
                const FileSizeLimit sizes(limit, isFatal);
                std::string error;
                const auto engine = SqliteEngine::Open(folder.Path(), error);
                if (!engine || ContentOf(*engine) != old) return 1;
                const bool isMigrated =
                    engine->WriteText(TableKind::Address, StoreEngine::TextKind::Category, 15,
                                      "new") == StoreStatus::Ok;
                return isMigrated ? 3 : 2;
            });
            const int result = opener.Wait();
            EXPECT_NE(result, 1);
            read += result == 2 ? 1 : 0;
            migrated += result == 3 ? 1 : 0;
            EXPECT_EQ(Content(), old);
            EXPECT_THAT(folder.Names(), ElementsAre("test.orvo"));
        }
    }
    EXPECT_GT(read, 3);
    EXPECT_GT(migrated, 3);
}

TEST_P(SqliteMigration, AStoreThatCantBeCopiedOrWrittenIsReadAsItIs) {
    const std::string before = folder.Read();
    fs::create_directory(folder.Path(copy + ".part"));
    {
        const auto engine = folder.Open();
        EXPECT_EQ(ContentOf(*engine), old);
        EXPECT_EQ(StoreFolder::AddRow(*engine), StoreStatus::Failed);
        EXPECT_EQ(engine->LastError(),
                  fmt::format("{0}: is of an older version, and a copy of it can't be kept as "
                              "{0}.version-{1}: File exists",
                              folder.Path(), GetParam()));
    }
    EXPECT_TRUE(folder.Read() == before);
    fs::remove(folder.Path(copy + ".part"));
    ASSERT_EQ(chmod(folder.Path().c_str(), 0444), 0);
    ASSERT_EQ(chmod(folder.Path(".").c_str(), 0777), 0);
    RunAsNobody([&] {
        const auto engine = folder.Open();
        EXPECT_EQ(ContentOf(*engine), old);
        EXPECT_EQ(StoreFolder::AddRow(*engine), StoreStatus::Failed);
        EXPECT_THAT(engine->LastError(), HasSubstr("it may not be written: Permission denied"));
    });
    EXPECT_TRUE(folder.Read() == before);
}

TEST_P(SqliteMigration, WhoReadsAnOldStoreGoesOnOnceAnotherProgramHasMigratedIt) {
    const std::string obstacle = folder.Path(copy + ".part");
    fs::create_directory(obstacle);
    const auto reader = folder.Open();
    EXPECT_EQ(ContentOf(*reader), old);
    fs::remove(obstacle);

    EXPECT_EQ(Content(), old);

    EXPECT_EQ(ContentOf(*reader), old);
    EXPECT_EQ(StoreFolder::AddRow(*reader, {"", "", "", {SharedText("a")}}), StoreStatus::Ok);
}

TEST_P(SqliteMigration, OfProcessesThatOpenAStoreAtOnceOneMigratesAndTheOthersWait) {
    RunAtOnce(6, [&](int) {
        const auto engine = folder.Open();
        return engine && ContentOf(*engine) == old ? 0 : 1;
    });
    EXPECT_EQ(RawStore(folder.Path()).Run(kZones), GetParam() < 3 ? "2" : "0");
}

TEST_P(IdentityMigration, UidsAndTimesAreThoseOfTheKeptSources) {
    const auto engine = folder.Open();
    const struct {
        TableKind kind;
        const char* uid;
        std::int64_t created;
        std::int64_t modified;
    } rows[] = {
        {TableKind::Address, "urn:uuid:4FBE8971-0BC3-424C-9C26-36C3E1EFF6B1", 1582979696000,
         1582979696000},
        {TableKind::Address,
         "a-uid-that-is-folded-over-two-lines-as-the-widespread-programs-write-them@example.com",
         1557119289500, 1557119289500},
        {TableKind::ToDo, "todo-1@example.com", 1608832800000, 1612325106000},
        {TableKind::ToDo, "todo-2@example.com", 1609459200000, 1609459200000},
    };
    for (const auto& row : rows) {
        std::vector<std::int64_t> ids;
        ASSERT_EQ(engine->FindUid(row.kind, row.uid, ids), StoreStatus::Ok);
        ASSERT_EQ(ids.size(), 1U) << row.uid;
        RowIdentity identity;
        ASSERT_EQ(engine->ReadIdentity(row.kind, ids[0], identity), StoreStatus::Ok);
        EXPECT_EQ(identity, (RowIdentity{row.uid, row.created, row.modified, 1}));
    }
    EXPECT_EQ(RawStore(folder.Path()).Run("SELECT count(DISTINCT uid) FROM address_identity"),
              RawStore(folder.Path()).Run("SELECT count(*) FROM address"));
    EXPECT_EQ(engine->Revision(), 1);
}

TEST_P(DetailsMigration, WhatSourcesSayOfAToDoIsPacked) {
    const auto engine = folder.Open();
    CToDoTable table(*engine);
    const std::pair<const char*, ToDoDetails> rows[] = {
        {"weekly@example.com",
         {CivilTime{2026, 9, 4, 18}, "FREQ=WEEKLY;INTERVAL=2;BYDAY=FR;COUNT=10", "", 40, true}},
        {"dates@example.com", {{}, "OTHER", "", 0, false}},
        {"part@example.com", {CivilOfMoment(1788264000), "", "weekly@example.com", 100, false}},
        {"plain@example.com", {}},
    };
    for (const auto& [uid, details] : rows) {
        std::vector<std::int64_t> ids;
        ASSERT_EQ(table.FindUid(uid, ids), 0);
        ASSERT_EQ(ids.size(), 1U) << uid;
        CToDoRecord record(table);
        ASSERT_EQ(table.Find(ids[0], record), 0);
        EXPECT_EQ(record.GetDetails(), details) << uid;
    }
}

TEST_P(SourceMigration, ASourceIsCutOnlyWhereAnImportPutItTogether) {
    const std::string zone = "BEGIN:VTIMEZONE\nTZID:A\nEND:VTIMEZONE\n";
    const std::string todo = "BEGIN:VTODO\nSUMMARY:a\nEND:VTODO\n";
    const std::tuple<const char*, std::string, std::size_t> rows[] = {
        {"no zone", todo, 0},
        {"two zones", zone + zone + todo, 2},
        {"small letters", "begin:vtimezone\rend:vtimezone\rbegin:vtodo\rend:vtodo\r", 1},
        {"an old calendar", "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nTZ:+01\r\n" + zone + todo, 2},
        {"no to-do", zone, 0},
        {"an end that goes on", "BEGIN:VTIMEZONE\nEND:VTIMEZONE\n X\nEND:VTIMEZONE\n" + todo, 0},
        {"a zone that doesn't end", "BEGIN:VTIMEZONE\n" + todo, 0},
        {"an end without a zone", "END:VTIMEZONE\n" + todo, 0},
        {"any bytes", std::string("\0\xFF\n", 3) + todo, 1},
        {"nothing", "", 0},
    };
    {
        RawStore raw(folder.Path());
        raw.Run("DELETE FROM todo_extra; DELETE FROM todo");
        for (std::size_t i = 0; i < std::size(rows); ++i) {
            raw.Run(
                fmt::format("INSERT INTO todo VALUES ({0}, NULL, 0, 0, X'', 3, NULL, NULL);"
                            "INSERT INTO todo_extra VALUES ({0}, '', X'{1}', '')",
                            i + 1, Hex(std::get<1>(rows[i]))));
        }
    }
    const auto engine = folder.Open();
    std::int64_t id = 0;
    for (const auto& [why, source, shared] : rows) {
        RowExtra extra;
        ASSERT_EQ(engine->ReadExtra(TableKind::ToDo, ++id, extra), StoreStatus::Ok);
        EXPECT_EQ(SourceOf(extra), source) << why;
        EXPECT_EQ(extra.shared.size(), shared) << why;
    }
}

}  // namespace orvo
