// Random operations on every engine against a plain model.
// SPDX-License-Identifier: MIT
#include <map>
#include <random>

#include <contract/RecordStoreContract.h>

namespace orvo {

namespace {

struct ModelRow {
    int category = 0;
    bool isDeleted = false;
    std::string name, note;
    bool operator==(const ModelRow&) const = default;
};
using Model = std::map<std::int64_t, ModelRow>;

void PrintTo(const ModelRow& row, std::ostream* out) {
    *out << row.category << ' ' << row.isDeleted << ' ' << row.name << ' ' << row.note;
}

}  // namespace

class RandomStoreContract : public RecordStoreContract {
protected:
    int Random(int below) { return std::uniform_int_distribution(0, below - 1)(m_random); }

    void Add() {
        const ModelRow row{Random(16), false, std::to_string(Random(1000)),
                           Random(3) == 0 ? "note" : ""};
        CToDoRecord record(todos);
        record.SetDescriptionUtf8(row.name);
        record.SetCategoryId(row.category);
        record.SetNoteUtf8(row.note);
        ASSERT_EQ(todos.Add(record), 0);
        EXPECT_GT(record.GetId(), m_lastId);
        m_lastId = record.GetId();
        model[record.GetId()] = row;
    }

    void ChangeOne() {
        if (model.empty()) return;
        const auto place = std::next(model.begin(), Random(static_cast<int>(model.size())));
        ModelRow& row = place->second;
        CToDoRecord record(todos);
        ASSERT_EQ(todos.Find(place->first, record), 0);
        switch (Random(6)) {
            case 0:
                EXPECT_EQ(record.SetCategoryId(row.category = Random(16)), 0);
                break;
            case 1:
                EXPECT_EQ(record.SetDescriptionUtf8(row.name = std::to_string(Random(1000))), 0);
                break;
            case 2:
                EXPECT_EQ(record.SetNoteUtf8(row.note = Random(2) == 0 ? "other" : ""), 0);
                break;
            case 3:
                row.isDeleted = true;
                EXPECT_EQ(todos.Delete(record), 0);
                break;
            case 4:
                row.isDeleted = false;
                EXPECT_EQ(todos.Undelete(record), 0);
                break;
            default:
                model.erase(place);
                EXPECT_EQ(todos.Remove(record), 0);
        }
    }

    void SwitchTransaction() {
        if (!engine.InTransaction()) {
            ASSERT_EQ(engine.Begin(), StoreStatus::Ok);
            m_before = model;
        } else if (Random(2) == 0) {
            ASSERT_EQ(engine.Commit(), StoreStatus::Ok);
        } else {
            engine.Rollback();
            model = m_before;
        }
    }

    void Step() {
        const int choice = Random(20);
        if (choice == 0) {
            SwitchTransaction();
        } else if (choice < 8) {
            Add();
        } else {
            ChangeOne();
        }
    }

    static ModelRow RowOf(const CToDoRecord& record) {
        const ModelRow row{CategoryOf(record), record.IsDeleted() != 0,
                           std::string(record.DescriptionUtf8()), NoteOf(record)};
        EXPECT_EQ(record.IsNote() != 0, !row.note.empty());
        return row;
    }

    Model model;

private:
    std::mt19937 m_random{20260301};
    Model m_before;
    std::int64_t m_lastId = 0;
};

INSTANTIATE_TEST_SUITE_P(Engines, RandomStoreContract, testing::ValuesIn(kEngines));

TEST_P(RandomStoreContract, TheStoreHoldsWhatTheModelHolds) {
    for (int step = 0; step < 3000; ++step) Step();

    Model stored;
    CToDoRecord record(todos);
    for (const auto& [id, row] : model) {
        ASSERT_EQ(todos.Find(id, record), 0);
        stored[id] = RowOf(record);
    }
    EXPECT_EQ(stored, model);
    EXPECT_GT(stored.size(), 300u);
    EXPECT_EQ(todos.GetCount(), std::count_if(stored.begin(), stored.end(), [](const auto& entry) {
                  return !entry.second.isDeleted;
              }));
}

TEST_P(RandomStoreContract, AWalkGivesEachRowAsItIsNowWhateverHappensMeanwhile) {
    for (int step = 0; step < 600; ++step) Step();
    CToDoRecord record(todos);
    CToDoIterator byId(todos);
    std::int64_t last = 0;
    int walked = 0;
    for (long status = byId.FindFirst(record); status == 0; status = byId.FindNext(record)) {
        ASSERT_EQ(model.count(record.GetId()), 1u);
        EXPECT_EQ(RowOf(record), model[record.GetId()]);
        for (auto next = model.upper_bound(last); next->first < record.GetId(); ++next) {
            EXPECT_TRUE(next->second.isDeleted) << next->first << " was passed over";
        }
        last = record.GetId();
        if (++walked % 3 == 0 && walked < 500) Step();
    }
    EXPECT_GT(walked, 50);
}

}  // namespace orvo
