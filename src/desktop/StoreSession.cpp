// The store that a window shows.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <desktop/StoreSession.h>
#include <exchange/ImportFile.h>
#include <libraries/quire/UserStore.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {
namespace {

// So long a program that writes to the store is waited for.
constexpr std::chrono::milliseconds kPatience{2000};

}  // namespace

std::unique_ptr<StoreSession> StoreSession::Open(const std::string& path, std::string& error) {
    std::unique_ptr<SqliteEngine> engine = OpenUserStore(path, error);
    if (!engine) return nullptr;
    return std::unique_ptr<StoreSession>(new StoreSession(std::move(engine)));
}

StoreSession::StoreSession(std::unique_ptr<SqliteEngine> engine)
    : m_engine(std::move(engine)), m_addresses(*m_engine), m_toDos(*m_engine) {}

bool StoreSession::Claim(std::string& error) {
    m_claim.emplace(m_engine->Name(), kDesktopOwner, kPatience);
    if (m_claim->Access() != DataSetAccess::Refused) return true;
    error = fmt::format("{}: {} has this store open; try again later", m_engine->Name(),
                        ToUtf8(m_claim->Holder()));
    return false;
}

ImportResult StoreSession::Import(const std::vector<std::string>& files) {
    ImportResult result;
    try {
        ImportAll(files, result);
    } catch (const ExchangeError& error) {
        result = {};
        result.failure = error.what();
        // Of what was taken back nothing may stay in memory.
        m_addresses.RefreshTexts();
        m_toDos.RefreshTexts();
    }
    return result;
}

void StoreSession::ImportAll(const std::vector<std::string>& files, ImportResult& result) {
    const auto check = [this](auto status) {
        if (static_cast<long>(status) != 0) throw ExchangeError(m_engine->LastError());
    };
    StoreTransaction transaction(*m_engine);
    check(transaction.Status());
    check(m_addresses.RefreshTexts());
    check(m_toDos.RefreshTexts());
    for (const std::string& file : files) {
        const ImportReport report = ImportFile(file, m_addresses, m_toDos);
        result.addresses += report.addresses;
        result.toDos += report.toDos;
        for (const SkippedEntry& entry : report.skipped) {
            result.skipped.push_back(fmt::format("{}:{}: {}", file, entry.line, entry.reason));
        }
    }
    check(transaction.Commit());
}

void StoreSession::SetFailureListener(const std::function<void(const std::string&)>& listener) {
    const auto tell = [listener](const std::string& reason, bool) { listener(reason); };
    m_addresses.SetFailureListener(tell);
    m_toDos.SetFailureListener(tell);
}

bool StoreSession::TakeForeignChange() {
    const bool changesAddresses = m_addresses.TakeForeignChange();
    return m_toDos.TakeForeignChange() || changesAddresses;
}

}  // namespace orvo::desktop
