// Filling the address list: read, filtered and sorted; beside the store's own read plus one sort.
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/addressviews/AddressOrder.h>
#include <platform/window/memory/MemoryWindowSystem.h>

#include "People.h"

namespace orvo::bench {
namespace {

constexpr std::size_t kPeople = 1'000'000;

// Made at the first use, for all benchmarks.
ScratchStore& PeopleStore() {
    static const auto store = [] {
        auto made = std::make_unique<ScratchStore>();
        CAddressTable table(made->Engine());
        StoreTransaction transaction(made->Engine());
        for (const Person& person : MakePeople(kPeople, Script::Latin)) {
            table.Add(*RecordOf(person, table));
        }
        transaction.Commit();
        return made;
    }();
    return *store;
}

void FillList(benchmark::State& state) {
    CAddressTable table(PeopleStore().Engine());
    MemoryWindowSystem system;
    WindowSystem::SetCurrent(&system);
    CDetailViewAddrList list;
    list.Create(LVS_REPORT, {0, 0, 800, 600}, nullptr, 0);
    list.Initialize(&table, nullptr);
    for (auto _ : state) {
        list.DV_FillFromTable(&table, kAllCategories, 0, kListByName);
        if (list.DV_GetItemCount() != static_cast<int>(kPeople)) {
            state.SkipWithError("records are missing");
        }
        state.PauseTiming();
        list.DV_DeleteAll();
        state.ResumeTiming();
    }
    list.DestroyWindow();
    WindowSystem::SetCurrent(nullptr);
}

// What any list has to do: the records from the store, and one sort by keys.
void ReadAndSort(benchmark::State& state) {
    CAddressTable table(PeopleStore().Engine());
    for (auto _ : state) {
        AddressRecords records;
        CAddressIterator iterator(table);
        auto record = std::make_unique<CAddressRecord>(table, 1);
        for (long found = iterator.FindFirst(*record, 1); found == 0;
             found = iterator.FindNext(*record, 1)) {
            records.push_back(std::move(record));
            record = std::make_unique<CAddressRecord>(table, 1);
        }
        SortAddresses(records, kListByName);
        state.PauseTiming();
        records.clear();
        state.ResumeTiming();
    }
}

BENCHMARK(FillList)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAndSort)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvo::bench

BENCHMARK_MAIN();
