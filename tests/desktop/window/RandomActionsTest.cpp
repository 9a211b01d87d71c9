// A thousand actions at random, after each of which the rows shown are those of the store.
// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <memory>
#include <set>

#include <gtest/gtest.h>

#include <contract/StoreFolder.h>
#include <desktop/texts/Texts.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <platform/window/list/ListPeer.h>

#include "RandomUser.h"

namespace orvo::desktop {
namespace {

constexpr int kActions = 1000;
constexpr int kForeignEvery = 40;

// The rows that a view is to show of what another program finds in the store.
std::set<std::int64_t> WantedRows(StoreEngine& engine, ViewFrame& frame,
                                  const COrvoDesktopOptions& options) {
    const TableKind kind = frame.IsShowingToDos() ? TableKind::ToDo : TableKind::Address;
    const int category = frame.Entries().Category();
    const std::unique_ptr<StoreCursor> walk = engine.Walk(kind);
    std::set<std::int64_t> ids;
    StoredRow row;
    while (walk->Next(row) == StoreStatus::Ok) {
        const bool isHidden =
            (row.flags & RowFlag::Private) != 0 && PrivacyOf(options) == Privacy::Hide;
        const bool isDone =
            (row.flags & RowFlag::Completed) != 0 && options.GetTodoShowCompleted() == 0;
        const bool isElsewhere = category != kAllCategories && row.category != category;
        if (!isHidden && !isDone && !isElsewhere) ids.insert(row.id);
    }
    return ids;
}

CBaseRecord* RecordOf(const ViewFrame& frame, DWORD data) {
    if (frame.IsShowingToDos()) return reinterpret_cast<CToDoRecord*>(data);
    return reinterpret_cast<CAddressRecord*>(data);
}

int ComparedRows(ViewFrame& frame, DWORD before, DWORD after) {
    const auto first = static_cast<long>(before);
    const auto second = static_cast<long>(after);
    if (!frame.IsShowingToDos()) return AddrCompareFunc(first, second, frame.Addresses().Order());
    auto* toDos = dynamic_cast<CTodoListbox*>(&frame.Entries().Window());
    return TodoCompareRecords(first, second, reinterpret_cast<long>(toDos));
}

void ExpectRowsOfTheStore(ViewFrame& frame, StoreEngine& engine,
                          const COrvoDesktopOptions& options) {
    const auto* rows = dynamic_cast<const ListPeer*>(frame.Entries().Window().GetPeer());
    ASSERT_NE(rows, nullptr);
    std::set<std::int64_t> shown;
    for (int row = 0; row < rows->RowCount(); ++row) {
        const DWORD data = rows->Data(row);
        shown.insert(RecordOf(frame, data)->GetId());
        if (row == 0) continue;
        EXPECT_LE(ComparedRows(frame, rows->Data(row - 1), data), 0) << "row " << row;
    }
    EXPECT_EQ(shown.size(), static_cast<std::size_t>(rows->RowCount()));
    EXPECT_EQ(shown, WantedRows(engine, frame, options));
}

TEST(RandomActions, RowsAreThoseOfTheStoreAfterEach) {
    const StoreFolder folder;
    std::string error;
    const std::unique_ptr<StoreSession> session = StoreSession::Open(folder.Path(), error);
    ASSERT_NE(session, nullptr) << error;
    const std::unique_ptr<SqliteEngine> other = folder.Open();
    COrvoDesktopOptions options;
    DesktopWindow window(*session, options);
    ASSERT_TRUE(window.Open({}));
    window.BeginSession();
    window.show();
    window.activateWindow();
    window.Import({std::string(ORVO_SAMPLES) + "/friends.vcf"});
    const char* chosen = std::getenv("ORVO_SEED");
    const unsigned seed = chosen ? static_cast<unsigned>(std::atoi(chosen)) : 1;
    RandomUser user(window, seed);
    for (int i = 0; i < kActions; ++i) {
        if (i % kForeignEvery == 0) {
            EXPECT_EQ(StoreFolder::AddRow(*other), StoreStatus::Ok);
            window.Frame().Entries().Refill();
        }
        const std::string what = user.Act();
        ExpectRowsOfTheStore(window.Frame(), *other, options);
        ASSERT_FALSE(testing::Test::HasFailure())
            << "after action " << i << " (" << what << ") of ORVO_SEED=" << seed;
    }
}

}  // namespace
}  // namespace orvo::desktop
