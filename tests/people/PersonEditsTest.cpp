// Edits of what only a card holds, in each version of the format.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <functional>
#include <random>
#include <set>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <exchange/cards/CardWriter.h>
#include <exchange/files/ImportFile.h>
#include <exchange/lines/ValueDecoder.h>
#include <libraries/quire/MemoryEngine.h>
#include <people/PersonEdits.h>
#include <people/PersonReader.h>
#include <support/WithoutStamps.h>

#include "people/RealCards.h"

namespace orvo {
namespace {

using testing::ElementsAreArray;
using Strings = std::vector<std::string>;

Strings LinesOf(const std::string& text) {
    Strings lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
        lines.push_back(text.substr(start, end - start));
        start = end;
    }
    return lines;
}

// One person who was imported from a card.
struct Imported {
    explicit Imported(const std::string& card) {
        ImportBytes(card, addresses, toDos);
        EXPECT_EQ(CAddressIterator(addresses).FindFirst(record), 0);
        EXPECT_EQ(ReadKeptPerson(record, person), 0);
    }

    std::string Export() { return WithoutStamps(CardWriter(addresses).Write(record)); }

    // The detail of that text.
    DetailEdit Edit(std::string_view text) const {
        for (const Detail& detail : person.details) {
            if (detail.text == text) return {false, false, detail};
        }
        ADD_FAILURE() << "no detail " << text;
        return {};
    }

    MemoryEngine engine;
    CAddressTable addresses{engine};
    CToDoTable toDos{engine};
    CAddressRecord record{addresses};
    Person person;
};

DetailEdit New(DetailKind kind, std::string text, std::vector<DetailWord> words = {},
               std::string label = {}) {
    DetailEdit edit{true, false, {}};
    edit.detail.kind = kind;
    edit.detail.text = std::move(text);
    edit.detail.words = std::move(words);
    edit.detail.label = std::move(label);
    return edit;
}

DetailEdit NewDate(DetailKind kind, PersonDate date, std::string label = {}) {
    DetailEdit edit = New(kind, {}, {}, std::move(label));
    edit.detail.date = date;
    return edit;
}

std::string CardOf(std::string_view version, std::string_view lines) {
    std::string card = fmt::format("BEGIN:VCARD\nVERSION:{}\nN:Lee;Ann;;;\n", version);
    // All places of the record are taken.
    for (int i = 1; i <= kPhoneSlots; ++i) card += fmt::format("TEL;X-A=\"b:c\":{}\n", i);
    return fmt::format("{}ADR:;;S;;;;\n{}X-OTHER;ODD=1:as it came\nEND:VCARD\n", card, lines);
}

struct Row {
    const char* version;
    const char* lines;  // that the edit is about
    std::function<void(const Imported&, PersonEdits&)> edit;
    const char* want;  // in the place of those lines
    const char* added = "";
};

void ExpectRow(const Row& row) {
    SCOPED_TRACE(fmt::format("{} {} -> {}{}", row.version, row.lines, row.want, row.added));
    Imported imported(CardOf(row.version, row.lines));
    PersonEdits edits;
    row.edit(imported, edits);
    ASSERT_EQ(EditPerson(imported.record, imported.addresses, edits), 0);
    std::string want = CardOf(row.version, row.want);
    want.insert(want.rfind("END:VCARD"), row.added);
    EXPECT_THAT(LinesOf(imported.Export()), ElementsAreArray(LinesOf(want)));
}

TEST(PersonEdits, OnlyTheEditedLinesChangeAndEachVersionGetsItsForm) {
    using Kind = DetailKind;
    using Word = DetailWord;
    const auto change = [](const char* from, const char* to) {
        return [=](const Imported& imported, PersonEdits& edits) {
            edits.details.push_back(imported.Edit(from));
            edits.details.back().detail.text = to;
        };
    };
    const auto remove = [](const char* text) {
        return [=](const Imported& imported, PersonEdits& edits) {
            edits.details.push_back(imported.Edit(text));
            edits.details.back().isRemoved = true;
        };
    };
    const auto words = [](const char* text, std::vector<Word> now, const char* label) {
        return [=](const Imported& imported, PersonEdits& edits) {
            edits.details.push_back(imported.Edit(text));
            edits.details.back().detail.words = now;
            edits.details.back().detail.label = label;
        };
    };
    const auto add = [](const DetailEdit& edit) {
        return [=](const Imported&, PersonEdits& edits) { edits.details.push_back(edit); };
    };
    const auto date = [](const char* text, PersonDate now) {
        return [=](const Imported& imported, PersonEdits& edits) {
            edits.details.push_back(imported.Edit(text));
            edits.details.back().detail.date = now;
        };
    };
    const auto photo = [](const char* bytes) {
        return [=](const Imported&, PersonEdits& edits) {
            edits.photo = PersonPhoto{"image/jpeg", bytes, {}};
        };
    };
    const auto text = [](PersonText which, const char* now) {
        return [=](const Imported&, PersonEdits& edits) { edits.texts.emplace_back(which, now); };
    };
    DetailEdit address = New(Kind::Address, {}, {Word::Home});
    address.detail.parts = {"", "", "A; B", "C", "", "1", ""};
    DetailEdit skype = New(Kind::Messenger, "ann");
    skype.detail.service = "Skype";
    DetailEdit member = New(Kind::Member, {});
    member.detail.uri = "urn:uuid:1";
    const PersonDate leap{2000, 2, 29};
    const PersonDate yearless{0, 4, 12};
    const std::vector<Row> rows{
        {"3.0", "EMAIL;TYPE=WORK,pref:a@b\n", change("a@b", "c@d"), "EMAIL;TYPE=WORK,pref:c@d\n"},
        {"3.0", "EMAIL;TYPE=WORK,INTERNET:a@b\n", words("a@b", {Word::Home}, ""),
         "EMAIL;TYPE=INTERNET;TYPE=HOME:a@b\n"},
        {"2.1", "EMAIL;INTERNET:a@b\n", words("a@b", {Word::Home}, ""),
         "EMAIL;INTERNET;HOME:a@b\n"},
        {"3.0", "a.EMAIL:a@b\na.X-ABLabel:Club\n", words("a@b", {Word::Work}, ""),
         "a.EMAIL;TYPE=WORK:a@b\n"},
        {"4.0", "EMAIL:a@b\n", words("a@b", {}, "Club"), "item1.EMAIL:a@b\n",
         "item1.X-ABLabel:Club\n"},
        {"3.0", "a.EMAIL:a@b\na.X-ABLabel:Club\n", remove("a@b"), ""},
        {"4.0", "TEL;VALUE=uri;PREF=9:tel:9\n", change("9", "8"), "TEL;PREF=9:8\n"},
        {"3.0", "", add(New(Kind::Email, "a@b", {Word::Work})), "", "EMAIL;TYPE=WORK:a@b\n"},
        {"3.0", "", add(New(Kind::Page, "http://x/a,b;c")), "", "URL:http://x/a,b;c\n"},
        {"3.0", "", add(address), "", "ADR;TYPE=HOME:;;A\\; B;C;;1;\n"},
        {"2.1", "", add(address), "", "ADR;HOME:;;A\\; B;C;;1;\n"},
        {"3.0", "", add(skype), "", "IMPP;X-SERVICE-TYPE=\"Skype\":skype:ann\n"},
        {"2.1", "X-ICQ:7\n", change("7", "8"), "X-ICQ:8\n"},
        {"4.0", "IMPP:xmpp:a@b\n", change("a@b", "c@d"), "IMPP:xmpp:c@d\n"},
        {"2.1", "", add(NewDate(Kind::Birthday, leap)), "", "BDAY:2000-02-29\n"},
        {"4.0", "", add(NewDate(Kind::Birthday, leap)), "", "BDAY:20000229\n"},
        {"3.0", "BDAY;VALUE=date:2000-02-29\n", date("2000-02-29", yearless),
         "BDAY;X-APPLE-OMIT-YEAR=1604:1604-04-12\n"},
        {"4.0", "BDAY:20000229\n", date("2000-02-29", yearless), "BDAY:--0412\n"},
        {"3.0", "BDAY;X-APPLE-OMIT-YEAR=1604:1604-04-12\n", date("--04-12", leap),
         "BDAY:2000-02-29\n"},
        {"3.0", "", add(NewDate(Kind::Anniversary, leap)), "", "X-ANNIVERSARY:2000-02-29\n"},
        {"3.0", "", add(NewDate(Kind::Date, leap, "Met")), "",
         "item1.X-ABDATE:2000-02-29\nitem1.X-ABLabel:Met\n"},
        {"3.0", "", add(New(Kind::Relation, "Bo", {Word::Spouse})), "",
         "item1.X-ABRELATEDNAMES:Bo\nitem1.X-ABLabel:_$!<Spouse>!$_\n"},
        {"4.0", "", add(New(Kind::Relation, "Bo", {Word::Spouse})), "",
         "RELATED;VALUE=text;TYPE=SPOUSE:Bo\n"},
        {"2.1", "X-SPOUSE:Bo\n", words("Bo", {Word::Friend}, ""), "",
         "item1.X-ABRELATEDNAMES:Bo\nitem1.X-ABLabel:_$!<Friend>!$_\n"},
        {"2.1", "X-ANDROID-CUSTOM:vnd.android.cursor.item/relation;Bo;8;;\n", change("Bo", "Cy"),
         "X-ANDROID-CUSTOM:vnd.android.cursor.item/relation;Cy;8;;\n"},
        {"4.0", "", add(member), "", "MEMBER:urn:uuid:1\n"},
        {"2.1", "", photo("hello"), "", "PHOTO;ENCODING=BASE64;JPEG:\r\n aGVsbG8=\r\n\n"},
        {"3.0", "PHOTO;VALUE=uri:http://x\n", photo("hello"),
         "PHOTO;ENCODING=b;TYPE=JPEG:aGVsbG8=\n"},
        {"4.0", "", photo("hello"), "", "PHOTO:data:image/jpeg;base64,aGVsbG8=\n"},
        {"3.0", "PHOTO;ENCODING=b:aGVs\n bG8=\n", photo(""), ""},
        {"3.0", "NICKNAME:A,B\nNICKNAME:C\n", text(PersonText::Nickname, "A, D"), "NICKNAME:A,D\n"},
        {"3.0", "ORG:Acme;Sales;East\n", text(PersonText::Department, "Sales, West"),
         "ORG:Acme;Sales;West\n"},
        {"3.0", "ORG:Acme\n", text(PersonText::Department, "Toys, Games"),
         "ORG:Acme;Toys\\, Games\n"},
        {"3.0", "ROLE:Clerk\n", text(PersonText::Role, ""), ""},
        {"3.0", "FN:Ann Lee\n", text(PersonText::Nickname, "A"), "FN:Ann Lee\n", "NICKNAME:A\n"},
    };
    for (const Row& row : rows) ExpectRow(row);
}

TEST(PersonEdits, PartsOfTheNameAreKeptTogetherWithTheFullName) {
    Imported imported("BEGIN:VCARD\nVERSION:3.0\nFN:Ann Lee\nN:Lee;Ann;;;\nEND:VCARD\n");
    PersonEdits edits;
    edits.texts = {{PersonText::Prefix, "Dr."}, {PersonText::MiddleName, "May"}};
    ASSERT_EQ(EditPerson(imported.record, imported.addresses, edits), 0);
    EXPECT_EQ(imported.Export(),
              "BEGIN:VCARD\nVERSION:3.0\nFN:Dr. Ann May Lee\nN:Lee;Ann;May;Dr.;\nEND:VCARD\n");
}

// Whatever was edited, and in whatever order: a card that is exported and imported again gives the
// same record, and nothing but what was removed is missing.
TEST(PersonEdits, NothingIsLostBesideEditsOfTheRecord) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        std::string card = "BEGIN:VCARD\nVERSION:3.0\nN:Lee;Ann;;;\n";
        std::set<std::string> expected;
        for (unsigned i = random() % 8; i > 0; --i) {
            card += fmt::format("TEL:{}\n", i);
            expected.insert(std::to_string(i));
        }
        if (random() % 2 != 0) card += "ADR:;;Street;;;;\n";
        Imported imported(card + "END:VCARD\n");
        for (long slot = 1; slot <= kPhoneSlots; ++slot) {
            const std::string text(imported.record.Utf8(PhoneField(slot)));
            const std::string now = random() % 3 != 0   ? text
                                    : random() % 2 != 0 ? ""
                                                        : fmt::format("edited {}", slot);
            expected.erase(text);
            if (!now.empty()) expected.insert(now);
            ASSERT_EQ(imported.record.SetUtf8(PhoneField(slot), now), 0);
        }
        if (random() % 3 == 0) {
            const char* const street = random() % 2 != 0 ? "" : "Other";
            ASSERT_EQ(imported.record.SetUtf8(AddressField::Address, street), 0);
        }
        PersonEdits edits;
        for (unsigned i = random() % 3; i > 0; --i) {
            edits.details.push_back(
                New(DetailKind::Phone, fmt::format("new {}", i), {DetailWord::Home}));
            expected.insert(fmt::format("new {}", i));
        }
        const bool addsAddress = random() % 2 != 0;
        if (addsAddress) {
            edits.details.push_back(New(DetailKind::Address, {}));
            edits.details.back().detail.parts[2] = "New";
        }
        ASSERT_EQ(EditPerson(imported.record, imported.addresses, edits), 0);
        const std::string text = imported.Export();
        const Person person = ReadPerson(text);
        std::set<std::string> seen;
        std::set<std::string> streets;
        for (const Detail& detail : person.details) {
            (detail.kind == DetailKind::Address ? streets : seen).insert(detail.text);
        }
        EXPECT_EQ(seen, expected) << text;
        EXPECT_EQ(streets.count("New"), addsAddress ? 1u : 0u) << text;
        const std::string street(imported.record.Utf8(AddressField::Address));
        EXPECT_TRUE(street.empty() || streets.count(street) == 1) << text;
        Imported again(text);
        EXPECT_EQ(again.Export(), text);
    }
}

TEST(PersonEditsCorpus, AnyDetailCanBeTakenOutOfRealCards) {
    if (!FolderOfRealCards()) GTEST_SKIP() << "ORVO_CORPORA doesn't name a folder of files";
    int removed = 0;
    ForEachRealCard([&](const Entry& entry, const std::filesystem::path& file) {
        // Of a legacy set all lines become UTF-8 at the first edit.
        if (std::any_of(entry.lines.begin(), entry.lines.end(), ValueDecoder::IsLegacy)) return;
        for (const Detail& detail : ReadPerson(entry.source).details) {
            if (detail.isOfRecord || detail.kind > DetailKind::Relation) continue;
            Imported imported{std::string(entry.source)};
            PersonEdits edits;
            edits.details = {{false, true, detail}};
            ASSERT_EQ(EditPerson(imported.record, imported.addresses, edits), 0);
            std::string want;
            bool hasStamp = false;
            for (std::size_t i = 0; i < entry.lines.size(); ++i) {
                const ContentLine line = entry.lines[i];
                const bool isLabel = EqualsIgnoringCase(line.name, "X-ABLabel") &&
                                     line.group == entry.lines[detail.line].group;
                // The first one is of the edit then.
                const bool isStamp = !hasStamp && EqualsIgnoringCase(line.name, "REV");
                hasStamp = hasStamp || isStamp;
                if (i != detail.line && !isLabel && !isStamp) want += line.source;
            }
            EXPECT_EQ(imported.Export(), want) << file;
            ++removed;
        }
    });
    EXPECT_GT(removed, 100);
}

TEST(PersonEdits, ARecordWithoutACardGetsOneAndAUid) {
    MemoryEngine engine;
    CAddressTable addresses(engine);
    CAddressRecord record(addresses);
    ASSERT_EQ(record.SetUtf8(AddressField::Name, "Lee"), 0);
    ASSERT_EQ(record.SetUtf8(PhoneField(3), "3"), 0);
    PersonEdits edits;
    edits.details = {NewDate(DetailKind::Birthday, {0, 2, 29}), New(DetailKind::Email, "a@b")};
    edits.becomesGroup = true;
    ASSERT_EQ(EditPerson(record, addresses, edits), 0);
    std::string uid;
    bool isNew = false;
    ASSERT_EQ(TakeUid(record, addresses, uid, isNew), 0);
    EXPECT_TRUE(isNew);
    std::string same;
    ASSERT_EQ(TakeUid(record, addresses, same, isNew), 0);
    EXPECT_EQ(same, uid);
    EXPECT_FALSE(isNew);
    EXPECT_EQ(record.Utf8(PhoneField(1)), "a@b");
    EXPECT_EQ(record.Utf8(PhoneField(3)), "3");
    std::string loss;
    const Person person = ReadPerson(record, addresses, loss);
    EXPECT_TRUE(person.isGroup);
    EXPECT_EQ(person.uid, uid);
    EXPECT_EQ(person.details.size(), 3u);
}

}  // namespace
}  // namespace orvo
