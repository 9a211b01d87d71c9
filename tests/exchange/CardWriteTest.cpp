// Imported address records become cards again, as they came or with what was edited.
// SPDX-License-Identifier: MIT
#include <functional>
#include <random>

#include <gmock/gmock.h>

#include <exchange/files/ExportFile.h>
#include <exchange/lines/ContentLine.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Strings = std::vector<std::string>;
using Edit = std::function<void(CAddressRecord&)>;

Strings LinesOf(std::string_view text) {
    Strings lines;
    ContentLineReader reader(text);
    for (ContentLine line; reader.Next(line);) lines.emplace_back(line.source);
    return lines;
}

// The lines of `left` that aren't in `right`.
Strings Less(Strings left, const Strings& right) {
    std::erase_if(left, [&](const std::string& line) {
        return std::find(right.begin(), right.end(), line) != right.end();
    });
    return left;
}

struct EditedCard {
    Strings gone;
    Strings added;
    Strings shown;  // the record after the edit
    Strings again;  // what its card reads as
};

EditedCard EditCard(const std::string& card, const Edit& edit) {
    Tables tables;
    tables.Import(card);
    CAddressRecord record(tables.addresses);
    EXPECT_EQ(CAddressIterator(tables.addresses).FindFirst(record), 0);
    edit(record);
    const std::string written = ExportCard(record, tables.addresses);
    Tables copies;
    copies.Import(written);
    CAddressRecord copy(copies.addresses);
    CAddressIterator(copies.addresses).FindFirst(copy);
    return {Less(LinesOf(card), LinesOf(written)), Less(LinesOf(written), LinesOf(card)),
            Describe(record), Describe(copy)};
}

Edit SetText(AddressField field, std::string_view text) {
    return [=](CAddressRecord& record) { EXPECT_EQ(record.SetUtf8(field, text), 0); };
}

// A card with a line for each field, in the ways of its version.
std::string FullCard(std::string_view version) {
    const bool isOld = version == "2.1";
    const bool isNew = version == "4.0";
    std::string lines = "UID:1\nN:Lee;Ann;Mary;Dr.;\nFN:Ann Lee\nORG:Acme;Sales\nTITLE:Boss\n";
    lines +=
        isOld ? "ADR;WORK;QUOTED-PRINTABLE;CHARSET=ISO-8859-1:Box;;Stra=DFe;City;State;Zip;Land\n"
              : "item1.ADR;TYPE=work:Box;;Straße;City;State;Zip;Land\n";
    lines += isOld   ? "TEL;CELL;PREF:1\nTEL;WORK;X-ID=7:2\n"
             : isNew ? "TEL;PREF=1;TYPE=cell;VALUE=uri:tel:1\nTEL;TYPE=\"work,voice\";X-ID=7:2\n"
                     : "TEL;TYPE=cell,pref:1\nTEL;TYPE=WORK,voice;X-ID=7:2\n";
    lines +=
        "EMAIL:a@b\nURL:http://c\nTEL:5\nTEL:6\nNOTE:note\nCATEGORIES:Work,Home\nCLASS:PRIVATE\n";
    lines += "X-PHONETIC-LAST-NAME:Lii\nX-PHONETIC-FIRST-NAME:Enn\nX-PHONETIC-ORG:Akme\n";
    lines +=
        "X-ORVO-CUSTOM1:c1\nX-ORVO-CUSTOM2:c2\nX-ORVO-CUSTOM3:c3\nX-ORVO-CUSTOM4:c4\nBDAY:2000-01-"
        "01\n";
    lines += isOld ? "PHOTO;BASE64:\n  AAAA\n\n" : "PHOTO;ENCODING=b:AAAA\n";
    return Card(version, lines);
}

constexpr std::string_view kVersions[] = {"2.1", "3.0", "4.0"};

class CardEditing : public testing::TestWithParam<std::string_view> {
protected:
    EditedCard Try(const Edit& edit) const { return EditCard(FullCard(GetParam()), edit); }
};
INSTANTIATE_TEST_SUITE_P(Versions, CardEditing, testing::ValuesIn(kVersions));

TEST_P(CardEditing, AnUneditedCardIsWrittenAsItCame) {
    for (const std::string& card : {FullCard(GetParam()), FullCard(GetParam()) + "\r\n"}) {
        const EditedCard same = EditCard(card, [](CAddressRecord&) {});
        EXPECT_THAT(same.added, IsEmpty());
    }
}

TEST_P(CardEditing, EditingOneTextChangesItsLineAlone) {
    for (int i = 1; i <= static_cast<int>(AddressField::Custom4); ++i) {
        const auto field = static_cast<AddressField>(i);
        const bool isName = field == AddressField::Name || field == AddressField::First;
        const std::size_t count = isName ? 2 : 1;  // FN follows the name

        for (const std::string_view text : {"New", "Néw; a,b \\n c"}) {
            SCOPED_TRACE(testing::Message() << "field " << i << ": " << text);
            const EditedCard edited = Try(SetText(field, text));
            EXPECT_EQ(edited.gone.size(), count);
            EXPECT_EQ(edited.added.size(), count);
            EXPECT_EQ(edited.again, edited.shown);
        }
    }
}

TEST_P(CardEditing, EmptyingATextTakesItsLineOrPartAway) {
    for (int i = 1; i <= static_cast<int>(AddressField::Custom4); ++i) {
        const auto field = static_cast<AddressField>(i);
        const bool isPhone = i >= static_cast<int>(AddressField::Phone1) &&
                             i <= static_cast<int>(AddressField::Phone5);
        if (isPhone) continue;  // the numbers behind it move up
        SCOPED_TRACE(testing::Message() << "field " << i);
        const EditedCard edited = Try(SetText(field, ""));
        EXPECT_FALSE(edited.gone.empty());
        EXPECT_EQ(edited.again, edited.shown);
    }
    EXPECT_EQ(Try(SetText(AddressField::Phone5, "")).gone.size(), 1u);
}

TEST_P(CardEditing, MarksNoteCategoryAndLabelsChangeTheirLinesAlone) {
    struct Row {
        const char* why;
        Edit edit;
        std::size_t lines;
        bool readsTheSame = true;
    };
    const Row rows[] = {
        {"note", [](CAddressRecord& r) { r.SetNoteUtf8("a\nb"); }, 1},
        {"private", [](CAddressRecord& r) { r.SetPrivate(0); }, 1},
        {"category", [](CAddressRecord& r) { r.SetCategoryId(0); }, 1, false},
        {"label", [](CAddressRecord& r) { r.SetPhoneLabelID(1, 1); }, 1},
        {"another kind of label", [](CAddressRecord& r) { r.SetPhoneLabelID(2, 4); }, 1},
        {"display", [](CAddressRecord& r) { r.SetDisplayPhone(3); }, 2},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        const EditedCard edited = Try(row.edit);
        EXPECT_EQ(edited.gone.size(), row.lines);
        EXPECT_EQ(edited.added.size(), row.lines);
        if (row.readsTheSame) {
            EXPECT_EQ(edited.again, edited.shown);
        }
    }
    EXPECT_THAT(Try(rows[2].edit).added, ElementsAre("CATEGORIES:Home\r\n"));
    EXPECT_THAT(Try([](CAddressRecord& r) { r.SetArchived(1); }).added,
                ElementsAre("X-ORVO-ARCHIVED:1\r\n"));
}

TEST_P(CardEditing, AnyEditsReadAsTheEditedRecord) {
    constexpr std::string_view texts[] = {"x",   "Ünï",  "a;b,c",    "l1\nl2",
                                          "\\n", "やま", "END:VCARD"};
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        const EditedCard edited = Try([&](CAddressRecord& record) {
            for (int edits = 0; edits < 4; ++edits) {
                const auto field = static_cast<AddressField>(1 + random() % 21);
                record.SetUtf8(field, texts[random() % std::size(texts)]);
                record.SetPhoneLabelID(1 + random() % 5, random() % 8);
            }
            record.SetDisplayPhone(1 + random() % 5);
        });
        ASSERT_EQ(edited.again, edited.shown);
    }
}

TEST(CardWriting, AnEditedLineKeepsItsGroupItsParametersAndTheCardsLineEnd) {
    const std::string card =
        "BEGIN:VCARD\nVERSION:2.1\nitem1.TITLE;LANGUAGE=de;CHARSET=ISO-8859-1;QUOTED-PRINTABLE:"
        "K=F6nig\nEND:VCARD\n";

    const EditedCard edited = EditCard(card, SetText(AddressField::Title, "Köln"));

    EXPECT_THAT(edited.added,
                ElementsAre("item1.TITLE;LANGUAGE=de;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:"
                            "K=C3=B6ln\n"));
}

TEST(CardWriting, EachEditIsWrittenWhereItCameFrom) {
    struct Row {
        const char* why;
        const char* version;
        const char* lines;
        Edit edit;
        Strings added;
    };
    const auto set = [](AddressField field, const char* text) { return SetText(field, text); };
    const Row rows[] = {
        {"FN that follows",
         "3.0",
         "N:Lee;Ann;M.;Dr.;\nFN:Dr. Ann M. Lee\n",
         set(AddressField::First, "Bo"),
         {"N:Lee;Bo;M.;Dr.;\r\n", "FN:Dr. Bo M. Lee\r\n"}},
        {"FN with more around the name",
         "3.0",
         "N:Lee;Ann;Marie;Dr.;PhD\nFN:Dr. Ann Marie Lee\\, PhD\n",
         set(AddressField::Name, "Kim"),
         {"N:Kim;Ann;Marie;Dr.;PhD\r\n", "FN:Dr. Ann Marie Kim\\, PhD\r\n"}},
        {"only whole words of FN",
         "3.0",
         "N:Lee;Ann\nFN:Annie Lee of Leeds\n",
         set(AddressField::Name, "Kim"),
         {"N:Kim;Ann\r\n", "FN:Annie Kim of Leeds\r\n"}},
        {"the lists of the other parts",
         "3.0",
         "N:van der Harten;Rene,J.;Sir;R.D.O.N.,x\nFN:Rene J. van der Harten\n",
         set(AddressField::Name, "Xx"),
         {"N:Xx;Rene,J.;Sir;R.D.O.N.,x\r\n", "FN:Rene J. Xx\r\n"}},
        {"no name is left",
         "3.0",
         "N:Lee;\nFN:Lee\nEMAIL:a@b\n",
         set(AddressField::Name, ""),
         {"N:;\r\n", "FN;X-ORVO-NO-NAME=1:a@b\r\n"}},
        {"nothing is left for FN",
         "4.0",
         "N:Lee;\nFN:Lee\nUID:1\n",
         set(AddressField::Name, ""),
         {"N:;\r\n", "FN:\r\n"}},
        {"an FN that was missing",
         "3.0",
         "N:Lee;Ann\n",
         set(AddressField::First, "Bo"),
         {"N:Lee;Bo\r\n", "FN:Bo Lee\r\n"}},
        {"a mail address stays one",
         "3.0",
         "EMAIL;TYPE=HOME:a@b\n",
         [](CAddressRecord& r) { r.SetPhoneLabelID(1, 2); },
         {"EMAIL;TYPE=WORK;X-ORVO-LABEL=\"Work\":a@b\r\n"}},
        {"a page stays one",
         "3.0",
         "URL:http://a\\,b\n",
         [](CAddressRecord& r) { r.SetPhoneLabelID(1, 7); },
         {"URL;X-ORVO-LABEL=\"Other\":http://a\\,b\r\n"}},
        {"a page becomes a number",
         "3.0",
         "item1.URL:1\n",
         [](CAddressRecord& r) { r.SetPhoneLabelID(1, 3); },
         {"item1.TEL;TYPE=FAX:1\r\n"}},
        {"a number is added that would be shown instead",
         "3.0",
         "EMAIL:a@b\n",
         set(PhoneField(2), "1"),
         {"EMAIL;TYPE=pref:a@b\r\n", "TEL;TYPE=HOME:1\r\n"}},
        {"a URL has no escapes",
         "3.0",
         "URL:http://a\n",
         set(AddressField::Phone1, "http://b/?c,d;e%20"),
         {"URL:http://b/?c,d;e%20\r\n"}},
        {"what can't stand in a URL",
         "2.1",
         "URL:http://a\n",
         set(AddressField::Phone1, "a\nb\\%"),
         {"URL;X-ORVO-PERCENT=1:a%0Ab%5C%25\r\n"}},
        {"a backslash of an old card",
         "2.1",
         "NOTE:x\nADR:;;a;b\n",
         [](CAddressRecord& r) {
             r.SetNoteUtf8("C:\\new; a");
             r.SetUtf8(AddressField::City, "c;d");
         },
         {"NOTE:C:\\new; a\r\n", "ADR:;;a;c\\;d\r\n"}},
        {"the label of a group",
         "3.0",
         "item1.TEL:1\nitem1.X-ABLabel:_$!<Mobile>!$_\n",
         [](CAddressRecord& r) { r.SetPhoneLabelID(1, 2); },
         {"item1.TEL;TYPE=WORK:1\r\n"}},
        {"a category goes first",
         "3.0",
         "CATEGORIES:Friends,Family\nCATEGORIES:Family,x\n",
         [](CAddressRecord& r) {
             CCategory* family = new CCategory();
             family->SetName("Family");
             ASSERT_EQ(r.GetTable().GetCategoryManager()->Add(family), 0);
             r.SetCategoryId(family->GetIndex());
         },
         {"CATEGORIES:Family,Friends\r\n", "CATEGORIES:x\r\n"}},
        {"FN of its own",
         "3.0",
         "N:Lee;Ann\nFN:Annie\n",
         set(AddressField::First, "Bo"),
         {"N:Lee;Bo\r\n"}},
        {"family name first",
         "3.0",
         "N:山田;太郎\nFN:山田 太郎\n",
         set(AddressField::First, "花子"),
         {"N:山田;花子\r\n", "FN:山田 花子\r\n"}},
        {"a name from FN",
         "3.0",
         "FN:Ann Lee\n",
         set(AddressField::Name, "Bo Lee"),
         {"FN:Bo Lee\r\n"}},
        {"a first name beside FN",
         "3.0",
         "FN:Lee\n",
         set(AddressField::First, "Ann"),
         {"FN:Ann Lee\r\n", "N:Lee;Ann;;;\r\n"}},
        {"a company that is FN",
         "3.0",
         "FN:Acme\nORG:Acme;Sales\n",
         set(AddressField::Company, "Big"),
         {"FN:Big\r\n", "ORG:Big;Sales\r\n"}},
        {"a company that becomes FN",
         "3.0",
         "FN:Acme\n",
         set(AddressField::Company, "Acme"),
         {"N:Acme;;;;\r\n", "ORG:Acme\r\n"}},
        {"the street",
         "3.0",
         "ADR:Box;Floor;Main;City;;;\n",
         set(AddressField::Address, "A\nB"),
         {"ADR:;;A\\nB;City;;;\r\n"}},
        {"a label", "3.0", "LABEL:A\n", set(AddressField::Address, "B"), {"LABEL:B\r\n"}},
        {"a city beside a label",
         "3.0",
         "LABEL:A\n",
         set(AddressField::City, "C"),
         {"ADR:;;A;C;;;\r\n"}},
        {"a part of sort-as",
         "4.0",
         "N;SORT-AS=\"Harten,Rene\":van;R\n",
         set(AddressField::FirstYomi, "Renee"),
         {"N;SORT-AS=\"Harten,Renee\":van;R\r\n"}},
        {"no part of sort-as",
         "4.0",
         "N;SORT-AS=Harten:van\n",
         set(AddressField::NameYomi, ""),
         {"N:van\r\n"}},
        {"sort-string",
         "3.0",
         "SORT-STRING:Ab\n",
         set(AddressField::NameYomi, "Cd"),
         {"SORT-STRING:Cd\r\n"}},
        {"a reading in kanji",
         "3.0",
         "X-PHONETIC-ORG:Ab\n",
         set(AddressField::CompanyYomi, "山"),
         {"X-ORVO-COMPANY-READING:山\r\n"}},
        {"a number with a scheme",
         "4.0",
         "TEL;VALUE=uri;TYPE=home:tel:1\n",
         set(AddressField::Phone1, "2"),
         {"TEL;TYPE=home:2\r\n"}},
        {"a label in a list",
         "3.0",
         "TEL;TYPE=WORK,VOICE;X=1:1\n",
         [](CAddressRecord& r) { r.SetPhoneLabelID(1, 3); },
         {"TEL;TYPE=VOICE;X=1;TYPE=FAX:1\r\n"}},
        {"a slot that isn't the next",
         "3.0",
         "TEL:1\n",
         set(AddressField::Phone5, "5"),
         {"EMAIL;X-ORVO-SLOT=5:5\r\n"}},
        {"a wrongly encoded part",
         "3.0",
         "ADR;ENCODING=QUOTED-PRINTABLE:;;a=0D=0Ab;C\n",
         set(AddressField::City, "D"),
         {"ADR:;;a\\nb;D\r\n"}},
        {"before an agent",
         "2.1",
         "FN:a\nAGENT:\nBEGIN:VCARD\nN:b\nEND:VCARD\n",
         set(AddressField::Title, "T"),
         {"TITLE:T\r\n"}},
        {"before a component that isn't closed",
         "3.0",
         "FN:a\nBEGIN:X\nTITLE:b\n",
         set(AddressField::Title, "T"),
         {"TITLE:T\r\n"}},
        {"before what would read as a fold",
         "3.0",
         "FN:a\n\n b\n",
         set(AddressField::Title, "T"),
         {"TITLE:T\r\n"}},
        {"a quote that is never closed",
         "3.0",
         "TITLE;X=\"a:b \"c\"\n",
         set(AddressField::Title, "T"),
         {"TITLE;X=a:T\r\n"}},
        {"a line of its own after base64",
         "2.1",
         "FN:a\nPHOTO;BASE64:\n AAAA\n\n",
         set(AddressField::Title, "T"),
         {"TITLE:T\r\n"}},
        {"after text that is broken off",
         "2.1",
         "NOTE;QUOTED-PRINTABLE:a=\n",
         set(AddressField::Title, "T"),
         {"NOTE;QUOTED-PRINTABLE:a=\r\n\r\n", "TITLE:T\r\n"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        const EditedCard edited = EditCard(Card(row.version, row.lines), row.edit);
        EXPECT_EQ(edited.added, row.added);
        EXPECT_EQ(edited.again, edited.shown);
    }
}

TEST(CardWriting, ALabelThatWasRenamedSinceIsNoEdit) {
    Tables tables;
    const std::string card = Card("3.0", "TEL;TYPE=CELL,VOICE:1\n");
    tables.Import(card);
    tables.addresses.SetPhoneLabel(0, "Handy");
    CAddressRecord record(tables.addresses);
    ASSERT_EQ(CAddressIterator(tables.addresses).FindFirst(record), 0);

    EXPECT_EQ(ExportCard(record, tables.addresses), card);
}

}  // namespace
}  // namespace orvo
