// Looking up typed text in a full list, beside std::lower_bound over ready ICU sort keys and beside
// keys that are made whole for each row.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <benchmark/benchmark.h>

#include <contracts/TextServices.h>
#include <libraries/quire/MemoryEngine.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemLocale.h>

#include "People.h"

namespace orvo::bench {
namespace {

constexpr int kPeople = 1'000'000;
constexpr unsigned kFlags = static_cast<unsigned>(KeyMatch::CaseAndAccents);

enum Case { kLatin, kJapanese };

CString InPage(std::string_view utf8) {
    CString text;
    CodePage::System().FromUtf8(utf8, text.Bytes());
    return text;
}

struct AddressList : CDetailViewAddrList {
    using CDetailViewAddrList::DVC_FindFirstMatch;
};

// A million people in their order; the same list for all benchmarks of a script.
class FullList {
public:
    static FullList& Of(const benchmark::State& state) {
        static std::unique_ptr<FullList> list;
        const auto script = state.range(0) == kLatin ? Script::Latin : Script::Japanese;
        if (!list || list->m_script != script) {
            list.reset();
            list = std::make_unique<FullList>(script);
        }
        return *list;
    }

    explicit FullList(Script script) : m_script(script) {
        SystemLocale::Set(script == Script::Latin ? "en-US" : "ja-JP");
        view.Create(WS_POPUP | LVS_REPORT, {0, 0, 400, 300}, nullptr, 0);
        view.DV_SetListBy(kListByName);
        view.SetItemCount(kPeople);
        int row = 0;
        for (const Person& person : MakePeople(kPeople, script)) {
            view.DV_InsertRecord(row++, bench::RecordOf(person, m_table).release(), 0);
        }
        view.DV_Resort();
    }

    CString KeyOf(int row) {
        CString key;
        MakeRecordKey(orvo::RecordOf(view.DV_GetItemData(row)), SystemKeyFields(), kListByName,
                      key);
        return key;
    }

    // The keys of random people, as far as a user types them; 0 for whole keys.
    std::vector<CString> TypedTexts(std::size_t most) {
        std::vector<CString> texts;
        std::mt19937 random(20261204);
        while (texts.size() < 1000) {
            const CString key = KeyOf(static_cast<int>(random() % kPeople));
            std::size_t characters = most == 0 ? key.View().size() : 1 + random() % most;
            std::size_t length = 0;
            for (; characters > 0; --characters) {
                length += CodePage::System().CharacterLength(key.View().substr(length));
            }
            texts.emplace_back(key.View().substr(0, length));
        }
        return texts;
    }

    const char* OneLetter() const { return m_script == Script::Latin ? "s" : "や"; }

    AddressList view;

private:
    MemoryEngine m_engine;
    CAddressTable m_table{m_engine};
    Script m_script;
};

void LookupEach(benchmark::State& state, std::size_t most) {
    FullList& list = FullList::Of(state);
    const std::vector<CString> texts = list.TypedTexts(most);
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(list.view.DV_Lookup(texts[next++ % texts.size()]));
    }
}

void LookupOneToFiveCharacters(benchmark::State& state) {
    LookupEach(state, 5);
}

// A text that is longer than any key is found nowhere, so that this is the halving alone; away from
// page 932, where all rows would be searched then.
void HalvingOnly(benchmark::State& state) {
    FullList& list = FullList::Of(state);
    std::vector<CString> texts = list.TypedTexts(0);
    for (CString& text : texts) {
        std::string utf8;
        CodePage::System().ToUtf8(text.View(), utf8);
        text = CString(utf8 + "zz");
    }
    const std::string tag = SystemLocale::Tag();
    SystemLocale::Set(tag, kUtf8CodePage);
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(list.view.DV_Lookup(texts[next++ % texts.size()]));
    }
    SystemLocale::Set(tag);
}

void LowerBoundOverSortKeys(benchmark::State& state) {
    FullList& list = FullList::Of(state);
    const auto sortKeyOf = [](const CString& text) {
        std::string utf8;
        std::string key;
        CodePage::System().ToUtf8(text.View(), utf8);
        AppendSortKey(kFlags, utf8, key);
        return key;
    };
    std::vector<std::string> keys;
    for (int row = 0; row < kPeople; ++row) keys.push_back(sortKeyOf(list.KeyOf(row)));
    std::sort(keys.begin(), keys.end());
    const std::vector<CString> texts = list.TypedTexts(0);
    std::size_t next = 0;
    for (auto _ : state) {
        const std::string key = sortKeyOf(texts[next++ % texts.size()]);
        benchmark::DoNotOptimize(std::lower_bound(keys.begin(), keys.end(), key));
    }
}

void CountRows(benchmark::State& state, int rows) {
    state.counters["rows"] = rows;
    state.counters["time_per_row"] = benchmark::Counter(
        rows, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

bool HasWholeKeyThatStartsWith(const CString& typed, unsigned long data, KeyFields fields) {
    CString key;
    MakeRecordKey(orvo::RecordOf(data), fields, kListByName, key);
    ToFullwidthAndHira(key);
    LeftAndValidateDec(key, typed.GetLength());
    return CompareStringA(LOCALE_SYSTEM_DEFAULT, kFlags, typed, typed.GetLength(), key,
                          key.GetLength()) == CSTR_EQUAL;
}

// The rows that start with one letter.
struct Block {
    int first;
    int last;
};
Block BlockOf(FullList& list, const CString& typed) {
    Block block{list.view.DV_Lookup(typed), 0};
    block.last = block.first;
    while (block.last + 1 < kPeople &&
           HasWholeKeyThatStartsWith(typed, list.view.DV_GetItemData(block.last + 1),
                                     SystemKeyFields())) {
        ++block.last;
    }
    return block;
}

void WalkBack(benchmark::State& state) {
    FullList& list = FullList::Of(state);
    const CString typed = InPage(list.OneLetter());
    const Block block = BlockOf(list, typed);
    for (auto _ : state) {
        if (list.view.DVC_FindFirstMatch(block.last, typed) != block.first) {
            state.SkipWithError("the walk stopped too early");
        }
    }
    CountRows(state, block.last - block.first);
}

void WalkBackWithWholeKeys(benchmark::State& state) {
    FullList& list = FullList::Of(state);
    const CString typed = InPage(list.OneLetter());
    const Block block = BlockOf(list, typed);
    for (auto _ : state) {
        int row = block.last;
        while (row > 0 && HasWholeKeyThatStartsWith(typed, list.view.DV_GetItemData(row - 1),
                                                    SystemKeyFields())) {
            --row;
        }
        benchmark::DoNotOptimize(row);
    }
    CountRows(state, block.last - block.first);
}

// On page 932 a text that no reading starts with is looked for in every row.
void Miss(benchmark::State& state) {
    FullList& list = FullList::Of(state);
    SystemLocale::Set("ja-JP");
    const CString typed = InPage("山ん");
    for (auto _ : state) {
        if (list.view.DV_Lookup(typed) != -1) state.SkipWithError("it was found");
    }
    CountRows(state, kPeople);
}

void MissWithWholeKeys(benchmark::State& state) {
    FullList& list = FullList::Of(state);
    SystemLocale::Set("ja-JP");
    const CString typed = InPage("山ん");
    for (auto _ : state) {
        int found = 0;
        for (int row = 0; row < kPeople; ++row) {
            found +=
                HasWholeKeyThatStartsWith(typed, list.view.DV_GetItemData(row), KeyFields::Plain);
        }
        benchmark::DoNotOptimize(found);
    }
    CountRows(state, kPeople);
}

// All benchmarks of a script stand together, as one list is held at a time; those that change the
// locale come last.
const bool kAreRegistered = [] {
    struct Row {
        const char* name;
        void (*run)(benchmark::State&);
        benchmark::TimeUnit unit;
    };
    constexpr Row kRows[] = {
        {"LookupOneToFiveCharacters", LookupOneToFiveCharacters, benchmark::kMicrosecond},
        {"HalvingOnly", HalvingOnly, benchmark::kMicrosecond},
        {"LowerBoundOverSortKeys", LowerBoundOverSortKeys, benchmark::kMicrosecond},
        {"WalkBack", WalkBack, benchmark::kMillisecond},
        {"WalkBackWithWholeKeys", WalkBackWithWholeKeys, benchmark::kMillisecond},
        {"Miss932", Miss, benchmark::kMillisecond},
        {"Miss932WithWholeKeys", MissWithWholeKeys, benchmark::kMillisecond},
    };
    for (const long script : {kLatin, kJapanese}) {
        for (const Row& row : kRows) {
            benchmark::RegisterBenchmark(row.name, row.run)
                ->ArgName("japanese")
                ->Arg(script)
                ->Unit(row.unit);
        }
    }
    return true;
}();

}  // namespace
}  // namespace orvo::bench

BENCHMARK_MAIN();
