// Random operations on every engine against a plain model.
// SPDX-License-Identifier: MIT
#include <map>
#include <random>
#include <tuple>

#include <contract/RecordStoreContract.h>
#include <libraries/quire/RawStore.h>

namespace orvo {

class RandomStoreContract : public RecordStoreContract {
protected:
    using Key = std::pair<TableKind, std::int64_t>;
    struct ModelRow {
        StoredRow row;
        std::string fields;
        RowExtra extra;
        auto Parts() const {
            return std::tuple(row.placement, row.category, row.flags, row.priority, row.due,
                              row.completed, fields, extra.note, extra.source, extra.origin,
                              extra.shared);
        }
        bool operator==(const ModelRow& other) const { return Parts() == other.Parts(); }
    };

    int Random(int below) { return std::uniform_int_distribution(0, below - 1)(m_random); }

    // Some of four texts that rows share, of which each may be a kept one or a new one that is
    // equal.
    RowExtra AnyExtra() {
        RowExtra extra;
        if (Random(3) == 0) extra = {"note", std::string("BEGIN:VCARD\0\xFF", 13), "its file"};
        for (const SharedText& text : m_kept) {
            const int choice = Random(4);
            if (choice == 0) extra.shared.push_back(text);
            if (choice == 1) extra.shared.emplace_back(std::string(text.Text()));
        }
        return extra;
    }
    // A placement of 0 stands for none at an insertion. Only to-dos have a priority and dates.
    ModelRow AnyRow(TableKind kind) {
        ModelRow any;
        any.row.placement = Random(3);
        any.row.category = Random(16);
        any.row.flags = (Random(3) == 0 ? RowFlag::Deleted : 0) | RowFlag::Private;
        if (kind == TableKind::ToDo) {
            any.row.priority = Random(5) + 1;
            if (Random(2) == 0) any.row.due = CivilTime{2026, 12, 24, 17, 30, Random(60)};
            if (Random(2) == 0) any.row.completed = CivilTime{2026, 12, 23, 8, Random(60), 59};
        }
        any.fields = std::string("\x01\x03\0\xFF", 4) + std::to_string(Random(1000));
        any.extra = AnyExtra();
        return any;
    }

    static StoredRow Stored(const Key& key, const ModelRow& row) {
        StoredRow stored = row.row;
        stored.id = key.second;
        stored.fields = row.fields;
        return stored;
    }

    void SwitchTransaction() {
        if (!writer->InTransaction()) {
            ASSERT_EQ(writer->Begin(), StoreStatus::Ok);
            m_before = model;
        } else if (Random(2) == 0) {
            ASSERT_EQ(writer->Commit(), StoreStatus::Ok);
        } else {
            writer->Rollback();
            model = m_before;
        }
    }

    void Insert() {
        const TableKind kind = Random(3) == 0 ? TableKind::Address : TableKind::ToDo;
        ModelRow row = AnyRow(kind);
        StoredRow stored = Stored({kind, 0}, row);
        ASSERT_EQ(writer->Insert(kind, stored, row.extra), StoreStatus::Ok);
        EXPECT_GT(stored.id, std::exchange(m_lastIds[{writer, kind}], stored.id)) << "given again";
        if (row.row.placement != 0) {
            EXPECT_EQ(stored.placement, row.row.placement);
        }
        row.row.placement = stored.placement;
        model[{kind, stored.id}] = row;
    }

    void Step() {
        const int choice = Random(20);
        if (choice == 0) return SwitchTransaction();
        if (choice < 8 || model.empty()) return Insert();
        const auto place = std::next(model.begin(), Random(static_cast<int>(model.size())));
        const Key key = place->first;
        ModelRow& row = place->second;
        if (choice < 11) {
            row = AnyRow(key.first);
            ASSERT_EQ(writer->Update(key.first, Stored(key, row), &row.extra), StoreStatus::Ok);
        } else if (choice < 15) {
            row.row.category = Random(16);
            row.row.flags ^= RowFlag::Deleted;
            ASSERT_EQ(writer->Update(key.first, Stored(key, row), nullptr), StoreStatus::Ok);
        } else {
            ASSERT_EQ(writer->Remove(key.first, key.second), StoreStatus::Ok);
            if (choice > 16) {
                model.erase(place);
            } else {
                ASSERT_EQ(writer->Restore(key.first, Stored(key, row), row.extra), StoreStatus::Ok);
            }
        }
    }

    static ModelRow Read(StoreEngine& from, const Key& key) {
        ModelRow read;
        EXPECT_EQ(from.Read(key.first, key.second, read.row, read.fields), StoreStatus::Ok);
        EXPECT_EQ(from.ReadExtra(key.first, key.second, read.extra), StoreStatus::Ok);
        return read;
    }

    // The store has the rows of the model; its file has them for another engine, too, and each text
    // that they share once.
    void ExpectModel() {
        std::set<std::string> texts;
        for (const auto& [key, row] : model) {
            ASSERT_EQ(Read(engine, key), row) << key.second;
            for (const SharedText& text : row.extra.shared) texts.insert(text.Text());
        }
        if (!IsSqlite() || engine.InTransaction()) return;
        const auto another = folder.Open();
        for (const auto& [key, row] : model) ASSERT_EQ(Read(*another, key), row) << key.second;
        EXPECT_EQ(RawStore(folder.Path()).Run("SELECT count(*) FROM shared"),
                  std::to_string(texts.size()));
    }

    std::map<Key, ModelRow> model;
    StoreEngine* writer = &engine;  // who makes the next steps

private:
    std::mt19937 m_random{20260301};
    const std::vector<SharedText> m_kept{SharedText(std::string(20'000, 'a')), SharedText("b"),
                                         SharedText(std::string("\0\xFF", 2)), SharedText("")};
    std::map<Key, ModelRow> m_before;
    std::map<std::pair<StoreEngine*, TableKind>, std::int64_t> m_lastIds;
};

// Knows of each row whether it is deleted, and learns that from the changes alone.
class Follower {
public:
    void Follow(StoreEngine& engine, std::size_t most) {
        ChangePlace place(m_since);
        std::vector<StoreChange> changes;
        StoreStatus status = StoreStatus::Ok;
        while ((status = engine.ReadChanges(place, most, changes)) == StoreStatus::Ok) {
            ASSERT_LE(changes.size(), most);
            for (const StoreChange& change : changes) Take(engine, change);
        }
        ASSERT_EQ(status, StoreStatus::End) << engine.LastError();
        EXPECT_LE(m_since, engine.Revision());
    }

    std::map<std::pair<TableKind, std::int64_t>, bool> rows;

private:
    void Take(StoreEngine& engine, const StoreChange& change) {
        using Kind = StoreChange::Kind;
        ASSERT_GE(change.revision, m_since) << "out of order";
        m_since = change.revision;
        const std::pair key{change.table, change.id};
        if (change.kind == Kind::Texts) return;
        if (change.kind == Kind::Removed) {
            rows.erase(key);
            return;
        }
        const auto known = rows.find(key);
        const bool isDeleted =
            change.kind == Kind::Trashed ||
            (change.kind == Kind::Changed && known != rows.end() && known->second);
        if (known == rows.end()) {
            EXPECT_TRUE(change.kind == Kind::Added || change.kind == Kind::Trashed) << change.id;
        }
        rows[key] = isDeleted;
        RowIdentity identity;
        ASSERT_EQ(engine.ReadIdentity(change.table, change.id, identity), StoreStatus::Ok);
        EXPECT_EQ(std::tuple(change.uid, change.revision),
                  std::tuple(identity.uid, identity.revision));
    }

    std::int64_t m_since = 0;
};

INSTANTIATE_TEST_SUITE_P(Engines, RandomStoreContract, testing::ValuesIn(kEngines));

TEST_P(RandomStoreContract, TheStoreHoldsWhatTheModelHolds) {
    for (int step = 0; step < 2000; ++step) {
        Step();
        if (step % 100 == 0) ExpectModel();
    }
    if (engine.InTransaction()) {
        ASSERT_EQ(engine.Commit(), StoreStatus::Ok);
    }
    EXPECT_GT(model.size(), 200U);
    for (const TableKind kind : {TableKind::Address, TableKind::ToDo}) {
        EXPECT_EQ(engine.Count(kind),
                  std::count_if(model.begin(), model.end(), [&](const auto& entry) {
                      return entry.first.first == kind &&
                             (entry.second.row.flags & RowFlag::Deleted) == 0;
                  }));
    }
    for (const auto& [key, row] : std::exchange(model, {})) {
        ASSERT_EQ(engine.Remove(key.first, key.second), StoreStatus::Ok);
    }
    ExpectModel();
}

TEST_P(RandomStoreContract, WhoeverFollowsTheChangesHasWhatTheStoreHas) {
    const auto other = IsSqlite() ? folder.Open() : nullptr;
    StoreEngine& second = other ? *other : engine;
    Follower often;
    Follower seldom;
    for (int step = 0; step < 2000; ++step) {
        if (!writer->InTransaction()) writer = Random(2) == 0 ? &engine : &second;
        Step();
        if (writer->InTransaction()) continue;
        for (Follower* follower : {&often, &seldom}) {
            if (Random(follower == &often ? 4 : 200) != 0) continue;
            follower->Follow(Random(2) == 0 ? engine : second, 1 + std::size_t(Random(40)));
            ASSERT_EQ(follower->rows.size(), model.size());
            for (const auto& [key, row] : model) {
                ASSERT_EQ(follower->rows.at(key), (row.row.flags & RowFlag::Deleted) != 0);
            }
        }
    }
}

TEST_P(RandomStoreContract, AWalkGivesEachRowAsItIsNowWhateverHappensMeanwhile) {
    for (int step = 0; step < 1000; ++step) Step();
    const auto cursor = engine.Walk(TableKind::ToDo);
    StoredRow row;
    Key last{TableKind::ToDo, 0};
    int walked = 0;
    while (cursor->Next(row) == StoreStatus::Ok) {
        const Key key{TableKind::ToDo, row.id};
        ASSERT_EQ(model.count(key), 1U);
        EXPECT_EQ(row.category, model[key].row.category);
        EXPECT_EQ(row.fields, model[key].fields);
        for (auto next = model.upper_bound(last); next->first < key; ++next) {
            EXPECT_NE(next->second.row.flags & RowFlag::Deleted, 0U)
                << next->first.second << " was passed over";
        }
        last = key;
        if (++walked % 3 == 0 && walked < 500) Step();
    }
    EXPECT_GT(walked, 50);
}

}  // namespace orvo
