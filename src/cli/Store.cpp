// The store that a command works on.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <cli/AddressFields.h>
#include <cli/MigrationMeter.h>
#include <cli/Output.h>
#include <cli/Store.h>
#include <exchange/calendar/SeriesCompletion.h>
#include <host/AutomaticBackup.h>
#include <libraries/quire/UserStore.h>

namespace orvo::cli {
namespace {

constexpr std::chrono::milliseconds kPatience{2000};

std::unique_ptr<SqliteEngine> OpenEngine(const std::string& path) {
    std::string error;
    MigrationMeter meter;
    const auto tell = [&meter](std::int64_t done, std::int64_t total) {
        meter.Tell(done, total);
        return true;
    };
    auto engine = OpenUserStore(path, error, nullptr, tell);
    if (engine == nullptr) throw CommandError(kWrongUse, error);
    return engine;
}

}  // namespace

Store::Store(const std::string& path, PrivateGuard& guard)
    : m_guard(guard), m_engine(OpenEngine(path)), m_addresses(*m_engine), m_toDos(*m_engine) {
    CompleteSeriesByDates(m_toDos);
}

std::string Store::TextsFailure() const {
    const std::string& failure = m_addresses.TextsFailure();
    return failure.empty() ? m_toDos.TextsFailure() : failure;
}

void Store::Check(long status) {
    if (status == 0) return;
    if (status == static_cast<long>(StoreStatus::Gone)) {
        throw CommandError(kNothingFound, "the store holds no such record");
    }
    throw CommandError(kWrongUse, m_engine->LastError());
}

std::unique_ptr<CAddressRecord> FindAddress(Store& store, std::int64_t id) {
    auto record = std::make_unique<CAddressRecord>(store.Addresses(), 1);
    const long status = store.Addresses().Find(id, *record);
    if (status == static_cast<long>(StoreStatus::Gone) || (status == 0 && record->IsDeleted())) {
        throw CommandError(kNothingFound, fmt::format("there is no address with the id {}", id));
    }
    store.Check(status);
    return record;
}

WriteClaim::WriteClaim(Store& store) : WriteClaim(store.Path()) {
    if (!IsBackupDue(store.Engine())) return;
    const std::string problem = MakeAutomaticBackup(store.Path());
    if (!problem.empty()) PrintWarning(problem);
}

WriteClaim::WriteClaim(const std::string& path) : m_claim(path, kTerminalOwner, kPatience) {
    if (m_claim.Access() != DataSetAccess::Refused) return;
    throw CommandError(kWrongUse, fmt::format("{}: {} has this store open; try again later", path,
                                              ToUtf8(m_claim.Holder())));
}

Transaction::Transaction(Store& store)
    : m_claim(store), m_store(store), m_transaction(store.Engine()) {
    store.Check(static_cast<long>(m_transaction.Status()));
    store.Check(store.Addresses().RefreshTexts());
    store.Check(store.ToDos().RefreshTexts());
}

void Transaction::Commit() {
    m_store.Check(static_cast<long>(m_transaction.Commit()));
}

}  // namespace orvo::cli
