// Importing cards into a store file, beside SQLite alone inserting such rows.
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include <exchange/files/ImportFile.h>

#include "People.h"

namespace orvo::bench {
namespace {

// With a UID each, whose order means nothing, or without.
void ImportCards(benchmark::State& state) {
    std::string cards;
    std::uint64_t uid = 1;
    for (const Person& person :
         MakePeople(static_cast<std::size_t>(state.range(0)), Script::Latin)) {
        std::string card = CardOf(person);
        uid = uid * 6364136223846793005u + 1442695040888963407u;
        if (state.range(1) != 0) {
            card.insert(card.find("END:VCARD"),
                        fmt::format("UID:{0:016x}-0000-4000-{0:016x}\r\n", uid));
        }
        cards += card;
    }
    for (auto _ : state) {
        state.PauseTiming();
        auto store = std::make_unique<ScratchStore>();
        auto addresses = std::make_unique<CAddressTable>(store->Engine());
        auto toDos = std::make_unique<CToDoTable>(store->Engine());
        state.ResumeTiming();

        StoreTransaction transaction(store->Engine());
        const ImportReport report = ImportBytes(cards, *addresses, *toDos);
        if (transaction.Commit() != StoreStatus::Ok) state.SkipWithError("not committed");
        if (report.addresses != static_cast<std::size_t>(state.range(0)))
            state.SkipWithError("cards are missing");

        state.PauseTiming();
        addresses.reset();
        toDos.reset();
        store.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// The same bytes to disk: a row with the fields and a row with the card, in one transaction.
void InsertWithSqlite(benchmark::State& state) {
    std::vector<std::pair<std::string, std::string>> rows;
    for (const Person& person :
         MakePeople(static_cast<std::size_t>(state.range(0)), Script::Latin)) {
        rows.emplace_back(person.name + person.first + person.company + person.phone1 +
                              person.phone2 + person.mail + person.street + person.city +
                              person.zip,
                          CardOf(person));
    }
    for (auto _ : state) {
        state.PauseTiming();
        auto store = std::make_unique<ScratchStore>();
        sqlite3* database = nullptr;
        sqlite3_open((store->Path() + ".peer").c_str(), &database);
        sqlite3_exec(database,
                     "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL; CREATE TABLE a(id INTEGER "
                     "PRIMARY KEY, "
                     "placement INTEGER, category INTEGER, flags INTEGER, fields BLOB); CREATE "
                     "TABLE e(id INTEGER "
                     "PRIMARY KEY, card BLOB)",
                     nullptr, nullptr, nullptr);
        sqlite3_stmt* row = nullptr;
        sqlite3_stmt* card = nullptr;
        sqlite3_prepare_v2(database, "INSERT INTO a VALUES(?,?,0,0,?)", -1, &row, nullptr);
        sqlite3_prepare_v2(database, "INSERT INTO e VALUES(?,?)", -1, &card, nullptr);
        state.ResumeTiming();

        sqlite3_exec(database, "BEGIN", nullptr, nullptr, nullptr);
        sqlite3_int64 id = 0;
        for (const auto& [fields, text] : rows) {
            ++id;
            sqlite3_bind_int64(row, 1, id);
            sqlite3_bind_int64(row, 2, id);
            sqlite3_bind_blob(row, 3, fields.data(), static_cast<int>(fields.size()),
                              SQLITE_STATIC);
            sqlite3_step(row);
            sqlite3_reset(row);
            sqlite3_bind_int64(card, 1, id);
            sqlite3_bind_blob(card, 2, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
            sqlite3_step(card);
            sqlite3_reset(card);
        }
        sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);

        state.PauseTiming();
        sqlite3_finalize(row);
        sqlite3_finalize(card);
        sqlite3_close(database);
        store.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(ImportCards)
    ->ArgNames({"cards", "uids"})
    ->Args({100'000, 0})
    ->Args({100'000, 1})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(InsertWithSqlite)->ArgName("cards")->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvo::bench

BENCHMARK_MAIN();
