// How an import tells how far it is, and how it is ended.
// SPDX-License-Identifier: MIT
#include <random>

#include <fmt/core.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

std::string ManyEntries() {
    std::string text;
    for (int i = 0; i < 1000; ++i) {
        text += Card(fmt::format("N:Name{0}\nTEL:{0}\nCATEGORIES:Group", i));
        if (i % 10 == 0) text += "BEGIN:VCARD\nEND:VCARD\n";
        if (i % 50 == 0) text += Calendar(ToDo("SUMMARY:a") + "BEGIN:VEVENT\nEND:VEVENT\n");
    }
    return text;
}

// The records with their ids, and the categories.
Strings Content(Tables& tables) {
    Strings lines;
    for (const auto& record : All(tables.addresses)) {
        lines.push_back(std::to_string(record->GetId()) + tables.Export(*record));
    }
    for (const auto& record : All(tables.toDos)) {
        lines.push_back(std::to_string(record->GetId()) + Describe(*record));
    }
    std::vector<StoreEngine::NumberedText> texts;
    tables.engine.ReadTexts(TableKind::Address, StoreEngine::TextKind::Category, texts);
    for (const auto& text : texts) lines.push_back(text.text);
    return lines;
}

TEST(ImportProgress, AnImportThatIsEndedAnywhereLeavesNothing) {
    const std::string text = ManyEntries();
    Tables tables(Card("N:before"));
    const Strings before = Content(tables);
    std::mt19937 random(7);
    for (int round = 0; round < 12; ++round) {
        const std::size_t wanted = random() % 20;
        std::size_t told = 0;
        {
            const StoreTransaction transaction(tables.engine);
            EXPECT_THROW(ImportBytes(text, tables.addresses, tables.toDos,
                                     [&](std::size_t, std::size_t) { return told++ != wanted; }),
                         ImportCancelled);
        }
        tables.addresses.RefreshTexts();
        tables.toDos.RefreshTexts();
        EXPECT_EQ(told, wanted + 1);
        EXPECT_EQ(Content(tables), before) << "ended after " << wanted;
    }
}

TEST(ImportProgress, ItRisesInSmallStepsAndEndsAtTheWholeFile) {
    std::string utf16("\xFF\xFE", 2);
    for (const char c : ManyEntries()) utf16.append({c, '\0'});
    const std::pair<const char*, std::string> rows[] = {{"cards and to-dos", ManyEntries()},
                                                        {"two bytes a character", utf16},
                                                        {"a single card", Card("N:a")}};
    for (const auto& [why, text] : rows) {
        SCOPED_TRACE(why);
        Tables tables;
        std::size_t last = 0;
        ImportBytes(text, tables.addresses, tables.toDos,
                    [&, whole = text.size()](std::size_t done, std::size_t total) {
                        EXPECT_GE(done, last);
                        EXPECT_LT(done - last, 16384u);
                        EXPECT_EQ(total, whole);
                        last = done;
                        return true;
                    });
        EXPECT_EQ(last, text.size());
    }
}

TEST(ImportProgress, ToDosAreToldAsTheyAreStored) {
    std::string lines;
    for (int i = 0; i < 500; ++i) lines += ToDo("SUMMARY:Order flour");
    Tables tables;
    std::vector<std::int64_t> counts;
    ImportBytes(Calendar(lines), tables.addresses, tables.toDos, [&](std::size_t, std::size_t) {
        counts.push_back(tables.toDos.GetCount());
        return true;
    });
    ASSERT_GT(counts.size(), 3u);
    EXPECT_LT(counts.at(1), 300);
    EXPECT_GT(counts.at(1), counts.at(0));
}

TEST(ImportProgress, TheReportNamesTheFirstAndTheLastAddress) {
    Tables tables(Card("N:before"));
    const ImportReport report = tables.Import(Card("N:a") + Card("N:b") + Card("N:c"));
    EXPECT_EQ(std::pair(report.firstAddress, report.lastAddress), std::pair(2L, 4L));
    EXPECT_EQ(tables.Import(Calendar(ToDo("SUMMARY:a"))).firstAddress, 0);
}

}  // namespace
}  // namespace orvo
