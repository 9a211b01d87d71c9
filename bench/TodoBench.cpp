// Filling the list of to-dos in each order; beside the store's own read plus one sort by keys. And
// one with to-dos that repeat and have parts, beside the same rows without.
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <orvoshare/todo/TodoListbox.h>
#include <platform/text/KeySort.h>
#include <platform/window/memory/MemoryWindowSystem.h>

#include "People.h"

namespace orvo::bench {
namespace {

constexpr int kToDos = 1'000'000;
constexpr int kFewToDos = 100'000;

// Of the few a tenth repeats, and a third has parts or is one: each has its four next ones.
enum class Kind { Plain, WithDetails };

class DetailsMaker {
public:
    void Give(CToDoRecord& record, int place) {
        ToDoDetails details;
        if (place % 10 == 0) details.recurrence = "FREQ=WEEKLY;INTERVAL=2;BYDAY=FR";
        const bool isPart = place % 15 > 0 && place % 15 < 5;
        if (isPart) details.parent = m_uid;
        record.SetDetails(details);
    }
    void Note(const CToDoRecord& record, int place) {
        RowIdentity identity;
        if (place % 15 != 0 || record.GetIdentity(identity) != 0) return;
        m_uid = identity.uid;
    }

private:
    std::string m_uid;
};

void AddToDos(CToDoTable& table, int count, Kind kind) {
    for (const char* name : {"Work", "Home", "Garden", "Travel", "Family", "Club", "Car"}) {
        auto category = std::make_unique<CCategory>();
        category->SetNameUtf8(name);
        if (table.GetCategoryManager()->Add(category.get()) == 0) {
            static_cast<void>(category.release());
        }
    }
    constexpr long kFirstDay = 1'767'225'600;  // 2026-01-01 00:00:00 UTC
    constexpr long kDay = 86'400;
    std::mt19937 random(1);
    const auto number = [&random](unsigned most) { return static_cast<int>(random() % most); };
    DetailsMaker details;
    for (int i = 0; i < count; ++i) {
        CToDoRecord record(table, 1);
        record.SetDescriptionUtf8("Call back about the offer");
        record.SetPriority(1 + number(5));
        record.SetCategoryId(number(8));
        if (number(4) != 0) record.SetDueDate(kFirstDay + number(1000) * kDay);
        if (kind == Kind::WithDetails) details.Give(record, i);
        table.Add(record);
        if (kind == Kind::WithDetails) details.Note(record, i);
    }
}

std::unique_ptr<ScratchStore> MakeStore(int count, Kind kind) {
    auto made = std::make_unique<ScratchStore>();
    CToDoTable table(made->Engine());
    StoreTransaction transaction(made->Engine());
    AddToDos(table, count, kind);
    transaction.Commit();
    return made;
}

// Made at the first use, for all benchmarks.
ScratchStore& ToDoStore() {
    static const auto store = MakeStore(kToDos, Kind::Plain);
    return *store;
}

void Fill(benchmark::State& state, StoreEngine& engine, eSortOrder order, int count) {
    CToDoTable table(engine);
    MemoryWindowSystem system;
    WindowSystem::SetCurrent(&system);
    {
        CTodoListbox list;
        list.Create(LVS_REPORT, {0, 0, 800, 600}, nullptr, 0);
        list.SetSortOrder(order);
        for (auto _ : state) {
            list.RefreshAllItemData(&table);
            if (list.GetItemCount() != count) state.SkipWithError("records are missing");
            state.PauseTiming();
            list.DeleteAll();
            state.ResumeTiming();
        }
    }
    WindowSystem::SetCurrent(nullptr);
}

void FillList(benchmark::State& state) {
    Fill(state, ToDoStore().Engine(), static_cast<eSortOrder>(state.range(0)), kToDos);
}

template <Kind kind>
void FillFew(benchmark::State& state) {
    static const auto store = MakeStore(kFewToDos, kind);
    Fill(state, store->Engine(), eSortByPriorityDueDate, kFewToDos);
}

void AppendNumber(std::uint32_t number, std::string& key) {
    for (const int shift : {24, 16, 8, 0}) key += static_cast<char>(number >> shift & 0xFF);
}

// Category, priority, date and placement, without the names of the categories.
void AppendKey(const CToDoRecord& record, eSortOrder order, std::string& key) {
    int category = 0;
    int priority = 0;
    int placement = 0;
    long due = 0;
    record.GetCategoryId(category);
    record.GetPriority(priority);
    record.GetPlacementPos(placement);
    record.GetDueDate(due);
    const bool isByCategory = order == eSortByCategoryDueDate || order == eSortByCategoryPriority;
    if (isByCategory) AppendNumber(static_cast<std::uint32_t>(category), key);
    if (order != eSortByDueDatePriority && order != eSortByCategoryDueDate) {
        AppendNumber(static_cast<std::uint32_t>(priority), key);
    }
    if (order != eSortByCategoryPriority) AppendNumber(static_cast<std::uint32_t>(due), key);
    if (order == eSortByDueDatePriority) AppendNumber(static_cast<std::uint32_t>(priority), key);
    AppendNumber(static_cast<std::uint32_t>(placement), key);
}

// What any list has to do: the records from the store, and one sort by keys.
void ReadAndSort(benchmark::State& state) {
    CToDoTable table(ToDoStore().Engine());
    const auto order = static_cast<eSortOrder>(state.range(0));
    for (auto _ : state) {
        std::vector<std::unique_ptr<CToDoRecord>> records;
        CToDoIterator iterator(table);
        auto record = std::make_unique<CToDoRecord>(table, 1);
        for (long found = iterator.FindFirst(*record, 1); found == 0;
             found = iterator.FindNext(*record, 1)) {
            records.push_back(std::move(record));
            record = std::make_unique<CToDoRecord>(table, 1);
        }
        benchmark::DoNotOptimize(KeySortedRows(
            records.size(), [&](std::uint32_t row, std::size_t part, std::string& key) {
                if (part == 0) AppendKey(*records[row], order, key);
            }));
        state.PauseTiming();
        records.clear();
        state.ResumeTiming();
    }
}

BENCHMARK(FillList)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(FillFew, Kind::WithDetails)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(FillFew, Kind::Plain)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAndSort)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvo::bench

BENCHMARK_MAIN();
