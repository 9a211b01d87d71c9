// What another program changes comes into the rows one by one, as if all were read again.
// SPDX-License-Identifier: MIT
#include <memory>
#include <optional>
#include <random>
#include <set>

#include <gtest/gtest.h>

#include <contract/StoreFolder.h>
#include <desktop/window/DesktopWindow.h>
#include <platform/window/list/ListPeer.h>

namespace orvo::desktop {
namespace {

constexpr int kRounds = 100;
constexpr int kMostChanges = 30;  // in one round
constexpr int kCategories = 3;

// Another program, which does whatever it likes.
class RandomProgram {
public:
    RandomProgram(const StoreFolder& folder, unsigned seed)
        : m_engine(folder.Open()), m_addresses(*m_engine), m_toDos(*m_engine), m_random(seed) {}

    // From 0 to `count` - 1.
    int Roll(int count) { return std::uniform_int_distribution(0, count - 1)(m_random); }

    void Work() {
        StoreTransaction transaction(*m_engine);
        for (int changes = Roll(kMostChanges); changes >= 0; --changes) {
            Change<CAddressRecord>(m_addresses, m_addressIds);
            Change<CToDoRecord>(m_toDos, m_toDoIds);
        }
        ASSERT_EQ(transaction.Commit(), StoreStatus::Ok);
    }

private:
    // Short, so that many are alike.
    std::string Word() { return std::string(1 + Roll(2), static_cast<char>('a' + Roll(5))); }

    void Fill(CAddressRecord& record) {
        static constexpr AddressField kFields[] = {AddressField::Name, AddressField::First,
                                                   AddressField::Company, AddressField::City};
        record.SetUtf8(kFields[Roll(4)], Word());
    }
    void Fill(CToDoRecord& record) {
        record.SetDescriptionUtf8(Word());
        record.SetPriority(1 + Roll(5));
        if (Roll(3) == 0) record.SetCompleted(Roll(2), Roll(2));
        if (Roll(3) == 0) record.SetDueDate((20'000 + Roll(3)) * 86'400L);
    }

    template <class Record, class Table>
    void Change(Table& table, std::vector<std::int64_t>& ids) {
        Record record(table);
        if (ids.empty() || Roll(4) == 0) {
            Fill(record);
            record.SetCategoryId(Roll(kCategories));
            EXPECT_EQ(table.Add(record), 0);
            ids.push_back(record.GetId());
            return;
        }
        if (table.Find(ids[static_cast<std::size_t>(Roll(static_cast<int>(ids.size())))], record) !=
            0) {
            return;
        }
        switch (Roll(8)) {
            case 0:
                table.Delete(record);
                break;
            case 1:
                table.Undelete(record);
                break;
            case 2:
                table.Remove(record);
                break;
            case 3:
                record.SetPrivate(Roll(2));
                break;
            case 4:
                record.SetCategoryId(Roll(kCategories));
                break;
            case 5:
                record.SetArchived(Roll(4) == 0 ? 1 : 0);
                break;
            default:
                Fill(record);
                break;
        }
    }

    std::unique_ptr<SqliteEngine> m_engine;
    CAddressTable m_addresses;
    CToDoTable m_toDos;
    std::vector<std::int64_t> m_addressIds;
    std::vector<std::int64_t> m_toDoIds;
    std::mt19937 m_random;
};

// What the user has before him.
struct Seen {
    std::vector<std::int64_t> ids;
    std::vector<std::string> texts;
    std::set<std::int64_t> selected;
    std::optional<std::int64_t> focus;
};

std::string TextOf(const CBaseRecord& record) {
    if (const auto* toDo = dynamic_cast<const CToDoRecord*>(&record)) {
        return std::string(toDo->DescriptionUtf8()) + (toDo->IsCompleted() ? " done" : "");
    }
    const auto& address = dynamic_cast<const CAddressRecord&>(record);
    return std::string(address.Utf8(AddressField::Name)) + '|' +
           std::string(address.Utf8(AddressField::City));
}

Seen See(ShownEntries& entries) {
    auto& rows = dynamic_cast<ListPeer&>(*entries.Window().GetPeer());
    auto& view = dynamic_cast<ShownRows&>(entries);
    Seen seen;
    for (int row = 0; row < rows.RowCount(); ++row) {
        const CBaseRecord& record = *view.RecordOf(rows.Data(row));
        seen.ids.push_back(record.GetId());
        seen.texts.push_back(TextOf(record));
        if (rows.IsSelected(row)) seen.selected.insert(record.GetId());
        if (rows.FocusRow() == row) seen.focus = record.GetId();
    }
    return seen;
}

class ForeignRowsTest : public testing::TestWithParam<std::tuple<ViewKind, Privacy>> {};

TEST_P(ForeignRowsTest, AreThoseOfARefill) {
    const auto [kind, privacy] = GetParam();
    const StoreFolder folder;
    std::string error;
    const std::unique_ptr<StoreSession> session = StoreSession::Open(folder.Path(), error);
    ASSERT_NE(session, nullptr) << error;
    COrvoDesktopOptions options;
    SetPrivacy(options, privacy);
    DesktopWindow window(*session, options);
    ASSERT_TRUE(window.Open({}));
    window.ShowView(kind);
    window.show();
    ShownEntries& entries = window.Frame().Entries();
    auto& rows = dynamic_cast<ListPeer&>(*entries.Window().GetPeer());
    RandomProgram other(folder, 20261126);
    for (int round = 0; round < kRounds; ++round) {
        SCOPED_TRACE(round);
        if (round % 40 == 39) entries.SetCategory(round % 80 == 39 ? 1 : kAllCategories);
        if (rows.RowCount() > 0) {
            rows.Select(0, rows.RowCount() - 1, false);
            for (int i = 0; i < 3; ++i) {
                const int row = other.Roll(rows.RowCount());
                rows.Select(row, row, true);
                rows.SetFocusRow(row);
            }
        }
        const Seen before = See(entries);
        other.Work();

        const ForeignRows foreign = session->TakeForeignChanges();
        ASSERT_FALSE(foreign.isEverything);
        entries.TakeChanges(
            foreign.Of(kind == ViewKind::ToDos ? TableKind::ToDo : TableKind::Address));

        const Seen after = See(entries);
        std::set<std::int64_t> selected;
        for (const std::int64_t id : after.ids) {
            if (before.selected.count(id) != 0) selected.insert(id);
        }
        EXPECT_EQ(after.selected, selected);
        const bool isFocusThere =
            before.focus && std::count(after.ids.begin(), after.ids.end(), *before.focus) != 0;
        if (isFocusThere) EXPECT_EQ(after.focus, before.focus);
        entries.Refill();
        const Seen wanted = See(entries);
        ASSERT_EQ(after.ids, wanted.ids);
        ASSERT_EQ(after.texts, wanted.texts);
    }
    EXPECT_GT(rows.RowCount(), 100);
}

INSTANTIATE_TEST_SUITE_P(Views, ForeignRowsTest,
                         testing::Combine(testing::Values(ViewKind::List, ViewKind::SmallIcons,
                                                          ViewKind::Cards, ViewKind::ToDos),
                                          testing::Values(Privacy::Mask, Privacy::Hide)));

}  // namespace
}  // namespace orvo::desktop
