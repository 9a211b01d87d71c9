// The form of an address.
// SPDX-License-Identifier: MIT
#include <QComboBox>
#include <QDropEvent>
#include <QMimeData>
#include <QRadioButton>

#include <desktop/forms/FormFixture.h>
#include <support/LocaleInForce.h>
#include <support/WithoutStamps.h>

namespace orvo::desktop {
namespace {

using AddressFormTest = AddressFormFixture;

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

    Save([](QDialog& form) {
        for (const TypedField& typed : kTyped) Type(form, typed.name, typed.text);
        Type(form, "note", "one\n\ntwo\u00A0three");
        Press(form, "Private");
    });

    for (const TypedField& typed : kTyped) {
        EXPECT_EQ(Stored(typed.field), typed.text) << typed.name;
    }
    EXPECT_EQ(NoteOf(record), "one\n\ntwo\u00A0three");
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

    Save([](QDialog& form) {
        Field<QComboBox>(form, "label2").setFocus();
        QTest::keyClick(&Field<QComboBox>(form, "label2"), Qt::Key_End);
        Field<QRadioButton>(form, "shown4").setChecked(true);
    });

    const auto present = FormHands::Stored();
    const auto label = [&](long slot) {
        long number = -1;
        EXPECT_EQ(present->GetPhoneLabelID(slot, number), 0);
        return number;
    };
    EXPECT_EQ(label(1), 0);
    EXPECT_EQ(label(2), own.addresses.GetPhoneLabelCount() - 1);
    EXPECT_EQ(ValueOf(*present, &CAddressRecord::GetDisplayPhone), 4);
}

TEST_F(AddressFormTest, LineBreaksStayWhereAFieldIsLeftAlone) {
    constexpr std::pair<AddressField, const char*> kTexts[] = {
        {AddressField::Name, "Ann\r\nLee\n"},
        {AddressField::Company, "A\u2028B\u2029C\tD"},
        {AddressField::Address, "a\r\nb\rc\u2028d\u00A0"},
    };
    for (const auto& [field, text] : kTexts) record.SetUtf8(field, text);
    own.addresses.Add(record);

    Save([](QDialog& form) { Type(form, "city", "Oslo"); });

    for (const auto& [field, text] : kTexts) EXPECT_EQ(Stored(field), text);
    EXPECT_EQ(Stored(AddressField::City), "Oslo");
}

TEST_F(AddressFormTest, AnEditedFieldKeepsItsOtherLineBreaks) {
    record.SetUtf8(AddressField::Name, "Ann\nLee");
    record.SetUtf8(AddressField::Address, "a\r\nb");
    own.addresses.Add(record);

    Save([](QDialog& form) {
        Append(form, "name", "!");
        Append(form, "address", "");
        QTest::keyClick(&Field<QWidget>(form, "address"), Qt::Key_Return);
        Append(form, "address", "c");
    });

    EXPECT_EQ(Stored(AddressField::Name), "Ann\nLee!");
    EXPECT_EQ(Stored(AddressField::Address), "a\r\nb\r\nc");
}

// The field of a row that only the card holds.
QLineEdit& RowField(QDialog& form, const QString& name) {
    for (auto* field : form.findChildren<QLineEdit*>()) {
        if (field->accessibleName() == name) return *field;
    }
    throw std::runtime_error("no row " + name.toStdString());
}

TEST_F(AddressFormTest, ARowFindsItsLineOnACardThatHasBecomeAnotherMeanwhile) {
    record.SetSource("BEGIN:VCARD\nVERSION:3.0\nN:Lee\nX-SPOUSE:Bob\nEND:VCARD\n", "");
    own.addresses.Add(record);

    Save([this](QDialog& form) {
        const auto theirs = FormHands::Stored();
        theirs->SetSource("BEGIN:VCARD\nVERSION:3.0\nX-NEW:1\nN:Lee\nX-SPOUSE:Bob\nEND:VCARD\n",
                          "");
        RowField(form, "Relation").setText("Tom");
    });

    EXPECT_EQ(WithoutStamps(SourceOf(*FormHands::Stored())),
              "BEGIN:VCARD\nVERSION:3.0\nX-NEW:1\nN:Lee\nX-SPOUSE:Tom\nEND:VCARD\n");
}

TEST_F(AddressFormTest, ACardIsSavedAsNewWithThePictureThatWasDroppedOnIt) {
    record.SetSource("BEGIN:VCARD\nVERSION:3.0\nN:Lee\nX-KEPT:1\nEND:VCARD\n", "");
    own.addresses.Add(record);
    QMimeData picture;
    picture.setImageData(QImage(2, 2, QImage::Format_RGB32));

    EXPECT_TRUE(Edit({[&](QDialog& form) {
                          other.addresses.Delete(*FormHands::Stored());
                          auto& photo = Field<QWidget>(form, "photo");
                          QDragEnterEvent enter({}, Qt::CopyAction, &picture, Qt::LeftButton, {});
                          QApplication::sendEvent(&photo, &enter);
                          QDropEvent drop({}, Qt::CopyAction, &picture, Qt::LeftButton, {});
                          QApplication::sendEvent(&photo, &drop);
                          desktop::Save(form);
                      },
                      Pressing("Save as new")}));

    EXPECT_THAT(SourceOf(record), testing::ContainsRegex("X-KEPT:1\nPHOTO;.*\nEND:VCARD"));
}

TEST_F(AddressFormTest, LongTextsStayWhole) {
    const std::string name(100'000, 'n');
    std::string note;
    while (note.size() < 1'000'000) note += "a line of a long note\n";
    record.SetUtf8(AddressField::Name, name);
    record.SetNoteUtf8(note);
    own.addresses.Add(record);

    Save([](QDialog& form) {
        Append(form, "name", "x");
        Append(form, "note", "x");
    });

    EXPECT_TRUE(Stored(AddressField::Name) == name + "x");
    EXPECT_TRUE(NoteOf(record) == note + "x");
}

}  // namespace
}  // namespace orvo::desktop
