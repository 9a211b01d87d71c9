// A folder for the store files of one test.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <set>

#include <gmock/gmock.h>

#include <libraries/quire/SqliteEngine.h>
#include <platform/io/TempFolder.h>

namespace orvo {

using testing::ElementsAre;
using testing::HasSubstr;

class StoreFolder : public TempFolder {
public:
    StoreFolder() : TempFolder("orvo-store-XXXXXX") {}

    std::string Path(const std::string& name = "test.orvo") const { return TempFolder::Path(name); }

    std::unique_ptr<SqliteEngine> Open(const std::string& name = "test.orvo") const {
        std::string error;
        auto engine = SqliteEngine::Open(Path(name), error);
        EXPECT_NE(engine, nullptr) << error;
        return engine;
    }

    // Puts a row into the table of addresses.
    static StoreStatus AddRow(StoreEngine& engine, const RowExtra& extra = {}) {
        StoredRow row;
        return engine.Insert(TableKind::Address, row, extra);
    }

    void Write(const std::string& name, const std::string& bytes) const { File(name, bytes); }
    std::string Read(const std::string& name = "test.orvo") const { return Content(Path(name)); }

    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Path("."))) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }
};

}  // namespace orvo
