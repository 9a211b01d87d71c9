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
    std::string name;
    std::string note;
    bool operator==(const ModelRow&) const = default;
};
using Model = std::map<std::int64_t, ModelRow>;

void PrintTo(const ModelRow& row, std::ostream* out) {
    *out << row.category << ' ' << row.isDeleted << ' ' << row.name << ' ' << row.note;
}

}  // namespace

template <class Engine>
class RandomStoreContract : public RecordStoreContract<Engine> {
protected:
    int Random(int below) { return std::uniform_int_distribution(0, below - 1)(m_random); }

    std::int64_t AnyId() {
        if (model.empty()) return 0;
        return std::next(model.begin(), Random(static_cast<int>(model.size())))->first;
    }

    void Add() {
        const ModelRow row{Random(16), false, std::to_string(Random(1000)),
                           Random(3) == 0 ? "note" : ""};
        CToDoRecord record(this->todos);
        record.SetDescriptionUtf8(row.name);
        record.SetCategoryId(row.category);
        record.SetNoteUtf8(row.note);
        ASSERT_EQ(this->todos.Add(record), 0);
        EXPECT_GT(record.GetId(), m_lastId);
        m_lastId = record.GetId();
        model[record.GetId()] = row;
    }

    void ChangeOne() {
        CToDoRecord record(this->todos);
        const std::int64_t id = AnyId();
        if (id == 0 || this->todos.Find(id, record) != 0) {
            EXPECT_EQ(id, 0);
            return;
        }
        ModelRow& row = model[id];
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
                EXPECT_EQ(this->todos.Delete(record), 0);
                break;
            case 4:
                row.isDeleted = false;
                EXPECT_EQ(this->todos.Undelete(record), 0);
                break;
            default:
                model.erase(id);
                EXPECT_EQ(this->todos.Remove(record), 0);
        }
    }

    void SwitchTransaction() {
        if (!this->engine.InTransaction()) {
            ASSERT_EQ(this->engine.Begin(), StoreStatus::Ok);
            m_before = model;
        } else if (Random(2) == 0) {
            ASSERT_EQ(this->engine.Commit(), StoreStatus::Ok);
        } else {
            this->engine.Rollback();
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
        ModelRow row{0, record.IsDeleted() != 0, std::string(record.DescriptionUtf8()), ""};
        EXPECT_EQ(record.GetCategoryId(row.category), 0);
        EXPECT_EQ(record.GetNoteUtf8(row.note), 0);
        EXPECT_EQ(record.IsNote() != 0, !row.note.empty());
        return row;
    }

    Model model;

private:
    std::mt19937 m_random{20260301};
    Model m_before;
    std::int64_t m_lastId = 0;
};

TYPED_TEST_SUITE(RandomStoreContract, StoreEngines);

TYPED_TEST(RandomStoreContract, TheStoreHoldsWhatTheModelHolds) {
    for (int step = 0; step < 3000; ++step) this->Step();

    Model stored;
    CToDoRecord record(this->todos);
    for (const auto& [id, row] : this->model) {
        ASSERT_EQ(this->todos.Find(id, record), 0);
        stored[id] = this->RowOf(record);
    }
    EXPECT_EQ(stored, this->model);
    EXPECT_GT(stored.size(), 300u);
    EXPECT_EQ(this->todos.GetCount(),
              std::count_if(stored.begin(), stored.end(),
                            [](const auto& entry) { return !entry.second.isDeleted; }));
}

TYPED_TEST(RandomStoreContract, AWalkGivesEachRowAsItIsNowWhateverHappensMeanwhile) {
    for (int step = 0; step < 600; ++step) this->Step();
    CToDoRecord record(this->todos);
    CToDoIterator byId(this->todos);
    std::int64_t last = 0;
    int walked = 0;
    for (long status = byId.FindFirst(record); status == 0; status = byId.FindNext(record)) {
        ASSERT_EQ(this->model.count(record.GetId()), 1u);
        EXPECT_EQ(this->RowOf(record), this->model[record.GetId()]);
        for (auto next = this->model.upper_bound(last); next->first < record.GetId(); ++next) {
            EXPECT_TRUE(next->second.isDeleted) << next->first << " was passed over";
        }
        last = record.GetId();
        if (++walked % 3 == 0 && walked < 500) this->Step();
    }
    EXPECT_GT(walked, 50);
}

TYPED_TEST(RandomStoreContract, AWalkByCategoryGivesTheRowsInOrder) {
    for (int step = 0; step < 2000; ++step) this->Step();
    std::vector<std::pair<int, std::int64_t>> want;
    for (const auto& [id, row] : this->model) {
        if (!row.isDeleted) want.emplace_back(row.category, id);
    }
    std::sort(want.begin(), want.end());

    std::vector<std::pair<int, std::int64_t>> walked;
    const auto cursor = this->engine.WalkFromCategory(TableKind::ToDo, 0);
    StoredRow row;
    while (cursor->Next(row) == StoreStatus::Ok) walked.emplace_back(row.category, row.id);

    EXPECT_EQ(walked, want);
}

}  // namespace orvo
