// Files that other programs wrote go in and come out as they were. ORVO_CORPORA names their folder.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include <fmt/core.h>
#include <gmock/gmock.h>

#include <exchange/calendar/ToDoFields.h>
#include <exchange/calendar/ToDoWriter.h>
#include <exchange/cards/CardWriter.h>

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

std::string Read(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class Corpus : public testing::Test {
protected:
    void SetUp() override {
        if (m_files.empty()) GTEST_SKIP() << "ORVO_CORPORA doesn't name a folder of files";
    }
    const std::vector<std::filesystem::path> m_files = CorpusFiles();
};

void ExpectCardsAsTheyCame(Tables& tables) {
    CardWriter writer(tables.addresses);
    CAddressRecord record(tables.addresses);
    CAddressIterator iterator(tables.addresses);
    for (long s = iterator.FindFirst(record); s == 0; s = iterator.FindNext(record)) {
        std::string source;
        record.GetSource(source);
        EXPECT_EQ(writer.Write(record), source);
    }
}

void ExpectToDosAsTheyCame(Tables& tables) {
    CToDoRecord record(tables.toDos);
    CToDoIterator iterator(tables.toDos);
    for (long s = iterator.FindFirst(record); s == 0; s = iterator.FindNext(record)) {
        ToDoParts parts;
        record.GetSourceParts(parts.shared, parts.rest);
        EntryReader reader(parts.rest);
        ToDoSource source;
        ASSERT_TRUE(ReadToDoSource(parts, reader, source));
        const ToDoWriter::Written written = ToDoWriter(tables.toDos, source.dialect).Write(record);
        EXPECT_EQ(written.toDo, source.toDo.source);
        EXPECT_EQ(written.timeZones, source.timeZones);
    }
}

TEST_F(Corpus, EveryFileGoesInOrTellsWhyNotAndComesOutAsItWas) {
    std::map<std::string, std::size_t> reasons;
    ImportReport total;
    std::size_t refused = 0;
    for (const auto& path : m_files) {
        SCOPED_TRACE(path.string());
        Tables tables;
        const std::string bytes = Read(path);
        try {
            const ImportReport report = tables.Import(bytes);
            total.addresses += report.addresses;
            total.toDos += report.toDos;
            for (const SkippedEntry& entry : report.skipped) ++reasons[entry.reason];
        } catch (const ExchangeError& error) {
            ++refused;
            ++reasons[std::string("file: ") + error.what()];
            EXPECT_EQ(bytes.find("BEGIN:VC"), std::string::npos);
        }
        ExpectCardsAsTheyCame(tables);
        ExpectToDosAsTheyCame(tables);
    }
    std::string summary = fmt::format("{} files, {} refused; {} addresses, {} to-dos\n",
                                      m_files.size(), refused, total.addresses, total.toDos);
    for (const auto& [reason, count] : reasons) summary += fmt::format("{:5} {}\n", count, reason);
    std::fputs(summary.c_str(), stdout);
}

// A copy without its source is written fresh, in the words of this system alone.
TEST_F(Corpus, FreshCardsOfTheSameFieldsReadAsTheSame) {
    for (const auto& path : m_files) {
        SCOPED_TRACE(path.string());
        Tables tables;
        try {
            tables.Import(Read(path));
        } catch (const ExchangeError&) {
            continue;
        }
        CardWriter writer(tables.addresses);
        CAddressRecord record(tables.addresses);
        CAddressIterator iterator(tables.addresses);
        for (long s = iterator.FindFirst(record); s == 0; s = iterator.FindNext(record)) {
            if (Describe(record).empty()) continue;  // the card has only lines of no field
            ASSERT_EQ(record.SetSource({}), 0);
            Tables again;
            again.Import(writer.Write(record));
            CAddressRecord copy(again.addresses);
            ASSERT_EQ(CAddressIterator(again.addresses).FindFirst(copy), 0) << writer.Write(record);
            EXPECT_EQ(Describe(copy), Describe(record)) << writer.Write(record);
        }
    }
}

}  // namespace
}  // namespace orvo
