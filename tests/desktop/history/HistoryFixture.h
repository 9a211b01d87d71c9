// Tables over a history over an engine, and all that the engine holds.
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <string>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <contract/FaultyEngine.h>
#include <contract/RecordStoreContract.h>
#include <contracts/RecordStore.h>
#include <desktop/history/EditHistory.h>

namespace orvo::desktop {

// Every row and every text of a store, deleted ones too, each in one line.
using StoreContent = std::map<std::string, std::string>;

inline std::string LineOf(const std::optional<CivilTime>& time) {
    return time ? std::to_string(MomentOfCivil(*time)) : "none";
}

inline void ReadRows(StoreEngine& engine, TableKind kind, StoreCursor& cursor,
                     StoreContent& content) {
    StoredRow row;
    while (cursor.Next(row) == StoreStatus::Ok) {
        RowExtra extra;
        EXPECT_EQ(engine.ReadExtra(kind, row.id, extra), StoreStatus::Ok);
        std::string shared;
        for (const SharedText& text : extra.shared) shared += text.Text() + ";";
        content[fmt::format("row {} {}", static_cast<int>(kind), row.id)] =
            fmt::format("{}|{}|{}|{}|{}|{}|{}|{}|{}|{}|{}", row.placement, row.category, row.flags,
                        row.priority, LineOf(row.due), LineOf(row.completed), row.fields,
                        extra.note, extra.source, extra.origin, shared);
    }
}

inline StoreContent ContentOf(StoreEngine& engine) {
    using TextKind = StoreEngine::TextKind;
    StoreContent content;
    for (const TableKind kind : {TableKind::Address, TableKind::ToDo}) {
        ReadRows(engine, kind, *engine.Walk(kind), content);
        ReadRows(engine, kind, *engine.WalkDeleted(kind), content);
        for (const TextKind texts :
             {TextKind::Category, TextKind::PhoneLabel, TextKind::CustomLabel}) {
            std::vector<StoreEngine::NumberedText> stored;
            EXPECT_EQ(engine.ReadTexts(kind, texts, stored), StoreStatus::Ok);
            for (const auto& [number, text] : stored) {
                content[fmt::format("text {} {} {}", static_cast<int>(kind),
                                    static_cast<int>(texts), number)] = text;
            }
        }
    }
    return content;
}

// The history stands over a faulty engine, so that a test can let the store fail; other programs
// come to the engine itself.
class HistoryFixture : public testing::TestWithParam<EngineKind> {
protected:
    std::unique_ptr<CAddressRecord> AnAddress(std::string_view name) {
        auto record = std::make_unique<CAddressRecord>(addresses);
        EXPECT_EQ(record->SetUtf8(AddressField::Name, name), 0);
        EXPECT_EQ(addresses.Add(*record), 0) << addresses.LastError();
        return record;
    }

    std::unique_ptr<CToDoRecord> AToDo(std::string_view description) {
        auto record = std::make_unique<CToDoRecord>(toDos);
        EXPECT_EQ(record->SetDescriptionUtf8(description), 0);
        EXPECT_EQ(toDos.Add(*record), 0) << toDos.LastError();
        return record;
    }

    StoreContent Content() { return ContentOf(engine); }

    const StoreFolder folder;
    const std::unique_ptr<StoreEngine> store = GetParam() == EngineKind::Sqlite
                                                   ? std::unique_ptr<StoreEngine>(folder.Open())
                                                   : std::make_unique<MemoryEngine>();
    StoreEngine& engine = *store;
    FaultyEngine faulty{engine};
    EditHistory history{faulty};
    StoreEngine& recorded = history.Engine();
    CAddressTable addresses{recorded};
    CToDoTable toDos{recorded};
};

}  // namespace orvo::desktop
