// Cards become address records.
// SPDX-License-Identifier: MIT
#include "exchange/Tables.h"

namespace orvo {
namespace {

struct Row {
    const char *why, *lines, *want, *version = "3.0";
};

void Check(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        EXPECT_THAT(DescribeAll(Card(row.lines, row.version)), ElementsAre(row.want)) << row.why;
    }
}

TEST(CardReading, NamesComeFromNElseFromFN) {
    Check({
        {"family and given name", "N:Lee;Ann;Mary;Dr.;MD", "name: Lee | first: Ann"},
        {"only FN", "FN:Ann Lee", "name: Ann Lee"},
        {"an empty N", "N:;;Mary;;\nFN:Ann Lee", "name: Ann Lee", "2.1"},
        {"FN is the company", "FN:Acme\nN:;;;;\nORG:Acme;Sales", "company: Acme"},
        {"FN is another name", "FN:Ann\nORG:Acme", "name: Ann | company: Acme"},
        {"a second N", "N:;\nN:Lee;Ann", "name: Lee | first: Ann"},
        {"lower case", "n:Lee;Ann", "name: Lee | first: Ann"},
        {"a group", "item1.N:Lee;Ann", "name: Lee | first: Ann"},
        {"the agent's name stays out",
         "N:Lee\nAGENT:\nBEGIN:VCARD\nN:Bond\nTEL:007\nEND:VCARD\nTEL:1",
         "name: Lee | phone1 (Other): 1", "2.1"},
    });
}

TEST(CardReading, TheAddressIsThePreferredOne) {
    Check({
        {"all parts", "ADR:Box 1;Floor 2;Main St 3;City;State;Zip;Land",
         "address: Box 1\nFloor 2\nMain St 3 | city: City | state: State | zip: Zip | country: "
         "Land"},
        {"the first one", "ADR:;;A\nADR:;;B", "address: A"},
        {"the preferred one", "ADR:;;A\nADR;TYPE=home,pref:;;B", "address: B"},
        {"the bare word", "ADR;HOME:;;A\nADR;WORK;PREF:;;B", "address: B", "2.1"},
        {"the lowest number", "ADR;PREF=2:;;A\nADR;PREF=1:;;B", "address: B", "4.0"},
        {"an empty preferred one", "ADR:;;A\nADR;TYPE=pref:;;;;", "address: A"},
        {"line ends", "ADR:;;A\\nB", "address: A\nB"},
        {"a label alone", "LABEL;QUOTED-PRINTABLE:A=0D=0AB", "address: A\nB", "2.1"},
        {"a label beside it", "LABEL:L\nADR:;;A", "address: A", "2.1"},
    });
}

TEST(CardReading, NumbersFillTheSlotsInTheFilesOrder) {
    Check({
        {"each type",
         "TEL;TYPE=CELL,VOICE:1\nTEL;TYPE=HOME;TYPE=FAX:2\nTEL;TYPE=\"pager\":3\nTEL;TYPE=home:"
         "4\nTEL;TYPE=work:5\nTEL:6",
         "phone1 (Mobile): 1 | phone2 (Fax): 2 | phone3 (Pager): 3 | phone4 (Home): 4 | phone5 "
         "(Work): 5"},
        {"bare types", "TEL;WORK;VOICE:1\nEMAIL;INTERNET:a@b\nURL:c\nTEL:2",
         "phone1 (Work): 1 | phone2 (E-mail): a@b | phone3 (Web): c | phone4 (Other): 2", "2.1"},
        {"an empty one takes none", "TEL:\nTEL:1", "phone1 (Other): 1"},
        {"a preferred one is shown", "TEL:1\nTEL;TYPE=pref:2",
         "phone1 (Other): 1 | phone2 (Other): 2 | display: 2"},
        {"a telephone before mail", "EMAIL;PREF:a\nTEL;PREF:2",
         "phone1 (E-mail): a | phone2 (Other): 2 | display: 2", "2.1"},
        {"the most preferred", "TEL;PREF=20:1\nEMAIL;PREF=3:a",
         "phone1 (Other): 1 | phone2 (E-mail): a | display: 2", "4.0"},
        {"where none is preferred a telephone", "URL:c\nEMAIL:a@b\nTEL:1\nTEL:2",
         "phone1 (Web): c | phone2 (E-mail): a@b | phone3 (Other): 1 | phone4 (Other): 2 | "
         "display: 3"},
        {"else a mail address", "URL:c\nEMAIL:a@b",
         "phone1 (Web): c | phone2 (E-mail): a@b | display: 2"},
        {"a scheme", "TEL;VALUE=uri;TYPE=\"voice,cell\":tel:+1-2;ext=3",
         "phone1 (Mobile): +1-2;ext=3", "4.0"},
        {"an escaped colon", "URL:http\\://a", "phone1 (Web): http://a"},
    });
}

TEST(CardReading, ALabelThatTheTableLacksGivesWayToTheRenamedOneElseToOtherOrTheLast) {
    Tables tables;
    tables.addresses.SetPhoneLabel(0, "Handy");
    tables.Import(Card("TEL;TYPE=CELL:1"));
    EXPECT_THAT(DescribeAll(tables), ElementsAre("phone1 (Handy): 1"));

    Tables others;
    others.addresses.SetPhoneLabel(0, "HOME");
    others.addresses.SetPhoneLabel(1, "Car");
    others.addresses.SetPhoneLabel(7, "Else");
    others.Import(Card("TEL;TYPE=CELL:1\nTEL;TYPE=home:2"));
    EXPECT_THAT(DescribeAll(others), ElementsAre("phone1 (Else): 1 | phone2 (HOME): 2"));
}

TEST(CardReading, ALineOfTheSameGroupNamesTheLabelThatTheNumbersOwnLineDoesnt) {
    Check({
        {"a known label", "item1.TEL:1\nitem1.X-ABLabel:_$!<WorkFAX>!$_", "phone1 (Fax): 1"},
        {"before the number, in another case",
         "ITEM1.X-ABLABEL:_$!<iPhone>!$_\nitem1.TEL;type=pref:1", "phone1 (Mobile): 1"},
        {"a text of the table", "a.EMAIL:a@b\na.X-ABLabel:Work", "phone1 (Work): a@b"},
        {"a text that the table lacks", "a.TEL:1\na.X-ABLabel:Boat", "phone1 (Other): 1"},
        {"the number's own type", "a.TEL;TYPE=HOME:1\na.X-ABLabel:_$!<Work>!$_",
         "phone1 (Home): 1"},
        {"another group", "a.TEL:1\nb.X-ABLabel:Work", "phone1 (Other): 1"},
        {"a mail address stays one", "a.EMAIL:a@b\na.X-ABLabel:_$!<Work>!$_",
         "phone1 (E-mail): a@b"},
    });
}

TEST(CardReading, ALabelOfOursIsTakenIntoATableThatHasRoom) {
    const std::string card = Card("TEL;X-ORVO-LABEL=\"Boat\":1");
    Tables tables(card + card);
    EXPECT_THAT(DescribeAll(tables), ElementsAre("phone1 (Boat): 1", "phone1 (Boat): 1"));
    EXPECT_EQ(tables.addresses.GetPhoneLabelCount(), 9);

    Tables full;
    for (int id = 8; id < 256; ++id) {
        ASSERT_EQ(full.addresses.SetPhoneLabel(id, CString(std::to_string(id))), 0);
    }
    full.Import(card);
    EXPECT_THAT(DescribeAll(full), ElementsAre("phone1 (Other): 1"));
}

TEST(CardReading, AReadingComesFromTheFirstSourceInKanaOrLatin) {
    Check({
        {"the common lines",
         "X-PHONETIC-LAST-NAME:やまだ\nX-PHONETIC-FIRST-NAME:たろう\nX-PHONETIC-ORG:しゃ",
         "name reading: やまだ | first reading: たろう | company reading: しゃ"},
        {"of a phone", "SOUND;X-IRMC-N;CHARSET=SHIFT_JIS:\xD4\xCF\xC0\xDE;\xC0\xDB\xB3;;;",
         "name reading: ﾔﾏﾀﾞ | first reading: ﾀﾛｳ", "2.1"},
        {"another sound", "N:a\nSOUND:b", "name: a", "2.1"},
        {"sort-as", "N;SORT-AS=\"Harten,Rene\":van;R\nORG;SORT-AS=Abc:Ä",
         "name: van | first: R | company: Ä | name reading: Harten | first reading: Rene | company "
         "reading: Abc",
         "4.0"},
        {"sort-string", "SORT-STRING:Harten", "name reading: Harten"},
        {"the order of the sources",
         "SORT-STRING:d\nN;SORT-AS=c:x\nSOUND;TYPE=X-IRMC-N:b\nX-PHONETIC-LAST-NAME:a",
         "name: x | name reading: a"},
        {"in kanji it is none", "X-PHONETIC-LAST-NAME:山田\nSORT-STRING:ヤマダ",
         "name reading: ヤマダ"},
        {"none at all", "N:a\nSORT-STRING:12", "name: a"},
        {"a second name with its script",
         "N;ALTID=1:孫;中山\nN;ALTID=1;PHONETIC=jyut:syun;zungsaan",
         "name: 孫 | first: 中山 | name reading: syun | first reading: zungsaan", "4.0"},
    });
}

TEST(CardReading, NotesAndMarks) {
    Check({
        {"the first note", "NOTE:a\\nb\\, c\nNOTE:d", "note: a\nb, c"},
        {"private", "N:a\nCLASS:private", "name: a | private"},
        {"confidential", "N:a\nCLASS:CONFIDENTIAL", "name: a | private"},
        {"public", "N:a\nCLASS:PUBLIC", "name: a"},
        {"our own", "X-ORVO-CUSTOM1:a\nX-ORVO-CUSTOM4:b\nX-ORVO-ARCHIVED:1",
         "custom1: a | custom4: b | archived"},
        {"the first category", "CATEGORIES: Home\\, sweet , Work", "category: Home, sweet"},
        {"what fills no field", "BDAY:2000-01-01", ""},
    });
}

TEST(CardReading, AFullTableTakesTheFirstCategoryThatItHas) {
    Tables tables;
    for (int i = 1; i < kCategoryCount; ++i) {
        tables.Import(Card("N:a\nCATEGORIES:C" + std::to_string(i)));
    }
    tables.Import(Card("N:z\nCATEGORIES:New,c7"));
    EXPECT_EQ(DescribeAll(tables).back(), "name: z | category: C7");
}

}  // namespace
}  // namespace orvo
