// The form of an address.
// SPDX-License-Identifier: MIT
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

#include <desktop/forms/AddressForm.h>
#include <desktop/forms/FormFixture.h>
#include <support/LocaleInForce.h>

namespace orvo::desktop {
namespace {

class AddressFormTest : public testing::Test, protected FormStore {
protected:
    // What the store holds.
    std::string Stored(AddressField field) {
        CAddressRecord present(other.addresses);
        EXPECT_EQ(other.addresses.Find(record.GetId(), present), 0);
        return std::string(present.Utf8(field));
    }
    bool Edit(std::deque<Hands::Step> steps) {
        const Hands hands(std::move(steps));
        return EditAddress(nullptr, own.addresses, record);
    }

    CAddressRecord record{own.addresses};
};

struct TypedField {
    const char* name;
    AddressField field;
    const char* text;
};
constexpr TypedField kTyped[] = {
    {"name", AddressField::Name, "Ångström & \"Söhne\""},
    {"nameReading", AddressField::NameYomi, "おんぐすとろーむ"},
    {"first", AddressField::First, "דוד"},
    {"firstReading", AddressField::FirstYomi, "だびで"},
    {"company", AddressField::Company, "株式会社 𠮷野家"},
    {"companyReading", AddressField::CompanyYomi, "よしのや"},
    {"title", AddressField::Title, "Ärztin"},
    {"phone1", AddressField::Phone1, "+81 3 1234"},
    {"phone2", PhoneField(2), "0171"},
    {"phone3", PhoneField(3), "३"},
    {"phone4", PhoneField(4), "-"},
    {"phone5", AddressField::Phone5, "a@b.example"},
    {"address", AddressField::Address, "Straße 1\nHinterhaus"},
    {"city", AddressField::City, "القاهرة"},
    {"state", AddressField::State, "दिल्ली"},
    {"zipCode", AddressField::ZipCode, "〒100"},
    {"country", AddressField::Country, "ไทย"},
    {"custom1", AddressField::Custom1, "1"},
    {"custom2", CustomField(2), "👩‍👩‍👧"},
    {"custom3", CustomField(3), "<b>3</b>"},
    {"custom4", AddressField::Custom4, "%1"},
};

TEST_F(AddressFormTest, ANewAddressHoldsWhatWasTypedInAnyScript) {
    const LocaleInForce japanese("ja-JP");

    const bool isSaved = Edit({[](QDialog& form) {
        for (const TypedField& typed : kTyped) Type(form, typed.name, typed.text);
        Type(form, "note", "one\n\ntwo\u00A0three");
        Press(form, "Private");
        Save(form);
    }});

    ASSERT_TRUE(isSaved);
    for (const TypedField& typed : kTyped) {
        EXPECT_EQ(Stored(typed.field), typed.text) << typed.name;
    }
    std::string note;
    record.GetNoteUtf8(note);
    EXPECT_EQ(note, "one\n\ntwo\u00A0three");
    EXPECT_TRUE(record.IsPrivate());
}

TEST_F(AddressFormTest, ReadingsShowInJapaneseAndWhereThereAreSome) {
    struct Row {
        const char* why;
        const char* locale;
        const char* reading;
        bool want;
    };
    constexpr Row kRows[] = {{"Japanese names have readings", "ja-JP", "", true},
                             {"others have none", "en-US", "", false},
                             {"but what is there can be seen", "en-US", "やまだ", true}};
    for (const Row& row : kRows) {
        const LocaleInForce locale(row.locale);
        record.SetUtf8(AddressField::FirstYomi, row.reading);
        bool isShown = false;
        Edit({[&](QDialog& form) {
            const auto* field = form.findChild<QLineEdit*>("nameReading");
            isShown = field != nullptr && field->isVisible();
            Escape(form);
        }});
        EXPECT_EQ(isShown, row.want) << row.why;
    }
}

TEST_F(AddressFormTest, LabelAndPhoneOfListsAreKept) {
    own.addresses.Add(record);

    ASSERT_TRUE(Edit({[](QDialog& form) {
        Field<QComboBox>(form, "label2").setFocus();
        QTest::keyClick(&Field<QComboBox>(form, "label2"), Qt::Key_End);
        Field<QRadioButton>(form, "shown4").setChecked(true);
        Save(form);
    }}));

    CAddressRecord present(other.addresses);
    ASSERT_EQ(other.addresses.Find(record.GetId(), present), 0);
    long label = -1;
    long shown = -1;
    present.GetPhoneLabelID(2, label);
    present.GetDisplayPhone(shown);
    EXPECT_EQ(label, own.addresses.GetPhoneLabelCount() - 1);
    EXPECT_EQ(shown, 4);
    present.GetPhoneLabelID(1, label);
    EXPECT_EQ(label, 0);
}

TEST_F(AddressFormTest, LineBreaksStayWhereAFieldIsLeftAlone) {
    struct Row {
        const char* why;
        const char* name;
        AddressField field;
        const char* text;
    };
    constexpr Row kRows[] = {
        {"a name may be imported with a line break", "name", AddressField::Name, "Ann\r\nLee\n"},
        {"separators of Unicode too", "company", AddressField::Company, "A\u2028B\u2029C\tD"},
        {"line ends of other systems", "address", AddressField::Address, "a\r\nb\rc\u2028d\u00A0"},
    };
    for (const Row& row : kRows) record.SetUtf8(row.field, row.text);
    own.addresses.Add(record);

    ASSERT_TRUE(Edit({[](QDialog& form) {
        Type(form, "city", "Oslo");
        Save(form);
    }}));

    for (const Row& row : kRows) EXPECT_EQ(Stored(row.field), row.text) << row.why;
    EXPECT_EQ(Stored(AddressField::City), "Oslo");
}

TEST_F(AddressFormTest, AnEditedFieldKeepsItsOtherLineBreaks) {
    record.SetUtf8(AddressField::Name, "Ann\nLee");
    record.SetUtf8(AddressField::Address, "a\r\nb");
    own.addresses.Add(record);

    ASSERT_TRUE(Edit({[](QDialog& form) {
        QTest::keyClick(&Field<QWidget>(form, "name"), Qt::Key_End);
        QTest::keyClicks(&Field<QWidget>(form, "name"), "!");
        QTest::keyClick(&Field<QWidget>(form, "address"), Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(&Field<QWidget>(form, "address"), Qt::Key_Return);
        QTest::keyClicks(&Field<QWidget>(form, "address"), "c");
        Save(form);
    }}));

    EXPECT_EQ(Stored(AddressField::Name), "Ann\nLee!");
    EXPECT_EQ(Stored(AddressField::Address), "a\r\nb\r\nc");
}

TEST_F(AddressFormTest, LongTextsStayWhole) {
    const std::string name(100'000, 'n');
    std::string note;
    while (note.size() < 1'000'000) note += "a line of a long note\n";
    record.SetUtf8(AddressField::Name, name);
    record.SetNoteUtf8(note);
    own.addresses.Add(record);

    ASSERT_TRUE(Edit({[](QDialog& form) {
        QTest::keyClick(&Field<QWidget>(form, "name"), Qt::Key_End);
        QTest::keyClicks(&Field<QWidget>(form, "name"), "x");
        QTest::keyClick(&Field<QWidget>(form, "note"), Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(&Field<QWidget>(form, "note"), "x");
        Save(form);
    }}));

    EXPECT_TRUE(Stored(AddressField::Name) == name + "x");
    std::string present;
    record.GetNoteUtf8(present);
    EXPECT_TRUE(present == note + "x");
}

}  // namespace
}  // namespace orvo::desktop
