// Finding people by any part of their texts, beside SQLite's own LIKE over the same columns.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <chrono>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <people/FindIndex.h>
#include <people/FindReader.h>

#include "People.h"

namespace orvo::bench {
namespace {

// As they are typed, letter by letter.
constexpr std::array<const char*, 5> kTyped{"a", "an", "ann", "street 99", "617 555"};

// A store and the texts of its people, made at the first use of that size.
struct Found {
    ScratchStore store;
    FindIndex index;
};

void ReadTexts(SqliteEngine& engine, FindIndex& index) {
    CAddressTable table(engine);
    CAddressRecord record(table);
    CAddressIterator iterator(table);
    for (long found = iterator.FindFirst(record); found == 0; found = iterator.FindNext(record)) {
        index.Add(record.GetId(), FindTextOf(record));
    }
}

Found& PeopleOf(std::size_t count) {
    static std::unique_ptr<Found> found;
    static std::size_t foundCount = 0;
    if (foundCount == count) return *found;
    found = std::make_unique<Found>();
    CAddressTable table(found->store.Engine());
    StoreTransaction transaction(found->store.Engine());
    for (const Person& person : MakePeople(count, Script::Latin))
        table.Add(*RecordOf(person, table));
    transaction.Commit();
    ReadTexts(found->store.Engine(), found->index);
    foundCount = count;
    return *found;
}

// Runs `answer` for each text, and notes the longest time of one.
template <class Answer>
void AnswerAll(benchmark::State& state, Answer answer) {
    using Clock = std::chrono::steady_clock;
    double longest = 0;
    for (auto _ : state) {
        for (const char* const typed : kTyped) {
            const auto begin = Clock::now();
            benchmark::DoNotOptimize(answer(typed));
            const std::chrono::duration<double, std::milli> time = Clock::now() - begin;
            longest = std::max(longest, time.count());
        }
    }
    state.counters["longest_ms"] = longest;
}

void FindTyped(benchmark::State& state) {
    const FindIndex& index = PeopleOf(static_cast<std::size_t>(state.range(0))).index;
    AnswerAll(state, [&](const char* typed) {
        const std::vector<bool> matching = index.Matching(FindQuery(typed));
        return std::count(matching.begin(), matching.end(), true);
    });
}

void LikeTyped(benchmark::State& state) {
    sqlite3* database = nullptr;
    sqlite3_open_v2(PeopleOf(static_cast<std::size_t>(state.range(0))).store.Path().c_str(),
                    &database, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, "SELECT count(*) FROM address WHERE CAST(fields AS TEXT) LIKE ?1",
                       -1, &statement, nullptr);
    AnswerAll(state, [&](const char* typed) {
        const std::string pattern = std::string("%") + typed + "%";
        sqlite3_bind_text(statement, 1, pattern.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_step(statement);
        const int count = sqlite3_column_int(statement, 0);
        sqlite3_reset(statement);
        return count;
    });
    sqlite3_finalize(statement);
    sqlite3_close(database);
}

// What the first letter waits for.
void ReadAllTexts(benchmark::State& state) {
    SqliteEngine& engine = PeopleOf(static_cast<std::size_t>(state.range(0))).store.Engine();
    for (auto _ : state) {
        FindIndex index;
        ReadTexts(engine, index);
    }
}

BENCHMARK(FindTyped)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(LikeTyped)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAllTexts)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvo::bench

BENCHMARK_MAIN();
