// The store that a window shows.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <filesystem>

#include <fmt/format.h>

#include <desktop/store/StoreSession.h>
#include <desktop/texts/Texts.h>
#include <exchange/calendar/SeriesCompletion.h>
#include <exchange/files/ImportFile.h>
#include <libraries/quire/StoreBackup.h>
#include <libraries/quire/UserStore.h>
#include <orvoshare/text/NameText.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {
namespace {

// How long a program that writes to the store is waited for.
constexpr std::chrono::milliseconds kPatience{2000};

std::string NameOf(CAddressRecord& record) {
    CString name;
    FormatName(&record, name);
    return ToUtf8(name);
}

// The file isn't needed any longer once the store is what it holds.
std::string RestoreAgain(const std::string& store, const std::string& file, std::string& kept) {
    RestoreReport report;
    std::string error;
    if (!RestoreStore(store, file, report, error)) return error;
    kept = report.kept;
    std::error_code failure;
    std::filesystem::remove(file, failure);
    return {};
}

}  // namespace

std::unique_ptr<StoreSession> StoreSession::Open(const std::string& path, std::string& error,
                                                 StoreFault* fault, const StoreProgress& progress) {
    std::unique_ptr<SqliteEngine> engine = OpenUserStore(path, error, fault, progress);
    if (!engine) return nullptr;
    return std::unique_ptr<StoreSession>(new StoreSession(std::move(engine)));
}

StoreSession::StoreSession(std::unique_ptr<SqliteEngine> engine)
    : m_engine(std::move(engine)),
      m_foreign(*m_engine),
      m_history(*m_engine),
      m_addresses(m_history.Engine()),
      m_toDos(m_history.Engine()),
      m_groups(m_addresses),
      m_days(m_addresses, NameOf),
      m_parts(m_toDos) {
    CompleteSeriesByDates(m_toDos);
    m_history.SetRowListener(
        [this](TableKind kind, std::optional<std::int64_t> id) { Forget(kind, id); });
    // The window sees the restored store as it sees what others change.
    m_history.SetRestorer([this](const std::string& file, std::string& kept) {
        return RestoreAgain(Path(), file, kept);
    });
    NoteDamage(m_addresses.TextsFailure());
    NoteDamage(m_toDos.TextsFailure());
}

bool StoreSession::Claim(std::string& error) {
    m_claim.emplace(m_engine->Name(), kDesktopOwner, kPatience);
    if (m_claim->Access() != DataSetAccess::Refused) return true;
    error = fmt::format("{}: {} has this store open; try again later", m_engine->Name(),
                        ToUtf8(m_claim->Holder()));
    return false;
}

ImportResult StoreSession::Import(const std::vector<std::string>& files,
                                  const FileProgress& progress) {
    const EditHistory::Step step(m_history, Text("Import").toStdString());
    ImportResult result;
    try {
        ImportAll(files, progress, result);
    } catch (const ExchangeError& error) {
        result = {};
        result.failure = error.what();
        result.isCancelled = dynamic_cast<const ImportCancelled*>(&error) != nullptr;
        // Of what was taken back nothing may stay in memory.
        m_addresses.RefreshTexts();
        m_toDos.RefreshTexts();
    }
    return result;
}

void StoreSession::ImportAll(const std::vector<std::string>& files, const FileProgress& progress,
                             ImportResult& result) {
    StoreEngine& engine = m_history.Engine();
    const auto check = [&engine](auto status) {
        if (static_cast<long>(status) != 0) throw ExchangeError(engine.LastError());
    };
    StoreTransaction transaction(engine);
    check(transaction.Status());
    check(m_addresses.RefreshTexts());
    check(m_toDos.RefreshTexts());
    for (std::size_t i = 0; i < files.size(); ++i) {
        ImportProgress tell;
        if (progress) {
            tell = [&](std::size_t done, std::size_t total) { return progress(i, done, total); };
        }
        const ImportReport report = ImportFile(files[i], m_addresses, m_toDos, tell);
        result.addresses += report.addresses;
        result.toDos += report.toDos;
        result.updated += report.updated;
        result.unchanged += report.unchanged;
        if (result.firstAddress == 0) result.firstAddress = report.firstAddress;
        if (report.lastAddress != 0) result.lastAddress = report.lastAddress;
        for (const SkippedEntry& entry : report.skipped) {
            result.skipped.push_back({files[i], entry.line, entry.reason});
        }
    }
    check(transaction.Commit());
}

std::string StoreSession::Change(const std::string& name, const std::function<long()>& change) {
    const EditHistory::Step step(m_history, name);
    std::string reason;
    {
        StoreTransaction transaction(m_history.Engine());
        if (transaction.Status() == StoreStatus::Ok && change() == 0 &&
            transaction.Commit() == StoreStatus::Ok) {
            return {};
        }
        reason = m_history.Engine().LastError();
    }
    if (reason.empty()) reason = fmt::format("{}: the change was refused", m_engine->Name());
    return Refreshed(std::move(reason));
}

std::string StoreSession::Undo() {
    return Refreshed(m_history.Undo());
}

std::string StoreSession::Redo() {
    return Refreshed(m_history.Redo());
}

std::string StoreSession::Refreshed(std::string result) {
    m_addresses.RefreshTexts();
    m_toDos.RefreshTexts();
    return result;
}

void StoreSession::SetFailureListener(const std::function<void(const std::string&)>& listener) {
    const auto tell = [this, listener](const std::string& reason, bool isOver) {
        if (!isOver) NoteDamage(reason);
        listener(reason);
    };
    m_addresses.SetFailureListener(tell);
    m_toDos.SetFailureListener(tell);
}

// Each view that is filled meets it again.
void StoreSession::NoteDamage(const std::string& damage) {
    const bool isKnown = std::find(m_damage.begin(), m_damage.end(), damage) != m_damage.end();
    if (!damage.empty() && !isKnown) m_damage.push_back(damage);
}

// The record of that id isn't as it was; without one, all of them.
void StoreSession::Forget(TableKind kind, std::optional<std::int64_t> id) {
    id ? FindTexts(kind).Forget(*id) : FindTexts(kind).Clear();
    if (kind == TableKind::Address) {
        id ? m_groups.Forget(*id) : m_groups.Clear();
        id ? m_days.Forget(*id) : m_days.Clear();
    }
    if (kind == TableKind::ToDo) m_parts.SetChanged(id);
    for (const auto& [owner, listener] : m_recordListeners) {
        if (listener) listener(kind, id);
    }
}

TodoParts& StoreSession::Parts() {
    m_parts.Read();
    return m_parts;
}

ForeignRows StoreSession::TakeForeignChanges() {
    ForeignRows rows;
    std::vector<StoreChange> changes;
    rows.isEverything = m_foreign.Take(changes) == ForeignChanges::Extent::Everything;
    for (const StoreChange& change : changes) {
        if (change.kind == StoreChange::Kind::Texts) {
            rows.isEverything = true;
            continue;
        }
        Forget(change.table, change.id);
        rows.ids[static_cast<std::size_t>(change.table)].push_back(change.id);
    }
    if (rows.isEverything) {
        static_cast<void>(Refreshed({}));
        Forget(TableKind::Address, {});
        Forget(TableKind::ToDo, {});
    }
    return rows;
}

}  // namespace orvo::desktop
