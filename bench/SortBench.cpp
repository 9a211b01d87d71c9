// Sorting addresses, beside std::stable_sort with ICU's UTF-8 comparison over ready strings.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <numeric>

#include <benchmark/benchmark.h>
#include <unicode/ucol.h>

#include <libraries/quire/MemoryEngine.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/addressviews/AddressOrder.h>
#include <platform/text/SystemLocale.h>

#include "People.h"

namespace orvo::bench {
namespace {

Script ScriptOf(const benchmark::State& state) {
    return state.range(1) == 0 ? Script::Latin : Script::Japanese;
}

void SetLocaleFor(Script script) {
    SystemLocale::Set(script == Script::Latin ? "en-US" : "ja-JP");
}

void SortRecords(benchmark::State& state) {
    SetLocaleFor(ScriptOf(state));
    MemoryEngine engine;
    CAddressTable table(engine);
    AddressRecords made;
    for (const Person& person :
         MakePeople(static_cast<std::size_t>(state.range(0)), ScriptOf(state))) {
        made.push_back(RecordOf(person, table));
    }
    std::vector<CAddressRecord*> fileOrder;
    for (const auto& record : made) fileOrder.push_back(record.get());

    for (auto _ : state) {
        state.PauseTiming();
        for (auto& record : made) static_cast<void>(record.release());
        for (std::size_t row = 0; row < made.size(); ++row) made[row].reset(fileOrder[row]);
        state.ResumeTiming();
        SortAddresses(made, kListByName);
    }
}

// The strings that a plain program would sort: the Latin name with the first name, or the reading.
std::vector<std::string> ReadyStrings(const benchmark::State& state) {
    std::vector<std::string> strings;
    for (const Person& person :
         MakePeople(static_cast<std::size_t>(state.range(0)), ScriptOf(state))) {
        strings.push_back(ScriptOf(state) == Script::Latin
                              ? person.name + ", " + person.first
                              : person.nameYomi + " " + person.firstYomi);
    }
    return strings;
}

void StableSortWithIcu(benchmark::State& state) {
    const std::vector<std::string> strings = ReadyStrings(state);
    UErrorCode error = U_ZERO_ERROR;
    UCollator* collator = ucol_open(ScriptOf(state) == Script::Latin ? "en-US" : "ja-JP", &error);
    ucol_setStrength(collator, ScriptOf(state) == Script::Latin ? UCOL_TERTIARY : UCOL_QUATERNARY);
    std::vector<std::uint32_t> rows(strings.size());
    for (auto _ : state) {
        std::iota(rows.begin(), rows.end(), 0U);
        std::stable_sort(rows.begin(), rows.end(), [&](std::uint32_t a, std::uint32_t b) {
            return ucol_strcollUTF8(collator, strings[a].data(),
                                    static_cast<std::int32_t>(strings[a].size()), strings[b].data(),
                                    static_cast<std::int32_t>(strings[b].size()),
                                    &error) == UCOL_LESS;
        });
        benchmark::DoNotOptimize(rows.data());
    }
    ucol_close(collator);
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgNames({"records", "japanese"})->Unit(benchmark::kMillisecond);
    for (const long count : {100'000L, 1'000'000L}) {
        for (const long japanese : {0L, 1L}) benchmark->Args({count, japanese});
    }
}

BENCHMARK(SortRecords)->Apply(Sizes);
BENCHMARK(StableSortWithIcu)->Apply(Sizes);

}  // namespace
}  // namespace orvo::bench

BENCHMARK_MAIN();
