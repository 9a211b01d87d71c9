// Address records become cards: imported ones as they came or were edited, and new ones.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <functional>
#include <random>

#include <fmt/format.h>

#include <exchange/lines/ContentLine.h>
#include <support/WithoutStamps.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

using testing::IsEmpty;
using testing::SizeIs;
using Edit = std::function<void(CAddressRecord&)>;
using enum AddressField;

// The lines of a card that the other one lacks.
Strings Less(std::string_view text, std::string_view other) {
    const auto linesOf = [](std::string_view card) {
        Strings lines;
        ContentLineReader reader(card);
        for (ContentLine line; reader.Next(line);) lines.emplace_back(line.source);
        return lines;
    };
    Strings lines = linesOf(text);
    const Strings others = linesOf(other);
    std::erase_if(lines, [&](const std::string& line) {
        return std::find(others.begin(), others.end(), line) != others.end();
    });
    return lines;
}

struct EditedCard {
    Strings gone, added;
};

// What an edit does to the lines of the card, which must read as the edited record.
EditedCard EditCard(const std::string& card, const Edit& edit, bool readsTheSame = true) {
    Tables tables(card);
    const auto record = tables.Address();
    edit(*record);
    const std::string exported = tables.Export(*record);
    EXPECT_EQ(exported.find("\nREV:") == exported.npos, card.starts_with(exported));
    const std::string written = WithoutStamps(exported);
    if (readsTheSame) {
        EXPECT_THAT(DescribeAll(written), ElementsAre(Describe(*record)));
    }
    return {Less(card, written), Less(written, card)};
}

Edit Set(AddressField field, std::string_view text) {
    return [=](CAddressRecord& record) { EXPECT_EQ(record.SetUtf8(field, text), 0); };
}
Edit Label(long slot, long id) {
    return [=](CAddressRecord& record) { record.SetPhoneLabelID(slot, id); };
}
Edit Note(const char* text) {
    return [=](CAddressRecord& record) { record.SetNoteUtf8(text); };
}
Edit Both(const Edit& one, const Edit& other) {
    return [=](CAddressRecord& record) {
        one(record);
        other(record);
    };
}

// A card with a line for each field, in the ways of its version.
std::string FullCard(std::string_view version) {
    const bool isOld = version == "2.1";
    std::string lines = "UID:1\nN:Lee;Ann;Mary;Dr.;\nFN:Ann Lee\nORG:Acme;Sales\nTITLE:Boss\n";
    lines +=
        isOld ? "ADR;WORK;QUOTED-PRINTABLE;CHARSET=ISO-8859-1:Box;;Stra=DFe;City;State;Zip;Land\n"
              : "item1.ADR;TYPE=work:Box;;Straße;City;State;Zip;Land\n";
    lines += isOld ? "TEL;CELL;PREF:1\nTEL;WORK;X-ID=7:2\n"
             : version == "4.0"
                 ? "TEL;PREF=1;TYPE=cell;VALUE=uri:tel:1\nTEL;TYPE=\"work,voice\";X-ID=7:2\n"
                 : "TEL;TYPE=cell,pref:1\nTEL;TYPE=WORK,voice;X-ID=7:2\n";
    lines +=
        "EMAIL:a@b\nURL:http://c\nTEL:5\nTEL:6\nNOTE:note\nCATEGORIES:Work,Home\nCLASS:PRIVATE\n"
        "X-PHONETIC-LAST-NAME:Lii\nX-PHONETIC-FIRST-NAME:Enn\nX-PHONETIC-ORG:Akme\n"
        "X-ORVO-CUSTOM1:c1\nX-ORVO-CUSTOM2:c2\nX-ORVO-CUSTOM3:c3\nX-ORVO-CUSTOM4:c4\n"
        "BDAY:2000-01-01\n";
    lines += isOld ? "PHOTO;BASE64:\n  AAAA\n\n" : "PHOTO;ENCODING=b:AAAA\n";
    return Card(lines, version);
}

class CardEditing : public testing::TestWithParam<const char*> {
protected:
    static EditedCard Try(const Edit& edit, bool readsTheSame = true) {
        return EditCard(FullCard(GetParam()), edit, readsTheSame);
    }
};
INSTANTIATE_TEST_SUITE_P(Versions, CardEditing, testing::Values("2.1", "3.0", "4.0"));

TEST_P(CardEditing, AnUneditedCardIsWrittenAsItCame) {
    for (const std::string& card : {FullCard(GetParam()), FullCard(GetParam()) + "\r\n"}) {
        EXPECT_THAT(EditCard(card, [](CAddressRecord&) {}).added, IsEmpty());
    }
}

TEST_P(CardEditing, EditingOneTextChangesItsLineAloneAndEmptyingItTakesItsLineOrPartAway) {
    for (int i = 1; i <= static_cast<int>(Custom4); ++i) {
        const auto field = static_cast<AddressField>(i);
        const bool isName = field == Name || field == First;
        const std::size_t count = isName ? 2 : 1;  // FN follows the name
        for (const std::string_view text : {"New", "Néw; a,b \\n c"}) {
            SCOPED_TRACE(testing::Message() << "field " << i << ": " << text);
            const EditedCard edited = Try(Set(field, text));
            EXPECT_THAT(edited.gone, SizeIs(count));
            EXPECT_THAT(edited.added, SizeIs(count));
        }
        // The numbers behind one that is emptied move up.
        if (field >= Phone1 && field <= Phone5) continue;
        SCOPED_TRACE(testing::Message() << "no field " << i);
        EXPECT_FALSE(Try(Set(field, "")).gone.empty());
    }
    EXPECT_THAT(Try(Set(Phone5, ""), false).gone, SizeIs(1));
}

TEST_P(CardEditing, MarksNoteCategoryAndLabelsChangeTheirLinesAlone) {
    struct {
        const char* why;
        Edit edit;
        std::size_t lines = 1;
    } const rows[] = {
        {"note", Note("a\nb")},
        {"private", [](CAddressRecord& r) { r.SetPrivate(0); }},
        {"label", Label(1, 1)},
        {"another kind of label", Label(2, 4)},
        {"display", [](CAddressRecord& r) { r.SetDisplayPhone(3); }, 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const EditedCard edited = Try(row.edit);
        EXPECT_THAT(edited.gone, SizeIs(row.lines));
        EXPECT_THAT(edited.added, SizeIs(row.lines));
    }
    const EditedCard none = Try([](CAddressRecord& r) { r.SetCategoryId(0); }, false);
    EXPECT_THAT(none.gone, SizeIs(1));
    EXPECT_THAT(none.added, ElementsAre("CATEGORIES:Home\r\n"));
    EXPECT_THAT(Try([](CAddressRecord& r) { r.SetArchived(1); }).added,
                ElementsAre("X-ORVO-ARCHIVED:1\r\n"));
}

TEST_P(CardEditing, AnyEditsReadAsTheEditedRecord) {
    constexpr std::string_view texts[] = {"x",   "Ünï",  "a;b,c",    "l1\nl2",
                                          "\\n", "やま", "END:VCARD"};
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        Try([&](CAddressRecord& record) {
            for (int edits = 0; edits < 4; ++edits) {
                const auto field = static_cast<AddressField>(1 + random() % 21);
                record.SetUtf8(field, texts[random() % std::size(texts)]);
                record.SetPhoneLabelID(1 + random() % 5, random() % 8);
            }
            record.SetDisplayPhone(1 + random() % 5);
        });
        ASSERT_FALSE(HasFailure());
    }
}

TEST(CardWriting, AnEditedLineKeepsItsGroupItsParametersAndTheCardsLineEnd) {
    const std::string card =
        "BEGIN:VCARD\nVERSION:2.1\nitem1.TITLE;LANGUAGE=de;CHARSET=ISO-8859-1;QUOTED-PRINTABLE:"
        "K=F6nig\nEND:VCARD\n";

    EXPECT_THAT(EditCard(card, Set(Title, "Köln")).added,
                ElementsAre("item1.TITLE;LANGUAGE=de;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:"
                            "K=C3=B6ln\n"));
}

TEST(CardWriting, EachEditIsWrittenWhereItCameFrom) {
    const Edit addedCategory = [](CAddressRecord& record) {
        auto* family = new CCategory();
        family->SetName("Family");
        ASSERT_EQ(record.GetTable().GetCategoryManager()->Add(family), 0);
        record.SetCategoryId(family->GetIndex());
    };
    struct {
        const char *why, *lines;
        Edit edit;
        std::string added;
        const char* version = "3.0";
    } const rows[] = {
        {"FN that follows", "N:Lee;Ann;M.;Dr.;\nFN:Dr. Ann M. Lee", Set(First, "Bo"),
         "N:Lee;Bo;M.;Dr.;\nFN:Dr. Bo M. Lee"},
        {"FN with more around the name", "N:Lee;Ann;Marie;Dr.;PhD\nFN:Dr. Ann Marie Lee\\, PhD",
         Set(Name, "Kim"), "N:Kim;Ann;Marie;Dr.;PhD\nFN:Dr. Ann Marie Kim\\, PhD"},
        {"only whole words of FN", "N:Lee;Ann\nFN:Annie Lee of Leeds", Set(Name, "Kim"),
         "N:Kim;Ann\nFN:Annie Kim of Leeds"},
        {"the lists of the other parts",
         "N:van der Harten;Rene,J.;Sir;R.D.O.N.,x\nFN:Rene J. van der Harten", Set(Name, "Xx"),
         "N:Xx;Rene,J.;Sir;R.D.O.N.,x\nFN:Rene J. Xx"},
        {"no name is left", "N:Lee;\nFN:Lee\nEMAIL:a@b", Set(Name, ""),
         "N:;\nFN;X-ORVO-NO-NAME=1:a@b"},
        {"nothing is left for FN", "N:Lee;\nFN:Lee\nUID:1", Set(Name, ""), "N:;\nFN:", "4.0"},
        {"an FN that was missing", "N:Lee;Ann", Set(First, "Bo"), "N:Lee;Bo\nFN:Bo Lee"},
        {"a mail address stays one", "EMAIL;TYPE=HOME:a@b", Label(1, 2),
         "EMAIL;TYPE=WORK;X-ORVO-LABEL=\"Work\":a@b"},
        {"a page stays one", "URL:http://a\\,b", Label(1, 7),
         "URL;X-ORVO-LABEL=\"Other\":http://a\\,b"},
        {"a page becomes a number", "item1.URL:1", Label(1, 3), "item1.TEL;TYPE=FAX:1"},
        {"a number is added that would be shown instead", "EMAIL:a@b", Set(PhoneField(2), "1"),
         "EMAIL;TYPE=pref:a@b\nTEL;TYPE=HOME:1"},
        {"a URL has no escapes", "URL:http://a", Set(Phone1, "http://b/?c,d;e%20"),
         "URL:http://b/?c,d;e%20"},
        {"what can't stand in a URL", "URL:http://a", Set(Phone1, "a\nb\\%"),
         "URL;X-ORVO-PERCENT=1:a%0Ab%5C%25", "2.1"},
        {"a backslash of an old card", "NOTE:x\nADR:;;a;b",
         Both(Note("C:\\new; a"), Set(City, "c;d")), "NOTE:C:\\new; a\nADR:;;a;c\\;d", "2.1"},
        {"the label of a group", "item1.TEL:1\nitem1.X-ABLabel:_$!<Mobile>!$_", Label(1, 2),
         "item1.TEL;TYPE=WORK:1"},
        {"a category goes first", "CATEGORIES:Friends,Family\nCATEGORIES:Family,x", addedCategory,
         "CATEGORIES:Family,Friends\nCATEGORIES:x"},
        {"FN of its own", "N:Lee;Ann\nFN:Annie", Set(First, "Bo"), "N:Lee;Bo"},
        {"family name first", "N:山田;太郎\nFN:山田 太郎", Set(First, "花子"),
         "N:山田;花子\nFN:山田 花子"},
        {"a name from FN", "FN:Ann Lee", Set(Name, "Bo Lee"), "FN:Bo Lee"},
        {"a first name beside FN", "FN:Lee", Set(First, "Ann"), "FN:Ann Lee\nN:Lee;Ann;;;"},
        {"a company that is FN", "FN:Acme\nORG:Acme;Sales", Set(Company, "Big"),
         "FN:Big\nORG:Big;Sales"},
        {"a company that becomes FN", "FN:Acme", Set(Company, "Acme"), "N:Acme;;;;\nORG:Acme"},
        {"the street", "ADR:Box;Floor;Main;City;;;", Set(Address, "A\nB"), "ADR:;;A\\nB;City;;;"},
        {"a label", "LABEL:A", Set(Address, "B"), "LABEL:B"},
        {"a city beside a label", "LABEL:A", Set(City, "C"), "ADR:;;A;C;;;"},
        {"a part of sort-as", "N;SORT-AS=\"Harten,Rene\":van;R", Set(FirstYomi, "Renee"),
         "N;SORT-AS=\"Harten,Renee\":van;R", "4.0"},
        {"no part of sort-as", "N;SORT-AS=Harten:van", Set(NameYomi, ""), "N:van", "4.0"},
        {"sort-string", "SORT-STRING:Ab", Set(NameYomi, "Cd"), "SORT-STRING:Cd"},
        {"a reading in kanji", "X-PHONETIC-ORG:Ab", Set(CompanyYomi, "山"),
         "X-ORVO-COMPANY-READING:山"},
        {"a number with a scheme", "TEL;VALUE=uri;TYPE=home:tel:1", Set(Phone1, "2"),
         "TEL;TYPE=home:2", "4.0"},
        {"a label in a list", "TEL;TYPE=WORK,VOICE;X=1:1", Label(1, 3),
         "TEL;TYPE=VOICE;X=1;TYPE=FAX:1"},
        {"a slot that isn't the next", "TEL:1", Set(Phone5, "5"), "EMAIL;X-ORVO-SLOT=5:5"},
        {"a wrongly encoded part", "ADR;ENCODING=QUOTED-PRINTABLE:;;a=0D=0Ab;C", Set(City, "D"),
         "ADR:;;a\\nb;D"},
        {"before an agent", "FN:a\nAGENT:\nBEGIN:VCARD\nN:b\nEND:VCARD", Set(Title, "T"), "TITLE:T",
         "2.1"},
        {"before a component that isn't closed", "FN:a\nBEGIN:X\nTITLE:b", Set(Title, "T"),
         "TITLE:T"},
        {"before what would read as a fold", "FN:a\n\n b", Set(Title, "T"), "TITLE:T"},
        {"a quote that is never closed", "TITLE;X=\"a:b \"c\"", Set(Title, "T"), "TITLE;X=a:T"},
        {"a line of its own after base64", "FN:a\nPHOTO;BASE64:\n AAAA\n\n", Set(Title, "T"),
         "TITLE:T", "2.1"},
        {"after text that is broken off", "NOTE;QUOTED-PRINTABLE:a=", Set(Title, "T"),
         "NOTE;QUOTED-PRINTABLE:a=\n\nTITLE:T", "2.1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const EditedCard edited = EditCard(Card(row.lines, row.version), row.edit);
        EXPECT_EQ(Plain(fmt::format("{}", fmt::join(edited.added, ""))), row.added + "\n");
    }
}

TEST(FreshCard, SaysAllThatTheRecordSays) {
    Tables tables;
    const auto record = MakeAddress(tables.addresses, {{Name, "Lee"},
                                                       {First, "Ann"},
                                                       {Company, "A; B"},
                                                       {NameYomi, "りい"},
                                                       {Address, "Main St 3\nFloor 2"},
                                                       {Phone1, "1"},
                                                       {PhoneField(2), "a@b"}});
    record->SetPhoneLabelID(2, 4);
    record->SetDisplayPhone(2);
    record->SetNoteUtf8("n");
    record->SetPrivate(1);

    EXPECT_EQ(tables.Export(*record),
              Card("N:Lee;Ann;;;\nFN:Ann Lee\nORG:A\\; B\nADR:;;Main St 3\\nFloor "
                   "2;;;;\nTEL;TYPE=CELL:1\nEMAIL;TYPE=pref:a@b\nNOTE:n\n"
                   "CLASS:PRIVATE\nX-PHONETIC-LAST-NAME:りい"));
}

TEST(FreshCard, ReadsAsTheRecordThatItWasMadeFrom) {
    constexpr std::string_view pieces[] = {"a",  "Bé", ";", ",",  "\\", "\n", ":",
                                           "山", "ﾔﾏ", " ", "\"", "^",  "=",  "tel:"};
    std::mt19937 random(5);
    Tables tables;
    ASSERT_EQ(tables.addresses.SetPhoneLabel(8, "Car \"2\""), 0);
    for (int round = 0; round < 1500; ++round) {
        CAddressRecord record(tables.addresses);
        // Blanks alone can't be told from nothing.
        const auto text = [&] { return "-" + AnyText(pieces, 9, random); };
        for (int i = 1; i <= static_cast<int>(AddressField::Custom4); ++i) {
            if (random() % 3 == 0) record.SetUtf8(static_cast<AddressField>(i), text());
        }
        for (long slot = 1; slot <= kPhoneSlots; ++slot) {
            record.SetPhoneLabelID(slot, static_cast<long>(random() % 9));
            if (!record.Utf8(PhoneField(slot)).empty()) record.SetDisplayPhone(slot);
        }
        record.SetNoteUtf8(random() % 2 ? text() : "");
        record.SetPrivate(random() % 2);
        record.SetArchived(random() % 2);
        const std::string card = tables.Export(record);
        Tables copies;
        copies.addresses.SetPhoneLabel(8, "Car \"2\"");
        copies.Import(card);
        const Strings all = DescribeAll(copies);
        ASSERT_EQ(all.empty() ? "" : all.front(), Describe(record)) << card;
        if (!all.empty()) {
            ASSERT_EQ(copies.Export(*copies.Address()), card);
        }
    }
}

}  // namespace
}  // namespace orvo
