// A test of undo and redo by operations at random, on every engine.
// SPDX-License-Identifier: MIT
#include <functional>
#include <random>
#include <vector>

#include "HistoryFixture.h"

namespace orvo::desktop {

using TextKind = StoreEngine::TextKind;

template <class Engine>
class RandomHistory : public HistoryFixture<Engine> {
protected:
    int Random(int below) { return std::uniform_int_distribution(0, below - 1)(m_random); }

    std::string RandomText() {
        static const std::string kTexts[] = {
            "", "Ito", "佐藤", "two\nlines", std::string("a\0b", 3), std::string(300, 'x'), "Ωmega",
        };
        return kTexts[Random(std::size(kTexts))];
    }

    std::int64_t AnyId() { return 1 + Random(40); }

    void Add() {
        if (Random(2) == 0) {
            CToDoRecord record(this->toDos);
            record.SetDescriptionUtf8(RandomText());
            EXPECT_EQ(this->toDos.Add(record), 0);
            return;
        }
        CAddressRecord record(this->addresses);
        record.SetUtf8(AddressField::Name, RandomText());
        record.SetNoteUtf8(RandomText());
        record.SetSource(RandomText(), RandomText(), {SharedText(RandomText())});
        EXPECT_EQ(this->addresses.Add(record), 0);
    }

    void ChangeRecord(CBaseTable& table, CBaseRecord& record) {
        switch (Random(10)) {
            case 0:
                EXPECT_EQ(record.SetCategoryId(Random(16)), 0);
                break;
            case 1:
                EXPECT_EQ(record.SetPlacementPos(Random(4)), 0);
                break;
            case 2:
                EXPECT_EQ(record.SetPrivate(Random(2)), 0);
                break;
            case 3:
                EXPECT_EQ(record.SetArchived(Random(2)), 0);
                break;
            case 4:
                EXPECT_EQ(record.SetNoteUtf8(RandomText()), 0);
                break;
            case 5:
                EXPECT_EQ(record.SetSource(RandomText(), RandomText(), {SharedText(RandomText())}),
                          0);
                break;
            case 6:
                EXPECT_EQ(table.Delete(record), 0);
                break;
            case 7:
                EXPECT_EQ(table.Undelete(record), 0);
                break;
            default:
                EXPECT_EQ(table.Remove(record), 0);
        }
    }

    void ChangeAddress() {
        CAddressRecord record(this->addresses);
        if (this->addresses.Find(AnyId(), record) != 0) return;
        switch (Random(4)) {
            case 0:
                EXPECT_EQ(record.SetUtf8(CustomField(1 + Random(4)), RandomText()), 0);
                break;
            case 1:
                EXPECT_EQ(record.SetPhoneLabelID(1 + Random(5), Random(8)), 0);
                break;
            default:
                ChangeRecord(this->addresses, record);
        }
    }

    void ChangeToDo() {
        CToDoRecord record(this->toDos);
        if (this->toDos.Find(AnyId(), record) != 0) return;
        switch (Random(6)) {
            case 0:
                EXPECT_EQ(record.SetDescriptionUtf8(RandomText()), 0);
                break;
            case 1:
                EXPECT_EQ(record.SetPriority(1 + Random(5)), 0);
                break;
            case 2:
                EXPECT_EQ(record.SetDueDate(Random(2) == 0 ? maxDate() : 1'790'000'000), 0);
                break;
            case 3:
                EXPECT_EQ(record.SetCompleted(Random(2), Random(2)), 0);
                break;
            default:
                ChangeRecord(this->toDos, record);
        }
    }

    void ChangeText() {
        StoreEngine& recorded = this->history.Engine();
        switch (Random(5)) {
            case 0:
                this->AddCategory("c" + std::to_string(Random(20)));  // it may be taken or full
                break;
            case 1:
                EXPECT_EQ(recorded.WriteText(TableKind::ToDo, TextKind::Category, Random(3),
                                             RandomText()),
                          StoreStatus::Ok);
                break;
            case 2:
                EXPECT_EQ(recorded.RemoveText(TableKind::ToDo, TextKind::Category, Random(3)),
                          StoreStatus::Ok);
                break;
            case 3:
                EXPECT_EQ(this->addresses.SetPhoneLabel(this->addresses.GetPhoneLabelCount(), "x"),
                          0);
                break;
            default:
                EXPECT_EQ(this->addresses.SetCustomLabel(1 + Random(4), "Custom"), 0);
        }
    }

    void ChangeOne() {
        const int choice = Random(10);
        if (choice < 3) {
            Add();
        } else if (choice < 6) {
            ChangeAddress();
        } else if (choice < 9) {
            ChangeToDo();
        } else {
            ChangeText();
        }
    }

    void ChangeSome() {
        for (int count = Random(8); count > 0; --count) ChangeOne();
    }

    // One operation, at most one step.
    void Operate() {
        switch (Random(8)) {
            case 0: {
                const EditHistory::Step step(this->history, "several");
                ChangeSome();
                break;
            }
            case 1: {
                const EditHistory::Step step(this->history, "of two transactions");
                ChangeInTransaction(true);
                ChangeInTransaction(Random(2) == 0);
                break;
            }
            case 2:
                ChangeInTransaction(Random(2) == 0);
                break;
            default:
                ChangeOne();
        }
    }

    void ChangeInTransaction(bool isKept) {
        StoreTransaction transaction(this->history.Engine());
        ChangeSome();
        if (isKept) {
            EXPECT_EQ(transaction.Commit(), StoreStatus::Ok);
            return;
        }
        this->history.Engine().Rollback();
        Refresh();
    }

    void Refresh() {
        this->addresses.RefreshTexts();
        this->toDos.RefreshTexts();
    }

    // Operates, and notes each content that differs from the one before: a step lies between two.
    void OperateOften(int count) {
        contents.assign(1, this->Content());
        for (int i = 0; i < count; ++i) {
            Operate();
            StoreContent content = this->Content();
            if (content != contents.back()) contents.push_back(std::move(content));
        }
    }

    std::vector<StoreContent> contents;

private:
    std::mt19937 m_random{20260301};
};

TYPED_TEST_SUITE(RandomHistory, StoreEngines);

TYPED_TEST(RandomHistory, EachUndoAndEachRedoGivesTheContentOnItsOtherSide) {
    for (int i = 0; i < 15; ++i) this->Add();  // so that there is something to change
    for (int round = 0; round < 3; ++round) {
        SCOPED_TRACE(round);
        this->OperateOften(180);
        const std::vector<StoreContent>& seen = this->contents;
        ASSERT_GT(seen.size(), 80u);

        for (auto place = seen.size() - 1; place-- > 0;) {
            ASSERT_EQ(this->history.Undo(), "");
            ASSERT_EQ(this->Content(), seen[place]) << place;
        }
        for (std::size_t place = 1; place < seen.size(); ++place) {
            ASSERT_EQ(this->history.Redo(), "");
            ASSERT_EQ(this->Content(), seen[place]) << place;
        }
        EXPECT_FALSE(this->history.CanRedo());
        this->Refresh();
    }
}

TYPED_TEST(RandomHistory, AWalkToAndFroGoesByTheSameContents) {
    this->OperateOften(150);
    std::size_t place = this->contents.size() - 1;
    for (int i = 0; i < 300; ++i) {
        const bool isBack = place == this->contents.size() - 1 || (place > 0 && this->Random(2));
        ASSERT_EQ(isBack ? this->history.Undo() : this->history.Redo(), "");
        place = isBack ? place - 1 : place + 1;
        ASSERT_EQ(this->Content(), this->contents[place]) << i;
    }
}

}  // namespace orvo::desktop
