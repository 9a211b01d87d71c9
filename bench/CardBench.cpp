// Business cards: filling the view, beside the list; what a card says, beside reading its fields.
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <libraries/quire/MemoryEngine.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/DetailViewAddrCard.h>
#include <platform/window/memory/MemoryWindowSystem.h>

#include "People.h"

namespace orvo::bench {
namespace {

constexpr std::size_t kPeople = 1'000'000;

// Made at the first use, for all benchmarks.
CAddressTable& PeopleTable() {
    static MemoryEngine engine;
    static CAddressTable table(engine);
    if (table.GetCount() > 0) return table;
    for (const Person& person : MakePeople(kPeople, Script::Latin)) {
        table.Add(*RecordOf(person, table));
    }
    return table;
}

void Initialize(CDetailViewAddrList& view) {
    view.Initialize(&PeopleTable(), nullptr);
}
void Initialize(CDetailViewAddrCard& view) {
    view.Initialize(&PeopleTable());
}

template <class View>
void Fill(benchmark::State& state) {
    MemoryWindowSystem system;
    WindowSystem::SetCurrent(&system);
    View view;
    view.Create(LVS_REPORT, {0, 0, 800, 600}, nullptr, 0);
    Initialize(view);
    for (auto _ : state) {
        view.DV_FillFromTable(&PeopleTable(), kAllCategories, 0, 1);
        if (view.DV_GetItemCount() != static_cast<int>(kPeople)) {
            state.SkipWithError("records are missing");
        }
        state.PauseTiming();
        view.DV_DeleteAll();
        state.ResumeTiming();
    }
    view.DestroyWindow();
    WindowSystem::SetCurrent(nullptr);
}

void DescribeCard(benchmark::State& state) {
    MemoryWindowSystem system;
    WindowSystem::SetCurrent(&system);
    CDetailViewAddrCard view;
    view.Create(0, {0, 0, 800, 600}, nullptr, 0);
    Initialize(view);
    CAddressTable& table = PeopleTable();
    constexpr int kCards = 1000;
    for (int id = 1; id <= kCards; ++id) {
        auto record = std::make_unique<CAddressRecord>(table, 1);
        table.Find(id, *record);
        view.DV_InsertRecord(id - 1, record.release(), 0);
    }
    int index = 0;
    for (auto _ : state) {
        CCardDesc card;
        view.GetCardDescription(index, card);
        benchmark::DoNotOptimize(card);
        index = (index + 1) % kCards;
    }
    view.DestroyWindow();
    WindowSystem::SetCurrent(nullptr);
}

// The least that a card needs: every field of the record as a text of its own.
void ReadFields(benchmark::State& state) {
    CAddressTable& table = PeopleTable();
    CAddressRecord record(table, 1);
    table.Find(1, record);
    for (auto _ : state) {
        for (int field = 1; field <= static_cast<int>(AddressField::Custom4); ++field) {
            CString text;
            record.Get(static_cast<AddressField>(field), text);
            benchmark::DoNotOptimize(text);
        }
    }
}

BENCHMARK(Fill<CDetailViewAddrCard>)->Name("FillCards")->Unit(benchmark::kMillisecond);
BENCHMARK(Fill<CDetailViewAddrList>)->Name("FillList")->Unit(benchmark::kMillisecond);
BENCHMARK(DescribeCard)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadFields)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace orvo::bench

BENCHMARK_MAIN();
