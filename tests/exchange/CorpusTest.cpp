// Files that other programs wrote go in and come out as they were. ORVO_CORPORA names their folder.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <exchange/calendar/ToDoFields.h>
#include <exchange/calendar/ToDoWriter.h>
#include <exchange/cards/CardWriter.h>
#include <platform/io/TempFolder.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

std::vector<std::filesystem::path> CorpusFiles() {
    std::vector<std::filesystem::path> files;
    const char* const folder = std::getenv("ORVO_CORPORA");
    if (!folder) return files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const bool isText = entry.path().extension() == ".md";
        if (entry.is_regular_file() && !isText) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

void ExpectAllAsTheyCame(Tables& tables) {
    CardWriter writer(tables.addresses);
    for (const auto& record : All(tables.addresses)) {
        std::string source;
        record->GetSource(source);
        EXPECT_EQ(writer.Write(*record), source);
    }
    for (const auto& record : All(tables.toDos)) {
        ToDoParts parts;
        record->GetSourceParts(parts.shared, parts.rest);
        EntryReader reader(parts.rest);
        ToDoSource source;
        ASSERT_TRUE(ReadToDoSource(parts, reader, source));
        const ToDoWriter::Written written = ToDoWriter(tables.toDos, source.dialect).Write(*record);
        EXPECT_EQ(written.toDo, source.toDo.source);
        EXPECT_EQ(written.timeZones, source.timeZones);
    }
}

// A copy without its source is written fresh, in the words of this system alone.
void ExpectFreshCardsOfTheSameFields(Tables& tables) {
    CardWriter writer(tables.addresses);
    for (const auto& record : All(tables.addresses)) {
        const std::string shown = Describe(*record);
        if (shown.empty()) continue;  // the card has only lines of no field
        ASSERT_EQ(record->SetSource({}), 0);
        const std::string card = writer.Write(*record);
        EXPECT_THAT(DescribeAll(card), ElementsAre(shown)) << card;
    }
}

template <class Table>
std::size_t CountWithUid(Table& table) {
    const auto all = All(table);
    return static_cast<std::size_t>(std::count_if(all.begin(), all.end(), [](const auto& record) {
        std::string source;
        record->GetSource(source);
        return !ReadSourceStamp(source).uid.empty();
    }));
}

// Nothing is added again that has a UID, and what was edited since stays.
void ExpectAllKnown(Tables& tables, const std::string& bytes) {
    const Strings before = DescribeAll(tables);
    const std::size_t known = CountWithUid(tables.addresses) + CountWithUid(tables.toDos);
    Tables again(bytes);
    const std::size_t all = All(again.addresses).size() + All(again.toDos).size();
    const ImportReport same = tables.Import(bytes);
    EXPECT_EQ(same.unchanged, known);
    EXPECT_EQ(same.updated, 0u);
    EXPECT_EQ(same.addresses + same.toDos, all - known);
    if (known != all) return;
    EXPECT_EQ(DescribeAll(tables), before);
    for (const auto& record : All(tables.addresses)) record->SetNoteUtf8("edited");
    for (const auto& record : All(tables.toDos)) record->SetNoteUtf8("edited");
    const ImportReport edited = tables.Import(bytes);
    EXPECT_EQ(edited.updated + edited.unchanged + edited.addresses + edited.toDos, 0u);
}

TEST(Corpus, EveryFileGoesInOrHoldsNothingAndComesOutAsItWasAndFreshWithTheSameFields) {
    const std::vector<std::filesystem::path> files = CorpusFiles();
    if (files.empty()) GTEST_SKIP() << "ORVO_CORPORA doesn't name a folder of files";
    for (const auto& path : files) {
        SCOPED_TRACE(path.string());
        const std::string bytes = TempFolder::Content(path);
        Tables tables;
        try {
            tables.Import(bytes);
        } catch (const ExchangeError&) {
            EXPECT_EQ(bytes.find("BEGIN:VC"), std::string::npos);
            continue;
        }
        ExpectAllAsTheyCame(tables);
        Tables twice(bytes);
        ExpectAllKnown(twice, bytes);
        ExpectFreshCardsOfTheSameFields(tables);
    }
}

}  // namespace
}  // namespace orvo
