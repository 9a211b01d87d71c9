// The statements of one change of a SQLite store.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include <libraries/quire/SqliteEngine.h>

#include "SqliteSharedTexts.h"
#include "SqliteStatements.h"

namespace orvo {

// Makes the statements of a change one: a transaction of its own, or a part of the open one. A part
// that fails before it has changed anything leaves the transaction as it is; any other failure is
// one of the disk or the memory and drops the transaction. A savepoint for each part would copy
// every page that it touches.
class SqliteEngine::Unit {
public:
    explicit Unit(SqliteEngine& engine) : m_engine(engine), m_isPart(engine.m_inTransaction) {
        m_status = m_isPart ? StoreStatus::Ok : engine.Begin();
        m_isOpen = m_status == StoreStatus::Ok;
        if (m_isOpen) {
            m_status = engine.RaiseRevision();
            m_changes = Changes();
        }
    }
    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;

    ~Unit() {
        if (m_isOpen && !m_isPart) {
            m_engine.Rollback();
        } else if (m_isOpen && Changes() != m_changes) {
            m_engine.DropChanges();
        }
    }

    StoreStatus Status() const { return m_status; }

    StoreStatus Keep() {
        const bool isOwn = std::exchange(m_isOpen, false) && !m_isPart;
        return isOwn ? m_engine.Commit() : m_status;
    }

private:
    int Changes() const { return sqlite3_total_changes(m_engine.m_file->Handle()); }

    SqliteEngine& m_engine;
    const bool m_isPart;
    bool m_isOpen;
    StoreStatus m_status;
    int m_changes = 0;
};

}  // namespace orvo
