// What goes in under one environment and comes out under another one is as it was.
// SPDX-License-Identifier: MIT
#include <functional>
#include <optional>

#include <gmock/gmock.h>

#include <exchange/calendar/ToDoWriter.h>
#include <exchange/cards/CardWriter.h>
#include <exchange/lines/Origin.h>
#include <platform/time/TimeZone.h>
#include <support/LocaleInForce.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kTokyo = "Asia/Tokyo";
constexpr const char* kNewYork = "America/New_York";

struct Environment {
    const char* tag;
    unsigned codePage = 0;
    const char* zone = "UTC";
};

class InForce {
public:
    explicit InForce(const Environment& environment)
        : m_locale(environment.tag, environment.codePage) {
        SetSystemTimeZone(environment.zone);
    }
    ~InForce() { SetSystemTimeZone(""); }
    InForce(const InForce&) = delete;
    InForce& operator=(const InForce&) = delete;

private:
    LocaleInForce m_locale;
};

// A store that outlives the environments; each of them opens the tables anew.
class Store {
public:
    void Import(std::string_view text, const Environment& environment) {
        const InForce inForce(environment);
        CAddressTable addresses(m_engine);
        CToDoTable toDos(m_engine);
        ImportBytes(text, addresses, toDos);
    }

    using AddressEdit = std::function<void(CAddressRecord&)>;
    std::string Cards(const Environment& environment, const AddressEdit& edit = {}) {
        const InForce inForce(environment);
        CAddressTable table(m_engine);
        CardWriter writer(table);
        return Written<CAddressRecord, CAddressIterator>(
            table, edit, [&](const CAddressRecord& record) { return writer.Write(record); });
    }

    using ToDoEdit = std::function<void(CToDoRecord&)>;
    std::string ToDos(const Environment& environment, const ToDoEdit& edit = {}) {
        const InForce inForce(environment);
        CToDoTable table(m_engine);
        ToDoWriter writer(table, Dialect::Calendar20);
        return Written<CToDoRecord, CToDoIterator>(
            table, edit, [&](const CToDoRecord& record) { return writer.Write(record).toDo; });
    }

    void SetPhoneLabel(long id, const char* label) {
        CAddressTable table(m_engine);
        EXPECT_EQ(table.SetPhoneLabel(id, label), 0);
    }

    std::vector<std::string> FirstAddress() {
        CAddressTable table(m_engine);
        CAddressRecord record(table);
        EXPECT_EQ(CAddressIterator(table).FindFirst(record), 0);
        return Describe(record);
    }

private:
    template <class Record, class Iterator, class Table, class Write>
    static std::string Written(Table& table, const std::function<void(Record&)>& edit,
                               const Write& write) {
        std::string text;
        Record record(table);
        Iterator iterator(table);
        for (long s = iterator.FindFirst(record); s == 0; s = iterator.FindNext(record)) {
            if (edit) edit(record);
            text += write(record);
        }
        return text;
    }

    MemoryEngine m_engine;
};

constexpr std::string_view kRussianCard =  // windows-1251
    "N:\xC8\xE2\xE0\xED\xEE\xE2;\xC8\xE2\xE0\xED\nFN:\xC8\xE2\xE0\xED \xC8\xE2\xE0\xED\xEE\xE2\n"
    "ORG:\xCE\xE1\xF9\xE5\xF1\xF2\xE2\xEE \xD0\xEE\xEC\xE0\xF8\xEA\xE0\n"
    "NOTE:\xCF\xE5\xF0\xE5\xE7\xE2\xEE\xED\xE8\xF2\xFC \xE2 "
    "\xEF\xEE\xED\xE5\xE4\xE5\xEB\xFC\xED\xE8\xEA\n";
constexpr std::string_view kShortRussian = "N:\xCC\xE8\xF0;\xCC\xE8\xF0\n";

TEST(Environment, ACardComesOutAsItWasUnderAnyOther) {
    struct Row {
        const char* why;
        std::string lines;
        Environment in;
        Environment out;
    };
    const Row rows[] = {
        {"a set that its bytes tell", std::string(kRussianCard), {"en-US"}, {"ru-RU"}},
        {"a set that only the language tells", std::string(kShortRussian), {"ru-RU"}, {"en-US"}},
        {"and the other way", std::string(kShortRussian), {"en-US"}, {"ru-RU"}},
        {"half-width kana", "N:\xB1\xB2\n", {"ja-JP", 932}, {"de-DE"}},
        {"a byte of no meaning", "N:M\xFC\x81\n", {"ja-JP", 932}, {"zh-TW"}},
        {"a parameter", "N;SORT-AS=\"\xCC\xE8\xF0\":x\n", {"ru-RU"}, {"ja-JP", 932}},
        {"a category cut short",
         "FN:a\nCATEGORIES:東京都千代田区役所\n",
         {"en-US"},
         {"ja-JP", 932}},
        {"the same back", "FN:a\nCATEGORIES:東京都千代田区役所\n", {"ja-JP", 932}, {"en-US"}},
        {"a category of no code page", "FN:a\nCATEGORIES:友達\n", {"en-US"}, {"en-US", 1252}},
        {"phones", "FN:a\nTEL;TYPE=CELL:1\nTEL;TYPE=PREF:2\n", {"en-US"}, {"ja-JP", 932}},
    };
    for (const Row& row : rows) {
        const std::string card = Card("3.0", row.lines);
        Store store;
        store.Import(card, row.in);
        EXPECT_EQ(store.Cards(row.out), card) << row.why;
    }
}

TEST(Environment, AToDoComesOutAsItWasUnderAnyOther) {
    struct Row {
        const char* why;
        std::string lines;
        Environment in;
        Environment out;
    };
    const Row rows[] = {
        {"times in UTC",
         "SUMMARY:a\nDUE:20260301T120000Z\nCOMPLETED:20260201T100000Z\n",
         {"en-US", 0, kTokyo},
         {"en-US", 0, kNewYork}},
        {"a time that the other clock leaves out",
         "SUMMARY:a\nDUE:20260307T173000Z\n",
         {"en-US", 0, kTokyo},
         {"en-US", 0, kNewYork}},
        {"the last dates",
         "SUMMARY:a\nDUE:20380119T020000Z\nCOMPLETED:19700101T010000Z\n",
         {"en-US", 0, kTokyo},
         {"en-US", 0, kNewYork}},
        {"a start and a length",
         "SUMMARY:a\nDTSTART:20260301T120000Z\nDURATION:PT1H\n",
         {"en-US", 0, kNewYork},
         {"en-US", 0, kTokyo}},
        {"a set that only the language tells", "SUMMARY:\xCC\xE8\xF0\n", {"ru-RU"}, {"en-US"}},
        {"categories", "SUMMARY:a\nCATEGORIES:友達,家族\n", {"en-US"}, {"en-US", 1252}},
    };
    for (const Row& row : rows) {
        const std::string calendar =
            Calendar("2.0", "BEGIN:VTODO\nUID:1\n" + row.lines + "END:VTODO\n");
        Store store;
        store.Import(calendar, row.in);
        EXPECT_THAT(calendar, HasSubstr(store.ToDos(row.out))) << row.why;
    }
}

TEST(Environment, AnEditElsewhereWritesItsOwnLinesOnly) {
    Store store;
    store.Import(Calendar("2.0",
                          "BEGIN:VTODO\nUID:1\nSUMMARY:a\nDUE:20260301T120000Z\nCOMPLETED:"
                          "20260201T100000Z\nCATEGORIES:友達,家族\nEND:VTODO\n"),
                 {"en-US", 0, kTokyo});

    const std::string text = store.ToDos({"en-US", 1252, kNewYork}, [](CToDoRecord& record) {
        EXPECT_EQ(record.SetPriority(1), 0);
    });

    EXPECT_EQ(text,
              "BEGIN:VTODO\r\nUID:1\r\nSUMMARY:a\r\nDUE:20260301T120000Z\r\nCOMPLETED:"
              "20260201T100000Z\r\nCATEGORIES:友達,家族\r\nPRIORITY:1\r\nEND:VTODO\r\n");
}

TEST(Environment, ACategoryGoesOutInItsOwnLettersUnderAnyCodePage) {
    Store store;
    store.Import(Card("3.0", "FN:a\nCATEGORIES:友達\n"), {"en-US"});

    const std::string text = store.Cards(
        {"en-US", 1252}, [](CAddressRecord& record) { EXPECT_EQ(record.SetSource({}), 0); });

    EXPECT_THAT(text, HasSubstr("CATEGORIES:友達\r\n"));
}

TEST(Environment, APhoneKeepsItsKindWhileLabelsAreRenamed) {
    const Environment here{"en-US"};
    const std::string card = Card("3.0", "FN:a\nTEL;TYPE=CELL:1\nTEL;TYPE=HOME:2\n");
    Store store;
    store.SetPhoneLabel(0, "Handy");
    store.Import(card, here);

    EXPECT_THAT(store.FirstAddress(),
                ElementsAre("name: a", "phone1 (Handy): 1", "phone2 (Home): 2"));
    EXPECT_EQ(store.Cards(here), card);
    store.SetPhoneLabel(0, "Mobile");
    EXPECT_EQ(store.Cards(here), card);
    store.SetPhoneLabel(1, "Mobile");
    store.SetPhoneLabel(0, "Home");
    EXPECT_EQ(store.Cards(here), card);
}

TEST(Environment, TheWholeFileTellsTheSetOfEachCard) {
    Store store;
    store.Import(Card("3.0", "N:\xCC\xE8\xF0\n") + Card("3.0", kRussianCard), {"en-US"});

    EXPECT_THAT(store.FirstAddress(), ElementsAre("name: Мир"));
}

TEST(Environment, ACardOfALegacySetIsWrittenAsUtf8OnceAnythingIsEdited) {
    struct Row {
        const char* version;
        std::string lines;
        std::string want;
    };
    const Row rows[] = {
        {"3.0", "N:\xCC\xE8\xF0\nX-A;TYPE=\xCC:\xE8\nPHOTO;ENCODING=b:zOjw\nUID:1\n\xCC \xE8\n",
         "N:Мир\r\nX-A;TYPE=М:и\r\nPHOTO;ENCODING=b:zOjw\r\nUID:1\r\nTITLE:Boss\r\nМ и\r\n"},
        {"2.1", "N:\xCC\xE8\xF0\nX-A;QUOTED-PRINTABLE:=CC\nX-B;CHARSET=windows-1251:\xCC\n",
         "N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=D0=9C=D0=B8=D1=80\r\n"
         "X-A;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=D0=9C\r\nX-B;CHARSET=windows-1251:\xCC\r\n"
         "TITLE:Boss\r\n"},
        {"2.1", "N:\xCC\xE8\xF0\nAGENT:\nBEGIN:VCARD\nN:\xCC\n \xE8\nEND:VCARD\n",
         "N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=D0=9C=D0=B8=D1=80\r\nTITLE:Boss\r\nAGENT:\r\n"
         "BEGIN:VCARD\r\nN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=D0=9C=D0=B8\r\nEND:VCARD\r\n"},
    };
    for (const Row& row : rows) {
        Store store;
        store.Import(Card(row.version, row.lines), {"ru-RU"});
        const auto edit = [](CAddressRecord& record) {
            EXPECT_EQ(record.SetUtf8(AddressField::Title, "Boss"), 0);
        };
        const std::string frame = Card(row.version, "");
        const std::size_t end = frame.find("END");
        EXPECT_EQ(store.Cards({"en-US"}, edit),
                  frame.substr(0, end) + row.want + frame.substr(end));
    }
}

TEST(Origin, ComesBackFromItsText) {
    Origin full{"Shift_JIS",
                3,
                1,
                {0, 1, 7, 7, 255},
                5,
                CivilTime{2026, 3, 1, 21, 0, 0},
                CivilTime{1970, 1, 1, 0, 0, 1}};

    EXPECT_EQ(ParseOrigin(FormatOrigin(full)), full);
    EXPECT_EQ(ParseOrigin(FormatOrigin({})), Origin());
    EXPECT_EQ(ParseOrigin(""), std::nullopt);
    EXPECT_EQ(ParseOrigin("later=1 category=x  display= labels=9,,b charset"),
              (Origin{{}, 0, {}, {9, 1, 2, 3, 4}, 1, {}, {}}));
}

}  // namespace
}  // namespace orvo
