// Files as a whole: what is told about bad ones, and how one takes another's place.
// SPDX-License-Identifier: MIT
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <thread>

#include <fmt/core.h>
#include <gmock/gmock.h>

#include <exchange/files/ExportFile.h>
#include <support/LocaleInForce.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace std::literals;
using Strings = std::vector<std::string>;

Strings Skipped(const ImportReport& report) {
    Strings lines;
    for (const SkippedEntry& entry : report.skipped) {
        lines.push_back(fmt::format("{} {}", entry.line, entry.reason));
    }
    return lines;
}

TEST(Importing, WhatIsLeftOutIsToldByLineAndReasonAndTheRestGoesIn) {
    struct Row {
        const char* why;
        const char* text;
        std::size_t addresses;
        std::size_t toDos;
        Strings skipped;
    };
    const Row rows[] = {
        {"a card broken off",
         "BEGIN:VCARD\nFN:a\nEND:VCARD\nBEGIN:VCARD\nFN:b\n",
         1,
         0,
         {"4 the card has no END:VCARD"}},
        {"a card within a card",
         "BEGIN:VCARD\nFN:a\nBEGIN:VCARD\nFN:b\nEND:VCARD\n",
         1,
         0,
         {"1 the card has no END:VCARD"}},
        {"empty cards",
         "BEGIN:VCARD\nEND:VCARD\nBEGIN:VCARD\nVERSION:3.0\nTEL:\nEND:VCARD\n",
         0,
         0,
         {"1 the card holds nothing", "3 the card holds nothing"}},
        {"text of no field", "BEGIN:VCARD\nUID:1\nEND:VCARD\n", 1, 0, {}},
        {"a line without a colon", "BEGIN:VCARD\nwhat\nFN:a\nEND:VCARD\n", 1, 0, {}},
        {"text around",
         "hello\nBEGIN:VCARD\nFN:a\nEND:VCARD\nbye\n",
         1,
         0,
         {"1 the text is outside of any card or calendar",
          "5 the text is outside of any card or calendar"}},
        {"what is no to-do",
         "BEGIN:VCALENDAR\nBEGIN:VEVENT\nEND:VEVENT\nBEGIN:VTODO\nSUMMARY:a\nEND:VTODO\n"
         "BEGIN:VJOURNAL\nEND:VJOURNAL\nBEGIN:VFREEBUSY\nEND:VFREEBUSY\nBEGIN:X-Y\nEND:X-Y\nEND:"
         "VCALENDAR\n",
         0,
         1,
         {"2 an event (VEVENT) is no to-do", "7 a journal entry (VJOURNAL) is no to-do",
          "9 free and busy time (VFREEBUSY) is no to-do", "11 a component X-Y is no to-do"}},
        {"a to-do broken off",
         "BEGIN:VCALENDAR\nBEGIN:VTODO\nSUMMARY:a\nEND:VCALENDAR\n",
         0,
         0,
         {"2 the to-do has no END:VTODO"}},
        {"both kinds in one file",
         "BEGIN:VCARD\nFN:a\nEND:VCARD\nBEGIN:VCALENDAR\nBEGIN:VTODO\nSUMMARY:a\nEND:VTODO\nEND:"
         "VCALENDAR",
         1,
         1,
         {}},
    };
    for (const Row& row : rows) {
        Tables tables;
        const ImportReport report = tables.Import(row.text);
        EXPECT_EQ(report.addresses, row.addresses) << row.why;
        EXPECT_EQ(report.toDos, row.toDos) << row.why;
        EXPECT_EQ(Skipped(report), row.skipped) << row.why;
    }
}

TEST(Importing, TextOfOtherEncodingsAndAnyBytesGoIn) {
    Tables tables;
    std::string utf16("\xFF\xFE");
    for (const char c : std::string_view("BEGIN:VCARD\nFN:a\nEND:VCARD\n")) utf16.append({c, '\0'});
    tables.Import(utf16);
    tables.Import(
        "\xEF\xBB\xBF"
        "BEGIN:VCARD\nFN:b\nEND:VCARD");
    tables.Import("BEGIN:VCARD\nFN:c\0d\nNOTE:\xFF\xFE\xC3\nEND:VCARD"sv);

    const Strings all = DescribeAll(tables);

    EXPECT_EQ(all[1], "name: a");
    EXPECT_EQ(all[3], "name: b");
    EXPECT_EQ(all[5], "name: c\0d"sv);
}

TEST(Importing, HugeAndDeepInputGoesIn) {
    std::string card =
        "BEGIN:VCARD\nFN:a\nNOTE:" + std::string(10'000'000, 'x') + "\nPHOTO;ENCODING=b:";
    for (int i = 0; i < 100'000; ++i) card += "AAAAAAAA\n ";
    card += "\n";
    for (int i = 0; i < 200'000; ++i) card += "X-A;B;C=\"d\":e\n";
    for (int i = 0; i < 100'000; ++i) card += "BEGIN:X\n";
    for (int i = 0; i < 100'000; ++i) card += "END:Y\n";
    card += "END:VCARD\n" + std::string(200'000, '\r');
    for (int i = 0; i < 50'000; ++i) card += "BEGIN:VCARD\r";
    Tables tables;

    const ImportReport report = tables.Import(card);

    EXPECT_EQ(report.addresses, 1u);
    EXPECT_EQ(report.skipped.size(), 50'000u);
    CAddressRecord record(tables.addresses);
    ASSERT_EQ(CAddressIterator(tables.addresses).FindFirst(record), 0);
    EXPECT_EQ(ExportCard(record, tables.addresses), card.substr(0, card.find("END:VCARD") + 10));
}

TEST(Importing, TheSameNameGivesTheSameCategoryUnderEveryCodePage) {
    struct Row {
        unsigned page;
        const char* name;
        const char* category;
    };
    const Row rows[] = {
        {65001, "家族", "家族"},
        {65001, "一二三四五六", "一二三四五"},
        {65001, "12345678901234é", "12345678901234"},
        {932, "一二三四五六七八", "一二三四五六七"},
        {1252, "12345678901234é漢", "12345678901234é"},
    };
    for (const Row& row : rows) {
        const LocaleInForce scoped("en-US", row.page);
        Tables tables;
        const std::string card = Card("3.0", fmt::format("FN:a\nCATEGORIES:{}\n", row.name));
        tables.Import(card + Card("3.0", "FN:b\nCATEGORIES:友人\n") + card);
        CCategoryMgr& manager = *tables.addresses.GetCategoryManager();
        CCategory* category = nullptr;
        EXPECT_EQ(manager.FindUtf8Name(row.category, category), 0) << row.name << row.page;
        EXPECT_EQ(manager.GetCount(), 3) << row.name << row.page;
    }
}

TEST(Importing, RecordsStandInTheFilesOrder) {
    Tables tables;
    tables.Import("BEGIN:VCARD\nFN:b\nEND:VCARD\nBEGIN:VCARD\nFN:a\nEND:VCARD\n");
    CAddressRecord record(tables.addresses);
    CAddressIterator iterator(tables.addresses);
    int first = 0;
    int second = 0;

    iterator.FindFirst(record);
    record.GetPlacementPos(first);
    EXPECT_THAT(Describe(record), ElementsAre("name: b"));
    iterator.FindNext(record);
    record.GetPlacementPos(second);

    EXPECT_LT(first, second);
}

TEST(Importing, AStoreThatRefusesEndsTheImportWithLineAndReason) {
    class FullEngine : public MemoryEngine {
        StoreStatus Insert(TableKind, StoredRow&, const RowExtra&) override {
            return Fail(StoreStatus::Failed, "disk is full");
        }
    };
    FullEngine engine;
    CAddressTable addresses(engine);
    CToDoTable toDos(engine);
    const auto errorOf = [&](std::string_view text) {
        try {
            ImportBytes(text, addresses, toDos);
        } catch (const ExchangeError& error) {
            return std::string(error.what());
        }
        return "no error"s;
    };

    EXPECT_EQ(errorOf("\n" + Card("3.0", "FN:a\n")),
              "line 2: the card can't be stored: disk is full");
    EXPECT_EQ(errorOf(Calendar("2.0", "BEGIN:VTODO\nSUMMARY:a\nEND:VTODO\n")),
              "line 3: the to-do can't be stored: disk is full");
}

class Files : public testing::Test {
protected:
    void SetUp() override {
        m_folder =
            std::filesystem::temp_directory_path() / fmt::format("orvo-exchange-{}", ::getpid());
        std::filesystem::create_directory(m_folder);
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    std::string Path(const std::string& name) const { return (m_folder / name).string(); }
    static void Write(const std::string& path, std::string_view text) {
        std::ofstream(path, std::ios::binary) << text;
    }
    static std::string Read(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    Strings Names() const {
        Strings names;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder)) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }
    std::string ErrorOf(const std::function<void()>& action) const {
        try {
            action();
        } catch (const ExchangeError& error) {
            return error.what();
        }
        return "no error";
    }

    std::filesystem::path m_folder;
    Tables m_tables;
};

TEST_F(Files, AFileThatCannotBeReadIsToldWithItsName) {
    Write(Path("a.vcf"), "<xml/>");
    const auto import = [&](const std::string& path) {
        return ErrorOf([&] { ImportFile(path, m_tables.addresses, m_tables.toDos); });
    };

    EXPECT_EQ(import(Path("a.vcf")), Path("a.vcf") + ": holds no card or calendar");
    EXPECT_EQ(import(Path("b.vcf")), Path("b.vcf") + ": can't be read: No such file or directory");
    EXPECT_EQ(import(Path("")), Path("") + ": can't be read: Is a directory");
}

TEST_F(Files, APipeIsReadAndADeviceIsRefused) {
    const auto import = [&](const std::string& path) {
        return ErrorOf([&] { ImportFile(path, m_tables.addresses, m_tables.toDos); });
    };
    for (const char* device : {"/dev/full", "/dev/zero"}) {
        EXPECT_EQ(import(device),
                  std::string(device) + ": can't be read: it is neither a file nor a pipe");
    }
    const std::string pipe = Path("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(import(pipe), pipe + ": can't be read: nobody writes to this pipe");
    // More than a pipe holds, so that the reader and the writer wait for each other.
    const std::string note(200'000, 'x');
    std::thread writer([&] { Write(pipe, Card("3.0", "FN:a\nNOTE:" + note + "\n")); });
    EXPECT_EQ(ImportFile(pipe, m_tables.addresses, m_tables.toDos).addresses, 1u);
    writer.join();
}

TEST_F(Files, WhatGoesOutComesBackIn) {
    m_tables.Import(Card("3.0", "FN:a\nCATEGORIES:Work\n") + Card("2.1", "N:b\nTEL;CELL:1\n") +
                    Calendar("2.0", "BEGIN:VTODO\nSUMMARY:c\nEND:VTODO\n"));

    EXPECT_EQ(ExportFile(Path("a.VCF"), m_tables.addresses, m_tables.toDos).written, 2u);
    EXPECT_EQ(ExportFile(Path("a.ics"), m_tables.addresses, m_tables.toDos).written, 1u);
    EXPECT_EQ(ExportFile(Path("b.vcf"), m_tables.addresses, m_tables.toDos, 1).written, 1u);
    EXPECT_EQ(ExportFile(Path("a.vcs"), m_tables.addresses, m_tables.toDos).written, 1u);

    Tables copies;
    ImportFile(Path("a.VCF"), copies.addresses, copies.toDos);
    ImportFile(Path("a.ics"), copies.addresses, copies.toDos);
    EXPECT_EQ(DescribeAll(copies), DescribeAll(m_tables));
    EXPECT_EQ(Read(Path("b.vcf")), Card("3.0", "FN:a\nCATEGORIES:Work\n"));
    EXPECT_THAT(Read(Path("a.vcs")), HasSubstr("VERSION:1.0\r\nBEGIN:VTODO\r\n"));
}

TEST_F(Files, ADamagedRecordIsLeftOutOfAnExportAndTold) {
    m_tables.Import(Card("3.0", "FN:a\n"));
    StoredRow damaged;
    damaged.fields = "\x01";
    ASSERT_EQ(m_tables.engine.Insert(TableKind::Address, damaged, {}), StoreStatus::Ok);
    m_tables.Import(Card("3.0", "FN:b\n"));

    const ExportReport report = ExportFile(Path("a.vcf"), m_tables.addresses, m_tables.toDos);

    EXPECT_EQ(report.written, 2u);
    EXPECT_THAT(report.leftOut, ElementsAre("the fields of record 2 are damaged"));
    EXPECT_EQ(Read(Path("a.vcf")), Card("3.0", "FN:a\n") + Card("3.0", "FN:b\n"));
}

TEST_F(Files, AReplacedFileKeepsItsPermissionsAndALinkItsTarget) {
    m_tables.Import(Card("3.0", "FN:a\n"));
    Write(Path("a.vcf"), "old");
    ::chmod(Path("a.vcf").c_str(), 0640);
    std::filesystem::create_symlink("a.vcf", Path("link.vcf"));

    ExportFile(Path("link.vcf"), m_tables.addresses, m_tables.toDos);

    struct stat status {};
    ASSERT_EQ(::stat(Path("a.vcf").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777u, 0640u);
    EXPECT_EQ(Read(Path("a.vcf")), Card("3.0", "FN:a\n"));
    EXPECT_TRUE(std::filesystem::is_symlink(Path("link.vcf")));
    EXPECT_EQ(Names().size(), 2u);
}

TEST_F(Files, WhatCannotBeWrittenLeavesTheOldFile) {
    const auto exportTo = [&](const std::string& path) {
        return ErrorOf([&] { ExportFile(path, m_tables.addresses, m_tables.toDos); });
    };
    std::filesystem::create_directory(Path("folder.vcf"));

    EXPECT_THAT(exportTo(Path("a.txt")), HasSubstr("a.txt: the name of a card file ends in .vcf"));
    EXPECT_EQ(exportTo(Path("folder.vcf")),
              Path("folder.vcf") + ": is no file that can be replaced");
    EXPECT_EQ(exportTo(Path("none/a.vcf")),
              Path("none/a.vcf") + ": can't be written: No such file or directory");
    EXPECT_THAT(Names(), ElementsAre("folder.vcf"));
}

}  // namespace
}  // namespace orvo
