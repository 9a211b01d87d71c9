// The key of a record, and how typed text is held against it.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <map>

#include <contracts/TextServices.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/addressviews/LookupKey.h>
#include <orvoshare/addressviews/RandomPeople.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemText.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

using enum AddressField;

// Each letter stands for a filled field: n, f, c the name, first name and company, N, F, C their
// readings; a dot for one of blanks.
constexpr const char* kKeys[][5] = {
    {"nfcNFC", "n, f", "c, n", "N, F", "C, N"},
    {"nfc", "n, f", "c, n", "n", "c"},
    {"nfF", "n, f", "n, f", "n, F", "n, F"},
    {"fc", "f", "c, f", "f", "c"},
    {"fcF", "f", "c, f", "F", "c, F"},
    {"c", "c", "c", "c", "c"},
    {"cC", "c", "c", "C", "C"},
    {"nN", "n", "n", "N", "N"},
    {"f", "f", "f", "f", "f"},
    {"", "", "", "", ""},
    {"NFC", "", "", "N, F", "C, N"},
};

TEST(RecordKey, TakesTheFirstFilledFieldAndTheOneThatBelongsToIt) {
    const LocaleInForce locale("en-US");
    AddressFixture addresses;
    constexpr std::pair<AddressField, const char*> kFields[] = {
        {Name, "n"},     {First, "f"},     {Company, "c"},
        {NameYomi, "N"}, {FirstYomi, "F"}, {CompanyYomi, "C"}};
    for (const auto& [filled, plainByName, plainByCompany, readingByName, readingByCompany] :
         kKeys) {
        const auto record = addresses.Make({});
        for (const auto& [field, text] : kFields) {
            const bool isFilled = std::string_view(filled).find(text) != std::string_view::npos;
            record->SetUtf8(field, isFilled ? text : " \t");
        }
        const auto key = [&](KeyFields fields, long listBy) {
            CString text("what was there");
            MakeRecordKey(record.get(), fields, listBy, text);
            return ToUtf8(text);
        };
        EXPECT_EQ(key(KeyFields::Plain, kListByName), plainByName) << filled;
        EXPECT_EQ(key(KeyFields::Plain, kListByCompany), plainByCompany) << filled;
        EXPECT_EQ(key(KeyFields::Reading, -1), readingByName) << filled;
        EXPECT_EQ(key(KeyFields::Reading, kListByCompany), readingByCompany) << filled;
    }
}

// Where each character of a text begins, and the end.
std::vector<std::size_t> Positions(std::string_view text) {
    std::vector<std::size_t> positions{0};
    while (positions.back() < text.size()) {
        const std::string_view rest = text.substr(positions.back());
        positions.push_back(positions.back() + CodePage::System().CharacterLength(rest));
    }
    return positions;
}

void CutToCharactersOf(const CString& typed, CString& key) {
    const std::vector<std::size_t> positions = Positions(key.View());
    const std::size_t count = std::min(Positions(typed.View()).size(), positions.size());
    key.Bytes().resize(positions[count - 1]);
}

// The comparison as the rule tells it, of the whole key: both are folded, and the key is cut.
int CompareFolded(const CString& typed, CString key, KeyCut cut, KeyMatch match) {
    if (GetACP() == kUtf8CodePage) {
        CutToCharactersOf(typed, key);
    } else if (cut == KeyCut::Inc) {
        LeftAndValidateInc(key, typed.GetLength());
    } else {
        LeftAndValidateDec(key, typed.GetLength());
    }
    return CompareStringA(LOCALE_SYSTEM_DEFAULT, static_cast<unsigned>(match), typed,
                          typed.GetLength(), key, key.GetLength()) -
           CSTR_EQUAL;
}

// Made whole and folded once for all comparisons.
CString FoldedKey(const CAddressRecord* record, KeyFields fields, long listBy) {
    CString key;
    MakeRecordKey(record, fields, listBy, key);
    ToFullwidthAndHira(key);
    return key;
}

// A text of its own, or the start of a key of the records, so that some are found.
CString RandomTyped(const std::vector<std::unique_ptr<CAddressRecord>>& records,
                    std::mt19937& random) {
    if (random() % 2 == 0) return SystemText(RandomText(random));
    CString key;
    MakeRecordKey(records[random() % records.size()].get(),
                  random() % 2 == 0 ? KeyFields::Plain : KeyFields::Reading, kListByName, key);
    if (random() % 2 == 0) key.MakeUpper();
    LeftAndValidateInc(key, static_cast<int>(random() % 8));
    return key;
}

constexpr LocaleCase kLocales[] = {{"en-US", 65001}, {"sv-SE", 65001}, {"cs-CZ", 65001},
                                   {"ja-JP", 65001}, {"ja-JP", 932},   {"de-DE", 1252}};

class LookupKeys : public testing::TestWithParam<LocaleCase> {};
INSTANTIATE_TEST_SUITE_P(Locales, LookupKeys, testing::ValuesIn(kLocales));

TEST_P(LookupKeys, CompareAsWholeKeysDo) {
    const LocaleInForce locale(GetParam().tag, GetParam().codePage);
    AddressFixture addresses;
    std::mt19937 random(5);
    std::vector<std::unique_ptr<CAddressRecord>> records(1);  // and an item without a record
    for (int i = 0; i < 100; ++i) records.push_back(RandomPerson(addresses, random));
    std::vector<CString> texts;
    for (int i = 0; i < 30; ++i) texts.push_back(RandomTyped(records, random));

    std::map<int, int> seen;
    for (const long listBy : {kListByCompany, kListByName}) {
        std::vector<std::map<KeyFields, CString>> keys;
        for (const auto& record : records) {
            auto& ofRecord = keys.emplace_back();
            for (const KeyFields fields : {KeyFields::Plain, KeyFields::Reading}) {
                ofRecord[fields] = FoldedKey(record.get(), fields, listBy);
            }
        }
        for (const CString& typed : texts) {
            CString folded = typed;
            ToFullwidthAndHira(folded);
            for (const KeyMatch match : {KeyMatch::Case, KeyMatch::CaseAndAccents}) {
                LookupKey key(typed, listBy, match);
                for (std::size_t i = 0; i < records.size(); ++i) {
                    for (const auto& [fields, whole] : keys[i]) {
                        for (const KeyCut cut : {KeyCut::Dec, KeyCut::Inc}) {
                            const int want = CompareFolded(folded, whole, cut, match);
                            ++seen[want];
                            ASSERT_EQ(key.Compare(records[i].get(), fields, cut), want)
                                << "<" << ToUtf8(typed) << "> <" << ToUtf8(whole) << ">";
                        }
                    }
                }
            }
        }
    }
    for (const int result : {-1, 0, 1}) EXPECT_GT(seen[result], 100);
}

}  // namespace
}  // namespace orvo
