// The statements of one change of a SQLite store.
// SPDX-License-Identifier: MIT
#include <utility>

#include <libraries/quire/SqliteEngine.h>

#include "SqliteFile.h"

namespace orvo {

SqliteEngine::Unit::Unit(SqliteEngine& engine)
    : m_engine(engine), m_isPart(engine.m_inTransaction) {
    m_status = m_isPart ? StoreStatus::Ok : engine.Begin();
    m_isOpen = m_status == StoreStatus::Ok;
    if (m_isOpen) {
        m_status = engine.RaiseRevision();
        m_changes = Changes();
    }
}

SqliteEngine::Unit::~Unit() {
    if (m_isOpen && !m_isPart) {
        m_engine.Rollback();
    } else if (m_isOpen && Changes() != m_changes) {
        m_engine.DropChanges();
    }
}

StoreStatus SqliteEngine::Unit::Keep() {
    const bool isOwn = std::exchange(m_isOpen, false) && !m_isPart;
    return isOwn ? m_engine.Commit() : m_status;
}

int SqliteEngine::Unit::Changes() const {
    return sqlite3_total_changes(m_engine.m_file->Handle());
}

}  // namespace orvo
