// Cards become address records.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <support/CodePages.h>
#include <support/LocaleInForce.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

using testing::ElementsAre;
using Strings = std::vector<std::string>;

Strings ReadCard(Tables& tables, std::string_view version, std::string_view lines) {
    tables.Import(Card(version, lines));
    CAddressRecord record(tables.addresses);
    if (CAddressIterator(tables.addresses).FindFirst(record) != 0) return {"nothing"};
    return Describe(record);
}

struct Row {
    const char* why;
    const char* version;
    const char* lines;
    Strings want;
};

void Check(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        Tables tables;
        EXPECT_EQ(ReadCard(tables, row.version, row.lines), row.want) << row.why;
    }
}

TEST(CardReading, NamesComeFromNElseFromFN) {
    Check({
        {"family and given name", "3.0", "N:Lee;Ann;Mary;Dr.;MD\n", {"name: Lee", "first: Ann"}},
        {"only FN", "3.0", "FN:Ann Lee\n", {"name: Ann Lee"}},
        {"an empty N", "2.1", "N:;;Mary;;\nFN:Ann Lee\n", {"name: Ann Lee"}},
        {"FN is the company", "3.0", "FN:Acme\nN:;;;;\nORG:Acme;Sales\n", {"company: Acme"}},
        {"FN is another name", "3.0", "FN:Ann\nORG:Acme\n", {"name: Ann", "company: Acme"}},
        {"a second N", "3.0", "N:;\nN:Lee;Ann\n", {"name: Lee", "first: Ann"}},
        {"lower case", "3.0", "n:Lee;Ann\n", {"name: Lee", "first: Ann"}},
        {"a group", "3.0", "item1.N:Lee;Ann\n", {"name: Lee", "first: Ann"}},
        {"the agent's name stays out",
         "2.1",
         "N:Lee\nAGENT:\nBEGIN:VCARD\nN:Bond\nTEL:007\nEND:VCARD\nTEL:1\n",
         {"name: Lee", "phone1 (Other): 1"}},
    });
}

TEST(CardReading, TheAddressIsThePreferredOne) {
    Check({
        {"all parts",
         "3.0",
         "ADR:Box 1;Floor 2;Main St 3;City;State;Zip;Land\n",
         {"address: Box 1\nFloor 2\nMain St 3", "city: City", "state: State", "zip: Zip",
          "country: Land"}},
        {"the first one", "3.0", "ADR:;;A\nADR:;;B\n", {"address: A"}},
        {"the preferred one", "3.0", "ADR:;;A\nADR;TYPE=home,pref:;;B\n", {"address: B"}},
        {"the bare word", "2.1", "ADR;HOME:;;A\nADR;WORK;PREF:;;B\n", {"address: B"}},
        {"the lowest number", "4.0", "ADR;PREF=2:;;A\nADR;PREF=1:;;B\n", {"address: B"}},
        {"an empty preferred one", "3.0", "ADR:;;A\nADR;TYPE=pref:;;;;\n", {"address: A"}},
        {"line ends", "3.0", "ADR:;;A\\nB\n", {"address: A\nB"}},
        {"a label alone", "2.1", "LABEL;QUOTED-PRINTABLE:A=0D=0AB\n", {"address: A\nB"}},
        {"a label beside it", "2.1", "LABEL:L\nADR:;;A\n", {"address: A"}},
    });
}

TEST(CardReading, NumbersFillTheSlotsInTheFilesOrder) {
    Check({
        {"each type",
         "3.0",
         "TEL;TYPE=CELL,VOICE:1\nTEL;TYPE=HOME;TYPE=FAX:2\nTEL;TYPE=\"pager\":3\nTEL;TYPE=home:4\n"
         "TEL;TYPE=work:5\nTEL:6\n",
         {"phone1 (Mobile): 1", "phone2 (Fax): 2", "phone3 (Pager): 3", "phone4 (Home): 4",
          "phone5 (Work): 5"}},
        {"bare types",
         "2.1",
         "TEL;WORK;VOICE:1\nEMAIL;INTERNET:a@b\nURL:c\nTEL:2\n",
         {"phone1 (Work): 1", "phone2 (E-mail): a@b", "phone3 (Web): c", "phone4 (Other): 2"}},
        {"an empty one takes none", "3.0", "TEL:\nTEL:1\n", {"phone1 (Other): 1"}},
        {"a preferred one is shown",
         "3.0",
         "TEL:1\nTEL;TYPE=pref:2\n",
         {"phone1 (Other): 1", "phone2 (Other): 2", "display: 2"}},
        {"a telephone before mail",
         "2.1",
         "EMAIL;PREF:a\nTEL;PREF:2\n",
         {"phone1 (E-mail): a", "phone2 (Other): 2", "display: 2"}},
        {"the most preferred",
         "4.0",
         "TEL;PREF=20:1\nEMAIL;PREF=3:a\n",
         {"phone1 (Other): 1", "phone2 (E-mail): a", "display: 2"}},
        {"where none is preferred a telephone",
         "3.0",
         "URL:c\nEMAIL:a@b\nTEL:1\nTEL:2\n",
         {"phone1 (Web): c", "phone2 (E-mail): a@b", "phone3 (Other): 1", "phone4 (Other): 2",
          "display: 3"}},
        {"else a mail address",
         "3.0",
         "URL:c\nEMAIL:a@b\n",
         {"phone1 (Web): c", "phone2 (E-mail): a@b", "display: 2"}},
        {"a scheme",
         "4.0",
         "TEL;VALUE=uri;TYPE=\"voice,cell\":tel:+1-2;ext=3\n",
         {"phone1 (Mobile): +1-2;ext=3"}},
        {"an escaped colon", "3.0", "URL:http\\://a\n", {"phone1 (Web): http://a"}},
    });
}

TEST(CardReading, ALabelThatTheTableLacksGivesWayToTheRenamedOneElseToOtherOrTheLast) {
    Tables tables;
    tables.addresses.SetPhoneLabel(0, "Handy");
    EXPECT_THAT(ReadCard(tables, "3.0", "TEL;TYPE=CELL:1\n"), ElementsAre("phone1 (Handy): 1"));

    Tables others;
    others.addresses.SetPhoneLabel(0, "HOME");
    others.addresses.SetPhoneLabel(1, "Car");
    others.addresses.SetPhoneLabel(7, "Else");
    EXPECT_THAT(ReadCard(others, "3.0", "TEL;TYPE=CELL:1\nTEL;TYPE=home:2\n"),
                ElementsAre("phone1 (Else): 1", "phone2 (HOME): 2"));
}

TEST(CardReading, ALineOfTheSameGroupNamesTheLabelThatTheNumbersOwnLineDoesnt) {
    Check({
        {"a known label",
         "3.0",
         "item1.TEL:1\nitem1.X-ABLabel:_$!<WorkFAX>!$_\n",
         {"phone1 (Fax): 1"}},
        {"before the number, in another case",
         "3.0",
         "ITEM1.X-ABLABEL:_$!<iPhone>!$_\nitem1.TEL;type=pref:1\n",
         {"phone1 (Mobile): 1"}},
        {"a text of the table", "3.0", "a.EMAIL:a@b\na.X-ABLabel:Work\n", {"phone1 (Work): a@b"}},
        {"a text that the table lacks",
         "3.0",
         "a.TEL:1\na.X-ABLabel:Boat\n",
         {"phone1 (Other): 1"}},
        {"the number's own type",
         "3.0",
         "a.TEL;TYPE=HOME:1\na.X-ABLabel:_$!<Work>!$_\n",
         {"phone1 (Home): 1"}},
        {"another group", "3.0", "a.TEL:1\nb.X-ABLabel:Work\n", {"phone1 (Other): 1"}},
        {"a mail address stays one",
         "3.0",
         "a.EMAIL:a@b\na.X-ABLabel:_$!<Work>!$_\n",
         {"phone1 (E-mail): a@b"}},
    });
}

TEST(CardReading, ALabelOfOursIsTakenIntoATableThatHasRoom) {
    const std::string lines = "TEL;X-ORVO-LABEL=\"Boat\":1\n";
    Tables tables;

    EXPECT_THAT(ReadCard(tables, "3.0", lines), ElementsAre("phone1 (Boat): 1"));

    tables.Import(Card("3.0", lines));
    EXPECT_EQ(tables.addresses.GetPhoneLabelCount(), 9);
    Tables full;
    for (int id = 8; id < 256; ++id) {
        ASSERT_EQ(full.addresses.SetPhoneLabel(id, CString(std::to_string(id))), 0);
    }
    EXPECT_THAT(ReadCard(full, "3.0", lines), ElementsAre("phone1 (Other): 1"));
}

TEST(CardReading, AReadingComesFromTheFirstSourceInKanaOrLatin) {
    Check({
        {"the common lines",
         "3.0",
         "X-PHONETIC-LAST-NAME:やまだ\nX-PHONETIC-FIRST-NAME:たろう\nX-PHONETIC-ORG:しゃ\n",
         {"name reading: やまだ", "first reading: たろう", "company reading: しゃ"}},
        {"of a phone",
         "2.1",
         "SOUND;X-IRMC-N;CHARSET=SHIFT_JIS:\xD4\xCF\xC0\xDE;\xC0\xDB\xB3;;;\n",
         {"name reading: ﾔﾏﾀﾞ", "first reading: ﾀﾛｳ"}},
        {"another sound", "2.1", "N:a\nSOUND:b\n", {"name: a"}},
        {"sort-as",
         "4.0",
         "N;SORT-AS=\"Harten,Rene\":van;R\nORG;SORT-AS=Abc:Ä\n",
         {"name: van", "first: R", "company: Ä", "name reading: Harten", "first reading: Rene",
          "company reading: Abc"}},
        {"sort-string", "3.0", "SORT-STRING:Harten\n", {"name reading: Harten"}},
        {"the order of the sources",
         "3.0",
         "SORT-STRING:d\nN;SORT-AS=c:x\nSOUND;TYPE=X-IRMC-N:b\nX-PHONETIC-LAST-NAME:a\n",
         {"name: x", "name reading: a"}},
        {"in kanji it is none",
         "3.0",
         "X-PHONETIC-LAST-NAME:山田\nSORT-STRING:ヤマダ\n",
         {"name reading: ヤマダ"}},
        {"none at all", "3.0", "N:a\nSORT-STRING:12\n", {"name: a"}},
        {"a second name with its script",
         "4.0",
         "N;ALTID=1:孫;中山\nN;ALTID=1;PHONETIC=jyut:syun;zungsaan\n",
         {"name: 孫", "first: 中山", "name reading: syun", "first reading: zungsaan"}},
    });
}

TEST(CardReading, NotesAndMarks) {
    Check({
        {"the first note", "3.0", "NOTE:a\\nb\\, c\nNOTE:d\n", {"note: a\nb, c"}},
        {"private", "3.0", "N:a\nCLASS:private\n", {"name: a", "private"}},
        {"confidential", "3.0", "N:a\nCLASS:CONFIDENTIAL\n", {"name: a", "private"}},
        {"public", "3.0", "N:a\nCLASS:PUBLIC\n", {"name: a"}},
        {"our own",
         "3.0",
         "X-ORVO-CUSTOM1:a\nX-ORVO-CUSTOM4:b\nX-ORVO-ARCHIVED:1\n",
         {"custom1: a", "custom4: b", "archived"}},
        {"the first category",
         "3.0",
         "CATEGORIES: Home\\, sweet , Work\n",
         {"category: Home, sweet"}},
        {"what fills no field", "3.0", "BDAY:2000-01-01\n", {}},
    });
}

TEST(CardReading, CategoriesAreCutBetweenCharactersOfThePage) {
    for (const LocaleCase& page : kBothCodePages) {
        const LocaleInForce locale(page.tag, page.codePage);
        Tables tables;
        EXPECT_THAT(ReadCard(tables, "3.0", "N:a\nCATEGORIES:あいうえおかきく\n"),
                    ElementsAre("name: a", page.codePage == 932 ? "category: あいうえおかき"
                                                                : "category: あいうえお"));
    }
}

TEST(CardReading, AFullTableTakesTheFirstCategoryThatItHas) {
    Tables tables;
    for (int i = 1; i < kCategoryCount; ++i) {
        tables.Import(Card("3.0", "N:a\nCATEGORIES:C" + std::to_string(i) + "\n"));
    }
    CAddressRecord record(tables.addresses);
    tables.Import(Card("3.0", "N:z\nCATEGORIES:New,c7\n"));
    ASSERT_EQ(tables.addresses.Find(kCategoryCount, record), 0);
    EXPECT_THAT(Describe(record), ElementsAre("name: z", "category: C7"));
}

}  // namespace
}  // namespace orvo
