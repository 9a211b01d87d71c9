// What becomes of duplicates, as the user decides it.
// SPDX-License-Identifier: MIT
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>

#include <contract/StoreFolder.h>
#include <desktop/import/DuplicatesDialog.h>
#include <desktop/store/StoreSession.h>

#include "../forms/FormFixture.h"

namespace orvo::desktop {
namespace {

using testing::ElementsAre;

class DuplicatesDialogTest : public testing::Test {
protected:
    DuplicatesDialogTest() {
        for (const char* const city : {"Ulm", "", "Bonn", "Kiel"}) {
            CAddressRecord record(session->Addresses());
            record.SetUtf8(AddressField::Name, "Lee");
            record.SetUtf8(AddressField::City, city);
            record.SetUtf8(PhoneField(1), "1234567");
            EXPECT_EQ(session->Addresses().Add(record), 0);
        }
    }

    bool Show(std::deque<Hands::Step> steps, const std::vector<DuplicatePair>& pairs) {
        const Hands hands(std::move(steps));
        return ShowDuplicates(nullptr, session->Addresses(), pairs, DuplicateOrigin::Import,
                              [this](const std::string& name, const std::function<long()>& run) {
                                  return session->Change(name, run);
                              });
    }

    std::vector<std::string> Cities() {
        std::vector<std::string> cities;
        CAddressRecord record(session->Addresses());
        CAddressIterator iterator(session->Addresses());
        for (long status = iterator.FindFirst(record); status == 0;
             status = iterator.FindNext(record)) {
            cities.emplace_back(record.Utf8(AddressField::City));
        }
        return cities;
    }

    StoreFolder folder;
    std::string error;
    std::unique_ptr<StoreSession> session = StoreSession::Open(folder.Path(), error);
};

const std::vector<DuplicatePair> kPairs{{1, 2}, {1, 3}, {3, 4}};

}  // namespace

TEST_F(DuplicatesDialogTest, EachPairIsDecidedByItself) {
    std::vector<std::string> counts;
    const auto pressing = [&](const char* button) {
        return [&counts, button](QDialog& dialog) {
            counts.push_back(dialog.findChild<QLabel*>()->text().toStdString());
            Press(dialog, button);
        };
    };
    EXPECT_TRUE(Show({pressing("Merge"), pressing("Keep both"), pressing("Skip the imported one")},
                     kPairs));
    EXPECT_THAT(counts, ElementsAre("1 of 3", "2 of 3", "3 of 3"));
    EXPECT_THAT(Cities(), ElementsAre("Ulm", "Bonn"));
    session->Undo();
    EXPECT_THAT(Cities(), ElementsAre("Ulm", "Bonn", "Kiel"));
    session->Undo();
    EXPECT_THAT(Cities(), ElementsAre("Ulm", "", "Bonn", "Kiel"));
}

TEST_F(DuplicatesDialogTest, ADecisionForAllIsOneStepAndFollowsWhatWasMerged) {
    EXPECT_TRUE(Show({[](QDialog& dialog) {
                         dialog.findChild<QCheckBox*>()->setChecked(true);
                         Press(dialog, "Merge");
                     }},
                     kPairs));
    EXPECT_THAT(Cities(), ElementsAre("Ulm"));
    CAddressRecord record(session->Addresses());
    ASSERT_EQ(session->Addresses().Find(1, record), 0);
    EXPECT_EQ(NoteOf(record), "City: Bonn\nCity: Kiel");
    session->Undo();
    EXPECT_THAT(Cities(), ElementsAre("Ulm", "", "Bonn", "Kiel"));
}

TEST_F(DuplicatesDialogTest, ClosingLeavesTheRestAndWhatIsGoneIsPassedOver) {
    CAddressRecord record(session->Addresses());
    ASSERT_EQ(session->Addresses().Find(2, record), 0);
    ASSERT_EQ(session->Addresses().Delete(record), 0);
    EXPECT_FALSE(Show({[](QDialog& dialog) {
                          EXPECT_EQ(dialog.findChild<QLabel*>()->text(), "2 of 3");
                          Escape(dialog);
                      }},
                      kPairs));
    EXPECT_FALSE(Show({}, {{1, 2}}));
    EXPECT_THAT(Cities(), ElementsAre("Ulm", "Bonn", "Kiel"));
}

TEST_F(DuplicatesDialogTest, WhatDiffersCanBeChosenByKeys) {
    const auto choose = [](QDialog& dialog) {
        const auto radios = dialog.findChildren<QRadioButton*>();
        ASSERT_EQ(radios.size(), 2);  // the name and the number are alike
        EXPECT_EQ(radios[1]->accessibleName(), "Address, Imported: Bonn");
        EXPECT_TRUE(radios[0]->isChecked());
        Button(dialog, "Merge")->setFocus();
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        ASSERT_EQ(dialog.focusWidget(), radios[0]);
        QTest::keyClick(radios[1], Qt::Key_Space);
        Press(dialog, "Merge");
    };
    EXPECT_TRUE(Show({choose}, {{1, 3}}));
    EXPECT_THAT(Cities(), ElementsAre("Bonn", "", "Kiel"));
}

TEST_F(DuplicatesDialogTest, WhatTheStoreRefusesIsToldAndChangesNothing) {
    const auto told = [](QDialog& dialog) {
        const QString text = dynamic_cast<QMessageBox&>(dialog).text();
        EXPECT_EQ(text, "Nothing was changed.\n\nstore: the <disk> is full");
        Ok(dialog);
    };
    const auto isStillThere = [](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLabel*>()->text(), "1 of 3");
        Escape(dialog);
    };
    const Hands hands({Pressing("Merge"), told, isStillThere});
    EXPECT_FALSE(ShowDuplicates(nullptr, session->Addresses(), kPairs, DuplicateOrigin::Store,
                                [](const std::string&, const std::function<long()>&) {
                                    return "store: the <disk> is full";
                                }));
}

TEST(ReviewQuestion, LeadsToTheReviewOrKeepsAll) {
    for (const bool isReviewed : {true, false}) {
        const Hands hands({[&](QDialog& dialog) {
            EXPECT_EQ(dynamic_cast<QMessageBox&>(dialog).text(),
                      "12 possible duplicates were found.");
            Press(dialog, isReviewed ? "Review..." : "Keep all");
        }});
        EXPECT_EQ(AskToReview(nullptr, 12), isReviewed);
    }
}

}  // namespace orvo::desktop
