// Changing rows of a store file, and bringing one of an older version to this one, beside SQLite
// alone writing such rows.
// SPDX-License-Identifier: MIT
#include <filesystem>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "People.h"

namespace orvo::bench {
namespace {

void Run(const std::string& path, const char* sql) {
    sqlite3* database = nullptr;
    sqlite3_open(path.c_str(), &database);
    sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
    sqlite3_close(database);
}

// A store of people with their cards.
std::unique_ptr<ScratchStore> StoreOf(std::size_t count) {
    auto store = std::make_unique<ScratchStore>();
    CAddressTable table(store->Engine());
    StoreTransaction transaction(store->Engine());
    for (const Person& person : MakePeople(count, Script::Latin)) {
        const auto record = RecordOf(person, table);
        record->SetSource(CardOf(person));
        table.Add(*record);
    }
    transaction.Commit();
    return store;
}

// Each edit reads its row, changes a field and writes it, in one transaction for all.
void EditRows(benchmark::State& state) {
    const auto store = StoreOf(10'000);
    CAddressTable table(store->Engine());
    CAddressRecord record(table);
    int round = 0;
    for (auto _ : state) {
        const std::string city = "City " + std::to_string(++round);
        StoreTransaction transaction(store->Engine());
        for (std::int64_t id = 1; id <= state.range(0); ++id) {
            table.Find(id, record);
            if (record.SetUtf8(AddressField::City, city) != 0) state.SkipWithError("not edited");
        }
        if (transaction.Commit() != StoreStatus::Ok) state.SkipWithError("not committed");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

constexpr const char* kBackToVersion2 =
    "DROP TABLE address_identity; DROP TABLE todo_identity; DROP TABLE removed; DROP TABLE "
    "counter; PRAGMA user_version = 2; PRAGMA wal_checkpoint(TRUNCATE); VACUUM;";

// `migrate` gets a fresh copy of a store of version 2 each time.
template <class Migrate>
void OnOldStore(benchmark::State& state, const Migrate& migrate) {
    const auto store = StoreOf(static_cast<std::size_t>(state.range(0)));
    store->Close();
    Run(store->Path(), kBackToVersion2);
    const std::string copy = store->Path() + ".copy";
    for (auto _ : state) {
        state.PauseTiming();
        for (const char* const end : {"", "-wal", "-shm"}) std::filesystem::remove(copy + end);
        std::filesystem::copy_file(store->Path(), copy);
        state.ResumeTiming();
        migrate(copy);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void MigrateStore(benchmark::State& state) {
    OnOldStore(state, [&](const std::string& path) {
        std::string error;
        const auto engine = SqliteEngine::Open(path, error);
        if (!engine || engine->Revision() != 1) state.SkipWithError("not migrated");
    });
}

void InsertSelectWithSqlite(benchmark::State& state) {
    OnOldStore(state, [](const std::string& path) {
        Run(path,
            "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL; BEGIN;"
            "CREATE TABLE a (id INTEGER PRIMARY KEY, placement INTEGER, category INTEGER, "
            "flags INTEGER, fields BLOB);"
            "CREATE TABLE e (id INTEGER PRIMARY KEY, note TEXT, source BLOB, origin TEXT);"
            "INSERT INTO a SELECT * FROM address; INSERT INTO e SELECT * FROM address_extra;"
            "COMMIT");
    });
}

BENCHMARK(EditRows)->ArgName("rows")->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(MigrateStore)->ArgName("rows")->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(InsertSelectWithSqlite)->ArgName("rows")->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvo::bench

BENCHMARK_MAIN();
