// Files as a whole: what is told about bad ones, and how one takes another's place.
// SPDX-License-Identifier: MIT
#include <sys/stat.h>
#include <thread>
#include <tuple>

#include <fmt/format.h>

#include <exchange/files/ExportFile.h>
#include <platform/io/TempFolder.h>
#include <support/LocaleInForce.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

namespace fs = std::filesystem;
using testing::StartsWith;
using namespace std::literals;

// What is thrown tells that in one line.
auto Tells(const std::string& text) {
    return testing::ThrowsMessage<ExchangeError>(text);
}

TEST(Importing, WhatIsLeftOutIsToldByLineAndReasonAndTheRestGoesIn) {
    // What is told: the numbers of addresses and of to-dos, and what is left out.
    const char* const rows[][3] = {
        {"a card broken off", "BEGIN:VCARD\nFN:a\nEND:VCARD\nBEGIN:VCARD\nFN:b\n",
         "1 0 | 4 the card has no END:VCARD"},
        {"a card within a card", "BEGIN:VCARD\nFN:a\nBEGIN:VCARD\nFN:b\nEND:VCARD\n",
         "1 0 | 1 the card has no END:VCARD"},
        {"empty cards", "BEGIN:VCARD\nEND:VCARD\nBEGIN:VCARD\nVERSION:3.0\nTEL:\nEND:VCARD\n",
         "0 0 | 1 the card holds nothing | 3 the card holds nothing"},
        {"text of no field", "BEGIN:VCARD\nUID:1\nEND:VCARD\n", "1 0"},
        {"a line without a colon", "BEGIN:VCARD\nwhat\nFN:a\nEND:VCARD\n", "1 0"},
        {"text around", "hello\nBEGIN:VCARD\nFN:a\nEND:VCARD\nbye\n",
         "1 0 | 1 the text is outside of any card or calendar"
         " | 5 the text is outside of any card or calendar"},
        {"what is no to-do",
         "BEGIN:VCALENDAR\nBEGIN:VEVENT\nEND:VEVENT\nBEGIN:VTODO\nSUMMARY:a\nEND:VTODO\n"
         "BEGIN:VJOURNAL\nEND:VJOURNAL\nBEGIN:VFREEBUSY\nEND:VFREEBUSY\nBEGIN:X-Y\nEND:X-Y\n"
         "END:VCALENDAR\n",
         "0 1 | 2 an event (VEVENT) is no to-do | 7 a journal entry (VJOURNAL) is no to-do"
         " | 9 free and busy time (VFREEBUSY) is no to-do | 11 a component X-Y is no to-do"},
        {"a to-do broken off", "BEGIN:VCALENDAR\nBEGIN:VTODO\nSUMMARY:a\nEND:VCALENDAR\n",
         "0 0 | 2 the to-do has no END:VTODO"},
        {"both kinds in one file",
         "BEGIN:VCARD\nFN:a\nEND:VCARD\nBEGIN:VCALENDAR\nBEGIN:VTODO\nSUMMARY:a\nEND:VTODO\nEND:"
         "VCALENDAR",
         "1 1"},
    };
    for (const auto& [why, text, want] : rows) {
        Tables tables;
        const ImportReport report = tables.Import(text);
        std::string told = fmt::format("{} {}", report.addresses, report.toDos);
        for (const SkippedEntry& entry : report.skipped) {
            told += fmt::format(" | {} {}", entry.line, entry.reason);
        }
        EXPECT_EQ(told, want) << why;
    }
}

TEST(Importing, TextOfOtherEncodingsAndAnyBytesGoInInTheFilesOrder) {
    Tables tables;
    std::string utf16("\xFF\xFE");
    for (const char c : "BEGIN:VCARD\nFN:b\nEND:VCARD\n"sv) utf16.append({c, '\0'});
    tables.Import(utf16);
    tables.Import(
        "\xEF\xBB\xBF"
        "BEGIN:VCARD\nFN:a\nEND:VCARD");
    tables.Import("BEGIN:VCARD\nFN:c\0d\nNOTE:\xFF\xFE\xC3\nEND:VCARD"sv);
    EXPECT_THAT(DescribeAll(tables),
                ElementsAre("name: b", "name: a", StartsWith("name: c\0d | note: "s)));
    int before = -1;
    for (const auto& record : All(tables.addresses)) {
        int place = 0;
        record->GetPlacementPos(place);
        EXPECT_LT(std::exchange(before, place), place);
    }
}

TEST(Importing, HugeAndDeepInputGoesIn) {
    std::string card =
        "BEGIN:VCARD\nFN:a\nNOTE:" + std::string(10'000'000, 'x') + "\nPHOTO;ENCODING=b:";
    const auto repeat = [&](int count, std::string_view text) {
        while (count-- > 0) card += text;
    };
    repeat(100'000, "AAAAAAAA\n ");
    card += "\n";
    repeat(200'000, "X-A;B;C=\"d\":e\n");
    repeat(100'000, "BEGIN:X\n");
    repeat(100'000, "END:Y\n");
    card += "END:VCARD\n" + std::string(200'000, '\r');
    repeat(50'000, "BEGIN:VCARD\r");
    Tables tables;

    const ImportReport report = tables.Import(card);

    EXPECT_EQ(report.addresses, 1u);
    EXPECT_EQ(report.skipped.size(), 50'000u);
    EXPECT_EQ(tables.Export(*tables.Address()), card.substr(0, card.find("END:VCARD") + 10));
}

TEST(Importing, TheSameNameGivesTheSameCategoryUnderEveryCodePage) {
    const std::tuple<unsigned, const char*, const char*> rows[] = {
        {65001, "家族", "家族"},
        {65001, "一二三四五六", "一二三四五"},
        {65001, "12345678901234é", "12345678901234"},
        {932, "一二三四五六七八", "一二三四五六七"},
        {1252, "12345678901234é漢", "12345678901234é"},
    };
    for (const auto& [page, name, want] : rows) {
        const LocaleInForce scoped("en-US", page);
        const std::string card = Card(fmt::format("FN:a\nCATEGORIES:{}", name));
        Tables tables(card + Card("FN:b\nCATEGORIES:友人") + card);
        CCategoryMgr& manager = *tables.addresses.GetCategoryManager();
        CCategory* category = nullptr;
        EXPECT_EQ(manager.FindUtf8Name(want, category), 0) << name << page;
        EXPECT_EQ(manager.GetCount(), 3) << name << page;
    }
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
    const auto import = [&](const std::string& text) {
        return [&, text] { ImportBytes(text, addresses, toDos); };
    };
    EXPECT_THAT(import("\n" + Card("FN:a")),
                Tells("line 2: the card can't be stored: disk is full"));
    EXPECT_THAT(import(Calendar(ToDo("SUMMARY:a"))),
                Tells("line 3: the to-do can't be stored: disk is full"));
}

class Files : public testing::Test {
protected:
    ImportReport Import(const std::string& file) {
        return ImportFile(file, tables.addresses, tables.toDos);
    }
    ExportReport Export(const std::string& file, int category = kAllCategories) {
        return ExportFile(file, tables.addresses, tables.toDos, category);
    }

    // To be refused, with the reason behind the file's name.
    void ExpectNoImport(const std::string& file, const std::string& why) {
        EXPECT_THAT([&] { Import(file); }, Tells(file + ": " + why));
    }
    void ExpectNoExport(const std::string& file, const std::string& why) {
        EXPECT_THAT([&] { Export(file); }, Tells(file + ": " + why));
    }

    const TempFolder folder;
    const std::string path = folder.Path("a.vcf");
    Tables tables;
};

TEST_F(Files, AFileThatCannotBeReadIsToldWithItsName) {
    ExpectNoImport(path, "can't be read: No such file or directory");
    ExpectNoImport(folder.File("a.vcf", "<xml/>"), "holds no card or calendar");
    ExpectNoImport(folder.Path(""), "can't be read: Is a directory");
}

TEST_F(Files, APipeIsReadAndADeviceIsRefused) {
    for (const char* device : {"/dev/full", "/dev/zero"}) {
        ExpectNoImport(device, "can't be read: it is neither a file nor a pipe");
    }
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    ExpectNoImport(path, "can't be read: nobody writes to this pipe");
    // More than a pipe holds, so that the reader and the writer wait for each other.
    std::thread writer(
        [&] { folder.File("a.vcf", Card("FN:a\nNOTE:" + std::string(200'000, 'x'))); });
    EXPECT_EQ(Import(path).addresses, 1u);
    writer.join();
}

TEST_F(Files, WhatGoesOutComesBackIn) {
    tables.Import(Card("FN:a\nCATEGORIES:Work") + Card("N:b\nTEL;CELL:1", "2.1") +
                  Calendar(ToDo("SUMMARY:c")));
    const auto exported = [&](const char* name, std::size_t count, int category = kAllCategories) {
        EXPECT_EQ(Export(folder.Path(name), category).written, count) << name;
        return TempFolder::Content(folder.Path(name));
    };
    const std::string all = exported("a.VCF", 2) + exported("a.ics", 1);
    EXPECT_EQ(DescribeAll(all), DescribeAll(tables));
    EXPECT_EQ(exported("b.vcf", 1, 1), Card("FN:a\nCATEGORIES:Work"));
    EXPECT_THAT(exported("a.vcs", 1), HasSubstr("VERSION:1.0\r\nBEGIN:VTODO\r\n"));
}

TEST_F(Files, ADamagedRecordIsLeftOutOfAnExportAndTold) {
    tables.Import(Card("FN:a"));
    StoredRow damaged;
    damaged.fields = "\x01";
    ASSERT_EQ(tables.engine.Insert(TableKind::Address, damaged, {}), StoreStatus::Ok);
    tables.Import(Card("FN:b"));

    const ExportReport report = Export(path);

    EXPECT_EQ(report.written, 2u);
    EXPECT_THAT(report.leftOut, ElementsAre("the fields of record 2 are damaged"));
    EXPECT_EQ(TempFolder::Content(path), Card("FN:a") + Card("FN:b"));
}

TEST_F(Files, AReplacedFileKeepsItsPermissionsAndALinkItsTarget) {
    tables.Import(Card("FN:a"));
    fs::permissions(folder.File("a.vcf", "old"), fs::perms(0640));
    fs::create_symlink("a.vcf", folder.Path("link.vcf"));

    Export(folder.Path("link.vcf"));

    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
    EXPECT_EQ(TempFolder::Content(path), Card("FN:a"));
    EXPECT_TRUE(fs::is_symlink(folder.Path("link.vcf")));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 2);
}

TEST_F(Files, WhatCannotBeWrittenLeavesTheOldFile) {
    fs::create_directory(path);
    ExpectNoExport(folder.Path("a.txt"),
                   "the name of a card file ends in .vcf, of a calendar in .ics or .vcs");
    ExpectNoExport(path, "is no file that can be replaced");
    ExpectNoExport(folder.Path("none/a.vcf"), "can't be written: No such file or directory");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1);
}

}  // namespace
}  // namespace orvo
