// How an import tells how far it is, and how it is ended.
// SPDX-License-Identifier: MIT
#include <random>

#include <gmock/gmock.h>

#include <contract/RecordStoreContract.h>
#include <exchange/files/ExportFile.h>
#include <exchange/files/ImportFile.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

using Told = std::vector<std::pair<std::size_t, std::size_t>>;

std::string ManyEntries() {
    std::string text;
    for (int i = 0; i < 1000; ++i) {
        const std::string number = std::to_string(i);
        text += Card("3.0", "N:Name" + number + "\nTEL:" + number + "\nCATEGORIES:Group\n");
        if (i % 10 == 0) text += "BEGIN:VCARD\nEND:VCARD\n";
        if (i % 50 == 0) {
            text +=
                Calendar("2.0", "BEGIN:VTODO\nSUMMARY:a\nEND:VTODO\nBEGIN:VEVENT\nEND:VEVENT\n");
        }
    }
    return text;
}

template <class Engine>
class ImportProgressContract : public testing::Test {
protected:
    std::vector<std::string> Content() {
        std::vector<std::string> lines;
        CAddressIterator addressWalk(addresses);
        CAddressRecord address(addresses);
        for (long status = addressWalk.FindFirst(address); status == 0;
             status = addressWalk.FindNext(address)) {
            lines.push_back(std::to_string(address.GetId()) + ExportCard(address, addresses));
        }
        CToDoIterator toDoWalk(toDos);
        CToDoRecord toDo(toDos);
        for (long status = toDoWalk.FindFirst(toDo); status == 0;
             status = toDoWalk.FindNext(toDo)) {
            lines.push_back(std::to_string(toDo.GetId()) + std::string(toDo.DescriptionUtf8()));
        }
        std::vector<StoreEngine::NumberedText> texts;
        engine.ReadTexts(TableKind::Address, StoreEngine::TextKind::Category, texts);
        for (const auto& text : texts) lines.push_back(text.text);
        return lines;
    }

    NewStore<Engine> store;
    StoreEngine& engine = *store.engine;
    CAddressTable addresses{engine};
    CToDoTable toDos{engine};
};

TYPED_TEST_SUITE(ImportProgressContract, StoreEngines);

TYPED_TEST(ImportProgressContract, AnImportThatIsEndedAnywhereLeavesNothing) {
    const std::string text = ManyEntries();
    ImportBytes(Card("3.0", "N:before\n"), this->addresses, this->toDos);
    const std::vector<std::string> before = this->Content();
    std::mt19937 random(7);
    for (int round = 0; round < 12; ++round) {
        std::size_t left = random() % 20;
        const std::size_t wanted = left;
        std::size_t told = 0;
        {
            const StoreTransaction transaction(this->engine);
            EXPECT_THROW(ImportBytes(text, this->addresses, this->toDos,
                                     [&](std::size_t, std::size_t) {
                                         ++told;
                                         return left-- != 0;
                                     }),
                         ImportCancelled);
        }
        this->addresses.RefreshTexts();
        this->toDos.RefreshTexts();
        EXPECT_EQ(told, wanted + 1);
        EXPECT_EQ(this->Content(), before) << "ended after " << wanted;
    }
}

}  // namespace

TEST(ImportProgress, ItRisesInSmallStepsAndEndsAtTheWholeFile) {
    std::string utf16("\xFF\xFE", 2);
    for (const char c : ManyEntries()) utf16.append({c, '\0'});
    const struct {
        const char* why;
        std::string text;
    } rows[] = {{"cards and to-dos", ManyEntries()},
                {"two bytes a character", utf16},
                {"a single card", Card("3.0", "N:a\n")}};
    for (const auto& row : rows) {
        Tables tables;
        Told told;
        ImportBytes(row.text, tables.addresses, tables.toDos,
                    [&](std::size_t done, std::size_t total) {
                        told.emplace_back(done, total);
                        return true;
                    });
        ASSERT_FALSE(told.empty()) << row.why;
        EXPECT_EQ(told.back(), std::pair(row.text.size(), row.text.size())) << row.why;
        for (std::size_t i = 1; i < told.size(); ++i) {
            EXPECT_GE(told[i].first, told[i - 1].first) << row.why;
            EXPECT_LT(told[i].first - told[i - 1].first, 16384u) << row.why;
            EXPECT_EQ(told[i].second, row.text.size()) << row.why;
        }
    }
}

TEST(ImportProgress, ToDosAreToldAsTheyAreStored) {
    std::string lines;
    for (int i = 0; i < 500; ++i) lines += "BEGIN:VTODO\nSUMMARY:Order flour\nEND:VTODO\n";
    Tables tables;
    std::vector<std::int64_t> counts;
    ImportBytes(Calendar("2.0", lines), tables.addresses, tables.toDos,
                [&](std::size_t, std::size_t) {
                    counts.push_back(tables.toDos.GetCount());
                    return true;
                });
    ASSERT_GT(counts.size(), 3u);
    EXPECT_LT(counts.at(1), 300);
    EXPECT_GT(counts.at(1), counts.at(0));
}

TEST(ImportProgress, TheReportNamesTheFirstAndTheLastAddress) {
    Tables tables;
    tables.Import(Card("3.0", "N:before\n"));
    const ImportReport report =
        tables.Import(Card("3.0", "N:a\n") + Card("3.0", "N:b\n") + Card("3.0", "N:c\n"));
    EXPECT_EQ(std::pair(report.firstAddress, report.lastAddress), std::pair(2L, 4L));
    EXPECT_EQ(tables.Import(Calendar("2.0", "BEGIN:VTODO\nSUMMARY:a\nEND:VTODO\n")).firstAddress,
              0);
}

}  // namespace orvo
