// What every engine does with texts that rows share.
// SPDX-License-Identifier: MIT
#include <map>
#include <random>
#include <set>

#include <gmock/gmock.h>

#include <contract/RecordStoreContract.h>
#include <libraries/quire/RawStore.h>

namespace orvo {

class SharedTextContract : public RecordStoreContract {
protected:
    using Rows = std::map<std::pair<TableKind, std::int64_t>, RowExtra>;

    int Random(int below) { return std::uniform_int_distribution(0, below - 1)(m_random); }
    TableKind AnyKind() { return Random(3) == 0 ? TableKind::Address : TableKind::ToDo; }

    // Some of four texts, of which each may be one of the kept ones or a new one that is equal.
    RowExtra AnyExtra() {
        RowExtra extra;
        if (Random(3) == 0) extra.note = "note";
        for (std::size_t i = 0; i < m_kept.size(); ++i) {
            const int choice = Random(4);
            if (choice == 0) extra.shared.push_back(m_kept[i]);
            if (choice == 1) extra.shared.emplace_back(std::string(m_kept[i].Text()));
        }
        return extra;
    }

    static StoredRow RowOf(std::int64_t id) {
        StoredRow row;
        row.id = id;
        return row;
    }

    void Step() {
        const int choice = Random(10);
        if (choice == 0 && !engine.InTransaction()) {
            ASSERT_EQ(engine.Begin(), StoreStatus::Ok);
            m_before = rows;
        } else if (choice == 0 && Random(2) == 0) {
            ASSERT_EQ(engine.Commit(), StoreStatus::Ok);
        } else if (choice == 0) {
            engine.Rollback();
            rows = m_before;
        } else if (choice < 4 || rows.empty()) {
            StoredRow row;
            const TableKind kind = AnyKind();
            const RowExtra extra = AnyExtra();
            ASSERT_EQ(engine.Insert(kind, row, extra), StoreStatus::Ok);
            rows[{kind, row.id}] = extra;
        } else {
            const auto place = std::next(rows.begin(), Random(static_cast<int>(rows.size())));
            const auto [kind, id] = place->first;
            if (choice < 7) {
                place->second = AnyExtra();
                ASSERT_EQ(engine.Update(kind, RowOf(id), &place->second), StoreStatus::Ok);
            } else {
                ASSERT_EQ(engine.Remove(kind, id), StoreStatus::Ok);
                if (choice == 7) {
                    ASSERT_EQ(engine.Restore(kind, RowOf(id), place->second), StoreStatus::Ok);
                } else {
                    rows.erase(place);
                }
            }
        }
    }

    void ExpectRows() {
        for (const auto& [row, want] : rows) {
            RowExtra extra;
            ASSERT_EQ(engine.ReadExtra(row.first, row.second, extra), StoreStatus::Ok);
            EXPECT_EQ(extra, want);
        }
    }

    // So many texts are in the file.
    void ExpectKept(std::size_t count) const {
        if (!IsSqlite()) return;
        EXPECT_EQ(RawStore(folder.Path()).Run("SELECT count(*) FROM shared"),
                  std::to_string(count));
    }

    std::size_t DistinctTexts() const {
        std::set<std::string> texts;
        for (const auto& [row, extra] : rows) {
            for (const SharedText& text : extra.shared) texts.insert(text.Text());
        }
        return texts.size();
    }

    Rows rows;

private:
    std::mt19937 m_random{20261125};
    std::vector<SharedText> m_kept{SharedText(std::string(20'000, 'a')), SharedText("b"),
                                   SharedText(std::string("\0\xFF", 2)), SharedText("")};
    Rows m_before;
};

INSTANTIATE_TEST_SUITE_P(Engines, SharedTextContract, testing::ValuesIn(kEngines));

TEST_P(SharedTextContract, EachRowHasItsTextsWhateverHappensToOthersAndAFileHasEachOnce) {
    for (int round = 0; round < 8; ++round) {
        for (int step = 0; step < 60; ++step) Step();
        ExpectRows();
        if (engine.InTransaction()) continue;
        ExpectKept(DistinctTexts());
    }
    if (engine.InTransaction()) {
        ASSERT_EQ(engine.Commit(), StoreStatus::Ok);
    }
    for (const auto& [row, extra] : rows) {
        ASSERT_EQ(engine.Remove(row.first, row.second), StoreStatus::Ok);
    }
    ExpectKept(0);
}

TEST_P(SharedTextContract, RowsThatAreReadHaveOneCopyOfATextInMemory) {
    const RowExtra extra{"", "rest", "", {SharedText("zone")}};
    StoredRow rows[2];
    RowExtra read[2];
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(engine.Insert(TableKind::ToDo, rows[i], extra), StoreStatus::Ok);
        ASSERT_EQ(engine.ReadExtra(TableKind::ToDo, rows[i].id, read[i]), StoreStatus::Ok);
        ASSERT_EQ(read[i], extra);
    }
    EXPECT_EQ(&read[0].shared[0].Text(), &read[1].shared[0].Text());
}

TEST_P(SharedTextContract, ARecordsSourceBeginsWithItsTextsThroughEditsAndRemoval) {
    CToDoRecord record(todos);
    const auto expectSource = [&](const char* when) {
        EXPECT_EQ(SourceOf(record), "zone 1;zone 2;rest") << when;
    };
    ASSERT_EQ(record.SetSource("rest", "origin", {SharedText("zone 1;"), SharedText("zone 2;")}),
              0);
    expectSource("before it is stored");
    ASSERT_EQ(todos.Add(record), 0);
    ASSERT_EQ(record.SetNoteUtf8("a note"), 0);
    expectSource("once it is edited");
    ASSERT_EQ(todos.Remove(record), 0);
    expectSource("once it is removed");
    ASSERT_EQ(todos.Add(record), 0);
    expectSource("once it is back");
}

}  // namespace orvo
