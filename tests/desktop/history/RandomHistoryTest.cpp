// A test of undo and redo by operations at random, on every engine.
// SPDX-License-Identifier: MIT
#include <functional>
#include <initializer_list>
#include <optional>
#include <random>
#include <vector>

#include "HistoryFixture.h"

namespace orvo::desktop {

class RandomHistory : public HistoryFixture {
protected:
    int Random(int below) { return std::uniform_int_distribution(0, below - 1)(m_random); }

    // Makes one of the changes.
    long AnyOf(std::initializer_list<std::function<long()>> changes) {
        return changes.begin()[Random(static_cast<int>(changes.size()))]();
    }

    std::string RandomText() {
        static const std::string kTexts[] = {
            "", "Ito", "佐藤", "two\nlines", std::string("a\0b", 3), std::string(300, 'x'), "Ωmega",
        };
        return kTexts[Random(std::size(kTexts))];
    }

    std::int64_t AnyId() { return 1 + Random(40); }

    long Add() {
        if (Random(2) == 0) {
            CToDoRecord record(toDos);
            record.SetDescriptionUtf8(RandomText());
            return toDos.Add(record);
        }
        CAddressRecord record(addresses);
        record.SetUtf8(AddressField::Name, RandomText());
        record.SetNoteUtf8(RandomText());
        record.SetSource(RandomText(), RandomText(), {SharedText(RandomText())});
        return addresses.Add(record);
    }

    long ChangeRecord(CBaseTable& table, CBaseRecord& record) {
        return AnyOf({
            [&] { return record.SetCategoryId(Random(16)); },
            [&] { return record.SetPlacementPos(Random(4)); },
            [&] { return record.SetPrivate(Random(2)); },
            [&] { return record.SetArchived(Random(2)); },
            [&] { return record.SetNoteUtf8(RandomText()); },
            [&] { return record.SetSource(RandomText(), "", {SharedText(RandomText())}); },
            [&] { return table.Delete(record); },
            [&] { return table.Undelete(record); },
            [&] { return table.Remove(record); },
        });
    }

    long ChangeAddress() {
        CAddressRecord record(addresses);
        if (addresses.Find(AnyId(), record) != 0) return 0;
        return AnyOf({
            [&] { return record.SetUtf8(CustomField(1 + Random(4)), RandomText()); },
            [&] { return record.SetPhoneLabelID(1 + Random(5), Random(8)); },
            [&] { return ChangeRecord(addresses, record); },
            [&] { return ChangeRecord(addresses, record); },
        });
    }

    long ChangeToDo() {
        CToDoRecord record(toDos);
        if (toDos.Find(AnyId(), record) != 0) return 0;
        return AnyOf({
            [&] { return record.SetDescriptionUtf8(RandomText()); },
            [&] { return record.SetPriority(1 + Random(5)); },
            [&] { return record.SetDueDate(Random(2) == 0 ? maxDate() : 1'790'000'000); },
            [&] { return record.SetCompleted(Random(2), Random(2)); },
            [&] { return ChangeRecord(toDos, record); },
            [&] { return ChangeRecord(toDos, record); },
        });
    }

    static long Result(StoreStatus status) { return static_cast<long>(status); }

    long ChangeText() {
        const StoreEngine::TextKind category = StoreEngine::TextKind::Category;
        const std::string text = RandomText();
        return AnyOf({
            [&] { return Result(recorded.WriteText(TableKind::ToDo, category, Random(3), text)); },
            [&] { return Result(recorded.RemoveText(TableKind::ToDo, category, Random(3))); },
            [&] { return addresses.SetPhoneLabel(addresses.GetPhoneLabelCount(), "x"); },
            [&] { return addresses.SetCustomLabel(1 + Random(4), "Custom"); },
        });
    }

    void ChangeOne() {
        EXPECT_EQ(AnyOf({
                      [&] { return Add(); },
                      [&] { return ChangeAddress(); },
                      [&] { return ChangeToDo(); },
                      [&] { return ChangeText(); },
                  }),
                  0);
    }

    void ChangeSome() {
        for (int count = Random(8); count > 0; --count) ChangeOne();
    }

    void ChangeInTransaction(bool isKept) {
        const StoreTransaction transaction(recorded);
        ChangeSome();
        if (isKept) {
            EXPECT_EQ(recorded.Commit(), StoreStatus::Ok);
        } else {
            recorded.Rollback();
            Refresh();
        }
    }

    // One operation, at most one step.
    void Operate() {
        const int choice = Random(8);
        std::optional<EditHistory::Step> step;
        if (choice < 2) step.emplace(history, "several");
        if (choice == 0) return ChangeSome();
        if (choice > 2) return ChangeOne();
        if (choice == 1) ChangeInTransaction(true);
        ChangeInTransaction(Random(2) == 0);
    }

    void Refresh() {
        addresses.RefreshTexts();
        toDos.RefreshTexts();
    }

    // Operates, and notes the content where it differs: a step lies between two. What could be
    // redone is dropped then.
    void OperateAndNote() {
        Operate();
        StoreContent content = Content();
        if (content == contents.at(place)) return;
        contents.resize(++place);
        contents.push_back(std::move(content));
    }

    void Move(bool isBack) {
        ASSERT_EQ(isBack ? history.Undo() : history.Redo(), "");
        place = isBack ? place - 1 : place + 1;
        ASSERT_EQ(Content(), contents.at(place));
        EXPECT_EQ(history.CanRedo(), place < contents.size() - 1);
    }

    std::vector<StoreContent> contents{{Content()}};
    std::size_t place = 0;

private:
    std::mt19937 m_random{20260301};
};

INSTANTIATE_TEST_SUITE_P(Engines, RandomHistory, testing::ValuesIn(kEngines));

TEST_P(RandomHistory, EachUndoAndEachRedoGivesTheContentOnItsOtherSide) {
    for (int i = 0; i < 540; ++i) OperateAndNote();
    ASSERT_GT(place, 200U);
    for (int i = 0; i < 190; ++i) ASSERT_NO_FATAL_FAILURE(Move(true)) << i;
    for (int i = 0; i < 190; ++i) ASSERT_NO_FATAL_FAILURE(Move(false)) << i;
}

TEST_P(RandomHistory, AWalkToAndFroWithChangesOnItsWayGoesByTheSameContents) {
    for (int i = 0; i < 600; ++i) {
        SCOPED_TRACE(i);
        const int choice = i < 100 ? 0 : Random(10);
        Refresh();
        if (choice < 4) {
            OperateAndNote();
        } else if (choice < 7 && place > 0) {
            ASSERT_NO_FATAL_FAILURE(Move(true));
        } else if (place < contents.size() - 1) {
            ASSERT_NO_FATAL_FAILURE(Move(false));
        }
    }
}

}  // namespace orvo::desktop
