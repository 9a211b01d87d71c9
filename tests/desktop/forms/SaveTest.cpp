// How forms save, and what happens where they can't.
// SPDX-License-Identifier: MIT
#include <desktop/forms/FormDialog.h>
#include <desktop/forms/FormFixture.h>

namespace orvo::desktop {
namespace {

class SaveTest : public AddressFormFixture {
protected:
    SaveTest() {
        record.SetUtf8(AddressField::Name, "Ann");
        record.SetSource("imported", "from", {SharedText("as ")});
        own.addresses.Add(record);
        other.addresses.Find(record.GetId(), theirs);
    }

    CAddressRecord theirs{other.addresses};
};

void TypeBob(QDialog& form) {
    Type(form, "name", "Bob");
}

TEST_F(SaveTest, WhatOthersChangedMeanwhileStays) {
    Save([this](QDialog& form) {
        theirs.SetUtf8(AddressField::City, "Oslo");
        TypeBob(form);
    });

    EXPECT_EQ(Stored(AddressField::Name), "Bob");
    EXPECT_EQ(Stored(AddressField::City), "Oslo");
}

// Somebody else's edits come into the form while the user types.
TEST_F(SaveTest, UntouchedFieldsShowTheirsAndTheUserIsAskedAboutWhatBothChanged) {
    struct {
        const char* button;
        const char* wanted;
    } const rows[] = {{"Keep mine", "Bob"}, {"Take theirs", "Carl"}};
    for (const auto& row : rows) {
        theirs.SetUtf8(AddressField::Name, "Ann");
        ASSERT_EQ(own.addresses.Find(record.GetId(), record), 0);

        EXPECT_TRUE(Edit({[&](QDialog& form) {
                              TypeBob(form);
                              theirs.SetUtf8(AddressField::Name, "Carl");
                              theirs.SetUtf8(AddressField::City, "Oslo");
                              dynamic_cast<FormDialog&>(form).TakeForeign();
                              EXPECT_EQ(Field<QLineEdit>(form, "city").text(), "Oslo");
                              EXPECT_EQ(Field<QLineEdit>(form, "name").text(), "Bob");
                              EXPECT_FALSE(Field<QWidget>(form, "foreign").isHidden());
                              desktop::Save(form);
                          },
                          Pressing("Cancel"), [](QDialog& form) { desktop::Save(form); },
                          Pressing(row.button)}));

        EXPECT_EQ(Stored(AddressField::Name), row.wanted);
        EXPECT_EQ(Stored(AddressField::City), "Oslo");
    }
}

TEST_F(SaveTest, WhatOthersPutIntoTheTrashCanBeBroughtBack) {
    const std::int64_t before = record.GetId();

    EXPECT_TRUE(Edit({[&](QDialog& form) {
                          other.addresses.Delete(theirs);
                          TypeBob(form);
                          desktop::Save(form);
                      },
                      Pressing("Bring it back")}));

    EXPECT_EQ(record.GetId(), before);
    EXPECT_EQ(FormHands::Stored()->IsDeleted(), 0);
    EXPECT_EQ(Stored(AddressField::Name), "Bob");
}

TEST_F(SaveTest, ARecordThatIsGoneIsSavedAsANewOne) {
    struct {
        const char* why;
        long (CBaseTable::*end)(CBaseRecord&);
    } const rows[] = {{"deleted", &CBaseTable::Delete}, {"removed", &CBaseTable::Remove}};
    for (const auto& row : rows) {
        const std::int64_t before = record.GetId();
        ASSERT_EQ(other.addresses.Find(before, theirs), 0) << row.why;

        EXPECT_TRUE(Edit({[&](QDialog& form) {
                              ASSERT_EQ((other.addresses.*row.end)(theirs), 0);
                              Type(form, "city", row.why);
                              desktop::Save(form);
                          },
                          Pressing("Save as new")}));

        EXPECT_NE(record.GetId(), before) << row.why;
        EXPECT_EQ(Stored(AddressField::Name), "Ann") << row.why;
        EXPECT_EQ(Stored(AddressField::City), row.why);
        EXPECT_EQ(SourceOf(record), "as imported") << row.why;
    }
}

TEST_F(SaveTest, ClosingAsksOnlyAfterAChange) {
    EXPECT_FALSE(Edit({Escape}));
    EXPECT_FALSE(Edit({[](QDialog& form) {
                           TypeBob(form);
                           form.close();
                       },
                       Pressing("Cancel"),
                       [](QDialog& form) {
                           EXPECT_EQ(Field<QLineEdit>(form, "name").text(), "Bob");
                           Escape(form);
                       },
                       Pressing("Discard")}));
    EXPECT_EQ(Stored(AddressField::Name), "Ann");

    EXPECT_TRUE(Edit({[](QDialog& form) {
                          TypeBob(form);
                          Press(form, "Cancel");
                      },
                      Pressing("Save")}));
    EXPECT_EQ(Stored(AddressField::Name), "Bob");
}

TEST_F(SaveTest, AFormThatChangesNothingWritesNothing) {
    const std::int64_t version = other.engine->ForeignVersion();

    EXPECT_TRUE(Edit({Pressing("Save")}));

    EXPECT_EQ(other.engine->ForeignVersion(), version);
}

}  // namespace
}  // namespace orvo::desktop
