// What goes in under one environment and comes out under another one is as it was.
// SPDX-License-Identifier: MIT
#include <functional>
#include <optional>

#include <exchange/calendar/ToDoWriter.h>
#include <exchange/cards/CardWriter.h>
#include <exchange/lines/Origin.h>
#include <platform/time/TimeZone.h>
#include <support/LocaleInForce.h>
#include <support/WithoutStamps.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

struct Environment {
    const char* tag;
    unsigned codePage = 0;
    const char* zone = "UTC";
};

struct InForce {
    explicit InForce(const Environment& environment)
        : locale(environment.tag, environment.codePage) {
        SetSystemTimeZone(environment.zone);
    }
    ~InForce() { SetSystemTimeZone(""); }

    LocaleInForce locale;
};

// A store that outlives the environments; each of them opens the tables anew.
class Store {
public:
    Store() = default;
    Store(std::string_view text, const Environment& environment) { Import(text, environment); }

    void Import(std::string_view text, const Environment& environment) {
        const InForce inForce(environment);
        CAddressTable addresses(m_engine);
        CToDoTable toDos(m_engine);
        ImportBytes(text, addresses, toDos);
    }

    std::string Cards(const Environment& environment,
                      const std::function<void(CAddressRecord&)>& edit = {}) {
        return Written<CAddressTable>(environment, edit, [](auto& table, const auto& record) {
            return CardWriter(table).Write(record);
        });
    }
    std::string ToDos(const Environment& environment,
                      const std::function<void(CToDoRecord&)>& edit = {}) {
        return Written<CToDoTable>(environment, edit, [](auto& table, const auto& record) {
            return ToDoWriter(table, Dialect::Calendar20).Write(record).toDo;
        });
    }

    void SetPhoneLabel(long id, const char* label) {
        EXPECT_EQ(CAddressTable(m_engine).SetPhoneLabel(id, label), 0);
    }

    std::string FirstAddress() {
        CAddressTable table(m_engine);
        return Describe(*All(table).at(0));
    }

private:
    template <class Table, class Edit, class Write>
    std::string Written(const Environment& environment, const Edit& edit, const Write& write) {
        const InForce inForce(environment);
        Table table(m_engine);
        std::string text;
        for (const auto& record : All(table)) {
            if (edit) edit(*record);
            text += write(table, *record);
        }
        return edit ? WithoutStamps(text) : text;
    }

    MemoryEngine m_engine;
};

constexpr std::string_view kRussianCard =  // windows-1251
    "N:\xC8\xE2\xE0\xED\xEE\xE2;\xC8\xE2\xE0\xED\nFN:\xC8\xE2\xE0\xED \xC8\xE2\xE0\xED\xEE\xE2\n"
    "ORG:\xCE\xE1\xF9\xE5\xF1\xF2\xE2\xEE \xD0\xEE\xEC\xE0\xF8\xEA\xE0\n"
    "NOTE:\xCF\xE5\xF0\xE5\xE7\xE2\xEE\xED\xE8\xF2\xFC \xE2 "
    "\xEF\xEE\xED\xE5\xE4\xE5\xEB\xFC\xED\xE8\xEA\n";
constexpr const char* kShortRussian = "N:\xCC\xE8\xF0;\xCC\xE8\xF0";

constexpr Environment kEnglish{"en-US"};
constexpr Environment kRussia{"ru-RU"};
constexpr Environment kJapan{"ja-JP", 932};
constexpr Environment kTokyo{"en-US", 0, "Asia/Tokyo"};
constexpr Environment kNewYork{"en-US", 1252, "America/New_York"};

struct Row {
    const char* why;
    std::string lines;
    Environment in, out;
};

TEST(Environment, ACardComesOutAsItWasUnderAnyOther) {
    const std::string russian(kRussianCard);
    const Row rows[] = {
        {"a set that its bytes tell", russian, kEnglish, kRussia},
        {"a set that only the language tells", kShortRussian, kRussia, kEnglish},
        {"and the other way", kShortRussian, kEnglish, kRussia},
        {"half-width kana", "N:\xB1\xB2", kJapan, {"de-DE"}},
        {"a byte of no meaning", "N:M\xFC\x81", kJapan, {"zh-TW"}},
        {"a parameter", "N;SORT-AS=\"\xCC\xE8\xF0\":x", kRussia, kJapan},
        {"a category cut short", "FN:a\nCATEGORIES:東京都千代田区役所", kEnglish, kJapan},
        {"the same back", "FN:a\nCATEGORIES:東京都千代田区役所", kJapan, kEnglish},
        {"a category of no code page", "FN:a\nCATEGORIES:友達", kEnglish, kNewYork},
        {"phones", "FN:a\nTEL;TYPE=CELL:1\nTEL;TYPE=PREF:2", kEnglish, kJapan},
    };
    for (const Row& row : rows) {
        const std::string card = Card(row.lines);
        EXPECT_EQ(Store(card, row.in).Cards(row.out), card) << row.why;
    }
}

TEST(Environment, AToDoComesOutAsItWasUnderAnyOther) {
    const Row rows[] = {
        {"times in UTC", "DUE:20260301T120000Z\nCOMPLETED:20260201T100000Z", kTokyo, kNewYork},
        {"a time that the other clock leaves out", "DUE:20260307T173000Z", kTokyo, kNewYork},
        {"the last dates", "DUE:20380119T020000Z\nCOMPLETED:19700101T010000Z", kTokyo, kNewYork},
        {"a start and a length", "DTSTART:20260301T120000Z\nDURATION:PT1H", kNewYork, kTokyo},
        {"a set that only the language tells", "DESCRIPTION:\xCC\xE8\xF0", kRussia, kEnglish},
        {"categories", "CATEGORIES:友達,家族", kEnglish, kNewYork},
    };
    for (const Row& row : rows) {
        const std::string toDo = ToDo("UID:1\nSUMMARY:a\n" + row.lines);
        EXPECT_EQ(Plain(Store(Calendar(toDo), row.in).ToDos(row.out)), toDo) << row.why;
    }
}

TEST(Environment, AnEditElsewhereWritesItsOwnLinesOnly) {
    const std::string lines =
        "UID:1\nSUMMARY:a\nDUE:20260301T120000Z\nCOMPLETED:20260201T100000Z\nCATEGORIES:友達,"
        "家族\n";
    Store store(Calendar(ToDo(lines)), kTokyo);
    EXPECT_EQ(Plain(store.ToDos(kNewYork,
                                [](CToDoRecord& record) { EXPECT_EQ(record.SetPriority(1), 0); })),
              ToDo(lines + "PRIORITY:1"));
}

TEST(Environment, ACategoryGoesOutInItsOwnLettersUnderAnyCodePage) {
    Store store(Card("FN:a\nCATEGORIES:友達"), kEnglish);
    EXPECT_THAT(
        store.Cards(kNewYork, [](CAddressRecord& record) { EXPECT_EQ(record.SetSource({}), 0); }),
        HasSubstr("CATEGORIES:友達\r\n"));
}

TEST(Environment, APhoneKeepsItsKindWhileLabelsAreRenamed) {
    const std::string card = Card("FN:a\nTEL;TYPE=CELL:1\nTEL;TYPE=HOME:2");
    Store store;
    store.SetPhoneLabel(0, "Handy");
    store.Import(card, kEnglish);

    EXPECT_EQ(store.FirstAddress(), "name: a | phone1 (Handy): 1 | phone2 (Home): 2");
    EXPECT_EQ(store.Cards(kEnglish), card);
    store.SetPhoneLabel(0, "Mobile");
    EXPECT_EQ(store.Cards(kEnglish), card);
    store.SetPhoneLabel(1, "Mobile");
    store.SetPhoneLabel(0, "Home");
    EXPECT_EQ(store.Cards(kEnglish), card);
}

TEST(Environment, TheWholeFileTellsTheSetOfEachCard) {
    EXPECT_EQ(Store(Card("N:\xCC\xE8\xF0") + Card(kRussianCard), kEnglish).FirstAddress(),
              "name: Мир");
}

TEST(Environment, ACardOfALegacySetIsWrittenAsUtf8OnceAnythingIsEdited) {
    const char* const rows[][3] = {
        {"3.0", "N:\xCC\xE8\xF0\nX-A;TYPE=\xCC:\xE8\nPHOTO;ENCODING=b:zOjw\nUID:1\n\xCC \xE8\n",
         "N:Мир\nX-A;TYPE=М:и\nPHOTO;ENCODING=b:zOjw\nUID:1\nTITLE:Boss\nМ и\n"},
        {"2.1", "N:\xCC\xE8\xF0\nX-A;QUOTED-PRINTABLE:=CC\nX-B;CHARSET=windows-1251:\xCC\n",
         "N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=D0=9C=D0=B8=D1=80\n"
         "X-A;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=D0=9C\nX-B;CHARSET=windows-1251:\xCC\n"
         "TITLE:Boss\n"},
        {"2.1", "N:\xCC\xE8\xF0\nAGENT:\nBEGIN:VCARD\nN:\xCC\n \xE8\nEND:VCARD\n",
         "N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=D0=9C=D0=B8=D1=80\nTITLE:Boss\nAGENT:\n"
         "BEGIN:VCARD\nN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=D0=9C=D0=B8\nEND:VCARD\n"},
    };
    const auto edit = [](CAddressRecord& record) {
        EXPECT_EQ(record.SetUtf8(AddressField::Title, "Boss"), 0);
    };
    for (const auto& [version, lines, want] : rows) {
        Store store(Card(lines, version), kRussia);
        EXPECT_EQ(store.Cards(kEnglish, edit), Card(want, version));
    }
}

TEST(Origin, ComesBackFromItsText) {
    const CivilTime due{2026, 3, 1, 21, 0, 0};
    const CivilTime completed{1970, 1, 1, 0, 0, 1};
    const Origin full{"Shift_JIS", 3, 1, {0, 1, 7, 7, 255}, 5, due, completed, true};

    EXPECT_EQ(ParseOrigin(FormatOrigin(full)), full);
    EXPECT_EQ(ParseOrigin(FormatOrigin({})), Origin());
    EXPECT_EQ(ParseOrigin(""), std::nullopt);
    EXPECT_EQ(ParseOrigin("later=1 category=x  display= labels=9,,b charset"),
              (Origin{{}, 0, {}, {9, 1, 2, 3, 4}, 1, {}, {}}));
}

}  // namespace
}  // namespace orvo
