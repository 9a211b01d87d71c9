// A transaction that ends with its scope.
// SPDX-License-Identifier: MIT
#include <contracts/StoreEngine.h>

namespace orvo {

StoreTransaction::StoreTransaction(StoreEngine& engine)
    : m_engine(engine), m_own(!engine.InTransaction()) {
    if (m_own) {
        m_status = m_engine.Begin();
        m_own = m_status == StoreStatus::Ok;
    }
}

StoreTransaction::~StoreTransaction() {
    if (m_own) {
        m_engine.Rollback();
    }
}

StoreStatus StoreTransaction::Commit() {
    if (!m_own) {
        return m_status;
    }
    m_own = false;
    return m_engine.Commit();
}

}  // namespace orvo
