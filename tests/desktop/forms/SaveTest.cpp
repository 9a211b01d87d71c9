// How forms save, and what happens where they can't.
// SPDX-License-Identifier: MIT
#include <QLineEdit>

#include <desktop/forms/AddressForm.h>
#include <desktop/forms/FormFixture.h>

namespace orvo::desktop {
namespace {

using testing::HasSubstr;

class SaveTest : public testing::Test, protected FormStore {
protected:
    SaveTest() {
        record.SetUtf8(AddressField::Name, "Ann");
        record.SetSource("imported", "from", {SharedText("as ")});
        own.addresses.Add(record);
        other.addresses.Find(record.GetId(), theirs);
    }
    bool Edit(std::deque<Hands::Step> steps) {
        const Hands hands(std::move(steps));
        return EditAddress(nullptr, own.addresses, record);
    }
    std::string Stored(AddressField field) {
        CAddressRecord present(other.addresses);
        EXPECT_EQ(other.addresses.Find(record.GetId(), present), 0);
        return std::string(present.Utf8(field));
    }

    CAddressRecord record{own.addresses};
    CAddressRecord theirs{other.addresses};
};

void TypeBob(QDialog& form) {
    Type(form, "name", "Bob");
}

Hands::Step ExpectMessage(const char* part) {
    return [part](QDialog& box) {
        EXPECT_THAT(dynamic_cast<QMessageBox&>(box).text().toStdString(), HasSubstr(part));
        Ok(box);
    };
}

TEST_F(SaveTest, WhatOthersChangedMeanwhileStays) {
    const bool isSaved = Edit({[this](QDialog& form) {
        theirs.SetUtf8(AddressField::City, "Oslo");
        TypeBob(form);
        Save(form);
    }});

    EXPECT_TRUE(isSaved);
    EXPECT_EQ(Stored(AddressField::Name), "Bob");
    EXPECT_EQ(Stored(AddressField::City), "Oslo");
}

TEST_F(SaveTest, ALockedStoreLeavesTheFormAsItIsUntilASecondTry) {
    const bool isSaved = Edit({[this](QDialog& form) {
                                   TypeBob(form);
                                   Type(form, "note", "kept");
                                   EXPECT_EQ(other.engine->Begin(), StoreStatus::Ok);
                                   Save(form);
                               },
                               ExpectMessage("Another program is writing"),
                               [this](QDialog& form) {
                                   other.engine->Rollback();
                                   EXPECT_EQ(Field<QLineEdit>(form, "name").text(), "Bob");
                                   EXPECT_EQ(record.Utf8(AddressField::Name), "Ann");
                                   Save(form);
                               }});

    EXPECT_TRUE(isSaved);
    EXPECT_EQ(Stored(AddressField::Name), "Bob");
    std::string note;
    record.GetNoteUtf8(note);
    EXPECT_EQ(note, "kept");
}

TEST_F(SaveTest, ARecordThatIsGoneIsSavedAsANewOne) {
    struct Row {
        const char* why;
        long (CBaseTable::*end)(CBaseRecord&);
    };
    constexpr Row kRows[] = {{"deleted", &CBaseTable::Delete}, {"removed", &CBaseTable::Remove}};
    for (const Row& row : kRows) {
        const std::int64_t before = record.GetId();
        ASSERT_EQ(other.addresses.Find(before, theirs), 0) << row.why;

        const bool isSaved = Edit({[&](QDialog& form) {
                                       ASSERT_EQ((other.addresses.*row.end)(theirs), 0);
                                       Type(form, "city", row.why);
                                       Save(form);
                                   },
                                   [](QDialog& box) { Press(box, "Save as new"); }});

        EXPECT_TRUE(isSaved) << row.why;
        EXPECT_NE(record.GetId(), before) << row.why;
        EXPECT_EQ(Stored(AddressField::Name), "Ann") << row.why;
        EXPECT_EQ(Stored(AddressField::City), row.why);
        std::string source;
        record.GetSource(source);
        EXPECT_EQ(source, "as imported") << row.why;
    }
}

TEST_F(SaveTest, ClosingAsksOnlyAfterAChange) {
    EXPECT_FALSE(Edit({Escape}));
    EXPECT_FALSE(Edit({[](QDialog& form) {
                           TypeBob(form);
                           form.close();
                       },
                       [](QDialog& box) { Press(box, "Cancel"); },
                       [](QDialog& form) {
                           EXPECT_EQ(Field<QLineEdit>(form, "name").text(), "Bob");
                           Escape(form);
                       },
                       Discard}));
    EXPECT_EQ(Stored(AddressField::Name), "Ann");

    EXPECT_TRUE(Edit({[](QDialog& form) {
                          TypeBob(form);
                          Press(form, "Cancel");
                      },
                      Save}));
    EXPECT_EQ(Stored(AddressField::Name), "Bob");
}

TEST_F(SaveTest, ReturnSavesFromALineAndWithControlFromTheNote) {
    EXPECT_TRUE(Edit({[](QDialog& form) {
        TypeBob(form);
        QTest::keyClick(&Field<QWidget>(form, "name"), Qt::Key_Return);
    }}));
    EXPECT_TRUE(Edit({[](QDialog& form) {
        QTest::keyClicks(&Field<QWidget>(form, "note"), "n");
        QTest::keyClick(&Field<QWidget>(form, "note"), Qt::Key_Return, Qt::ControlModifier);
    }}));
    std::string note;
    record.GetNoteUtf8(note);
    EXPECT_EQ(note, "n");
}

TEST_F(SaveTest, AFormThatChangesNothingWritesNothing) {
    const std::int64_t version = other.engine->ForeignVersion();

    EXPECT_TRUE(Edit({Save}));

    EXPECT_EQ(other.engine->ForeignVersion(), version);
}

}  // namespace
}  // namespace orvo::desktop
