// Reading a store into kept records, beside SQLite's own read of the same columns.
// SPDX-License-Identifier: MIT
#include <malloc.h>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <orvoshare/addressviews/AddressOrder.h>

#include "People.h"

namespace orvo::bench {
namespace {

// One store for all benchmarks of a size, made at the first use.
ScratchStore& StoreOf(std::size_t count) {
    static std::unique_ptr<ScratchStore> store;
    static std::size_t storeCount = 0;
    if (storeCount == count) return *store;
    store = std::make_unique<ScratchStore>();
    CAddressTable table(store->Engine());
    StoreTransaction transaction(store->Engine());
    for (const Person& person : MakePeople(count, Script::Latin))
        table.Add(*RecordOf(person, table));
    transaction.Commit();
    storeCount = count;
    return *store;
}

std::size_t HeapInUse() {
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void ReadIntoRecords(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    CAddressTable table(StoreOf(count).Engine());
    double bytes = 0;
    for (auto _ : state) {
        const std::size_t before = HeapInUse();
        AddressRecords records;
        records.reserve(count);
        CAddressIterator iterator(table);
        auto record = std::make_unique<CAddressRecord>(table, 1);
        for (long found = iterator.FindFirst(*record, 1); found == 0;
             found = iterator.FindNext(*record, 1)) {
            records.push_back(std::move(record));
            record = std::make_unique<CAddressRecord>(table, 1);
        }
        if (records.size() != count) state.SkipWithError("records are missing");
        bytes = static_cast<double>(HeapInUse() - before) / static_cast<double>(count);
        state.PauseTiming();
        records.clear();
        state.ResumeTiming();
    }
    state.counters["heap_bytes_per_record"] = bytes;
}

void ReadWithSqlite(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    sqlite3* database = nullptr;
    sqlite3_open_v2(StoreOf(count).Path().c_str(), &database, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database,
                       "SELECT id, placement, category, flags, fields FROM address ORDER BY id", -1,
                       &statement, nullptr);
    for (auto _ : state) {
        std::size_t rows = 0;
        std::int64_t sum = 0;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            sum += sqlite3_column_int64(statement, 0) + sqlite3_column_int(statement, 1) +
                   sqlite3_column_int(statement, 2) + sqlite3_column_int(statement, 3);
            benchmark::DoNotOptimize(sqlite3_column_blob(statement, 4));
            sum += sqlite3_column_bytes(statement, 4);
            ++rows;
        }
        benchmark::DoNotOptimize(sum);
        if (rows != count) state.SkipWithError("rows are missing");
        sqlite3_reset(statement);
    }
    sqlite3_finalize(statement);
    sqlite3_close(database);
}

BENCHMARK(ReadIntoRecords)->ArgName("records")->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadWithSqlite)->ArgName("records")->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvo::bench

BENCHMARK_MAIN();
