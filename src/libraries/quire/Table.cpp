// The tables of a store.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <set>
#include <utility>

#include <fmt/format.h>

#include <contracts/DefaultTexts.h>
#include <contracts/RecordStore.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemText.h>

#include "CheckedText.h"

namespace orvo {

namespace {

using TextKind = StoreEngine::TextKind;
using NumberedTexts = std::vector<StoreEngine::NumberedText>;

constexpr int kMostPhoneLabels = 256;
constexpr long kOk = static_cast<long>(StoreStatus::Ok);

// The texts whose numbers are `first` to `first + most - 1`, at their places.
std::vector<std::string> InPlaces(NumberedTexts& texts, int first, int most) {
    std::vector<std::string> result;
    for (auto& [number, text] : texts) {
        if (number < first || number >= first + most) {
            continue;
        }
        const auto place = static_cast<std::size_t>(number - first);
        result.resize(std::max(result.size(), place + 1));
        result[place] = std::move(text);
    }
    return result;
}

}  // namespace

CBaseTable::CBaseTable(StoreEngine& engine, TableKind kind)
    : m_engine(engine),
      m_kind(kind),
      m_categories(
          [this](const auto& utf8, const auto& choose) { return KeepCategory(utf8, choose); },
          [this] { Tell(RecordChange::Kind::TextChanged, 0); }) {}

long CBaseTable::Add(CBaseRecord& record) {
    if (&record.m_table != this) {
        return RefuseRecord("the record is one of another table");
    }
    if (record.m_id != 0) {
        return RefuseRecord("the record is in its table already");
    }
    StoredRow row;
    record.ToRow(row);
    row.fields = record.m_fields.Bytes();
    const RowExtra none;
    const StoreStatus status =
        m_engine.Insert(m_kind, row, record.m_newExtra ? *record.m_newExtra : none);
    if (status == StoreStatus::Ok) {
        record.FromRow(row);
        record.m_newExtra.reset();
        Tell(RecordChange::Kind::Added, row.id);
    }
    return static_cast<long>(status);
}

long CBaseTable::Find(std::int64_t id, CBaseRecord& record) {
    if (&record.m_table != this) {
        return RefuseRecord("the record is one of another table");
    }
    StoredRow row;
    std::string fields;
    const StoreStatus status = m_engine.Read(m_kind, id, row, fields);
    return status == StoreStatus::Ok ? record.Load(row) : static_cast<long>(status);
}

long CBaseTable::FindUid(std::string_view uid, std::vector<std::int64_t>& ids) {
    return static_cast<long>(m_engine.FindUid(m_kind, uid, ids));
}

long CBaseTable::Delete(CBaseRecord& record) {
    return Mark(record, true);
}

long CBaseTable::Undelete(CBaseRecord& record) {
    return Mark(record, false);
}

long CBaseTable::Mark(CBaseRecord& record, bool deleted) {
    if (&record.m_table != this || record.m_id == 0) {
        return RefuseRecord("the record isn't in this table");
    }
    return record.Change(
        [=](CBaseRecord::Draft& draft) {
            draft.row.flags &= ~RowFlag::Deleted;
            draft.row.flags |= deleted ? RowFlag::Deleted : 0;
        },
        CBaseRecord::Parts::Row,
        deleted ? RecordChange::Kind::Deleted : RecordChange::Kind::Undeleted);
}

long CBaseTable::Replace(std::int64_t id, CBaseRecord& record) {
    if (&record.m_table != this || record.m_id != 0) {
        return RefuseRecord("the record isn't a new one of this table");
    }
    StoreTransaction transaction(m_engine);
    StoredRow stored;
    std::string fields;
    StoreStatus status = transaction.Status();
    if (status == StoreStatus::Ok) {
        status = m_engine.Read(m_kind, id, stored, fields);
    }
    StoredRow row;
    record.ToRow(row);
    row.id = id;
    row.placement = stored.placement;
    row.fields = record.m_fields.Bytes();
    const RowExtra none;
    if (status == StoreStatus::Ok) {
        status = m_engine.Update(m_kind, row, record.m_newExtra ? record.m_newExtra.get() : &none);
    }
    if (status == StoreStatus::Ok) {
        status = transaction.Commit();
    }
    if (status == StoreStatus::Ok) {
        const bool wasDeleted = (stored.flags & RowFlag::Deleted) != 0;
        record.FromRow(row);
        record.m_newExtra.reset();
        Tell(wasDeleted ? RecordChange::Kind::Undeleted : RecordChange::Kind::Changed, id);
    }
    return static_cast<long>(status);
}

long CBaseTable::Remove(CBaseRecord& record) {
    if (&record.m_table != this || record.m_id == 0) {
        return RefuseRecord("the record isn't in this table");
    }
    const std::int64_t id = record.m_id;
    auto extra = std::make_unique<RowExtra>();
    StoreStatus status = m_engine.ReadExtra(m_kind, id, *extra);
    if (status == StoreStatus::Ok) {
        status = m_engine.Remove(m_kind, id);
    }
    if (status == StoreStatus::Ok) {
        record.m_newExtra = std::move(extra);
        record.m_id = 0;
        record.m_flags &= ~RowFlag::Deleted;
        Tell(RecordChange::Kind::Deleted, id);
    }
    return static_cast<long>(status);
}

std::int64_t CBaseTable::GetCount() {
    return m_engine.Count(m_kind);
}

long CBaseTable::RefreshTexts() {
    return static_cast<long>(LoadTexts());
}

StoreStatus CBaseTable::BeginTexts(const StoreTransaction& transaction) {
    return transaction.Status() == StoreStatus::Ok ? LoadTexts() : transaction.Status();
}

StoreStatus CBaseTable::ReadTexts(TextKind texts, NumberedTexts& result) {
    const StoreStatus status = m_engine.ReadTexts(m_kind, texts, result);
    if (status == StoreStatus::Ok || m_isMade) {
        return status;
    }
    m_textsFailure = m_engine.LastError() +
                     "; the usual categories and labels stand for those that can't be read";
    for (const DefaultText& usual : kDefaultTexts) {
        const auto isThere = [&](const auto& text) { return text.number == usual.number; };
        if (usual.table == m_kind && usual.kind == texts &&
            std::none_of(result.begin(), result.end(), isThere)) {
            result.push_back({usual.number, usual.text});
        }
    }
    return StoreStatus::Ok;
}

StoreStatus CBaseTable::LoadTexts() {
    NumberedTexts names;
    const StoreStatus status = ReadTexts(TextKind::Category, names);
    if (status != StoreStatus::Ok) {
        return status;
    }
    std::set<int> stored;
    for (const auto& [index, name] : names) {
        m_categories.Load(index, name);
        stored.insert(index);
    }
    for (int index = 0; index < kCategoryCount; ++index) {
        if (stored.count(index) == 0) {
            m_categories.Unload(index);
        }
    }
    return status;
}

void CBaseTable::Tell(RecordChange::Kind kind, std::int64_t id) {
    const Listener listener = m_listener;  // it may set another one while it runs
    if (listener) {
        listener({kind, id});
    }
}

bool CBaseTable::KeepCategory(const std::string& utf8, const CCategoryMgr::Choose& choose) {
    StoreTransaction transaction(m_engine);
    if (BeginTexts(transaction) != StoreStatus::Ok) {
        return false;
    }
    const int index = choose();
    if (index < 0) {
        m_engine.Fail(StoreStatus::Refused, m_categories.GetCount() == kCategoryCount
                                                ? "there are 16 categories already"
                                                : "there is a category of that name already");
        return false;
    }
    return m_engine.WriteText(m_kind, TextKind::Category, index, utf8) == StoreStatus::Ok &&
           transaction.Commit() == StoreStatus::Ok;
}

long CBaseTable::RefuseRecord(const char* reason) {
    return static_cast<long>(m_engine.Fail(StoreStatus::Refused, reason));
}

CAddressTable::CAddressTable(StoreEngine& engine) : CBaseTable(engine, TableKind::Address) {
    CAddressTable::LoadTexts();
    m_isMade = true;
}

int CAddressTable::GetPhoneLabelCount() const {
    return static_cast<int>(m_phoneLabels.size());
}

CString CAddressTable::GetPhoneLabel(long id) const {
    return SystemText(ShownText(TextKind::PhoneLabel, static_cast<int>(id), StoredPhoneLabel(id)));
}

CString CAddressTable::GetCustomLabel(int number) const {
    return SystemText(ShownText(TextKind::CustomLabel, number, StoredCustomLabel(number)));
}

std::string CAddressTable::StoredPhoneLabel(long id) const {
    const bool isThere = id >= 0 && id < GetPhoneLabelCount();
    return isThere ? m_phoneLabels[static_cast<std::size_t>(id)] : std::string();
}

std::string CAddressTable::StoredCustomLabel(int number) const {
    const bool isThere = number >= 1 && number <= kCustomFields;
    return isThere ? m_customLabels[static_cast<std::size_t>(number - 1)] : std::string();
}

long CAddressTable::SetPhoneLabel(long id, const CString& label) {
    const bool isNew = id == GetPhoneLabelCount();
    if (IsPhoneLabel(id, label)) {
        return kOk;
    }
    StoreTransaction transaction(m_engine);
    if (const StoreStatus status = BeginTexts(transaction); status != StoreStatus::Ok) {
        return static_cast<long>(status);
    }
    const int count = GetPhoneLabelCount();
    if (id < 0 || id > count || id >= kMostPhoneLabels) {
        return RefusePhoneLabel(id);
    }
    if (IsPhoneLabel(id, label)) {
        return kOk;
    }
    if (isNew && id < count) {
        return RefuseRecord("another program has just added a phone label of that number");
    }
    return ChangeLabel(transaction, TextKind::PhoneLabel, static_cast<int>(id), label);
}

bool CAddressTable::IsPhoneLabel(long id, const CString& label) const {
    return id >= 0 && id < GetPhoneLabelCount() && GetPhoneLabel(id) == label;
}

long CAddressTable::SetCustomLabel(int number, const CString& label) {
    if (number < 1 || number > kCustomFields) {
        return static_cast<long>(m_engine.Fail(
            StoreStatus::Refused, fmt::format("a custom label is 1 to 4, not {}", number)));
    }
    if (GetCustomLabel(number) == label) {
        return kOk;
    }
    StoreTransaction transaction(m_engine);
    if (const StoreStatus status = BeginTexts(transaction); status != StoreStatus::Ok) {
        return static_cast<long>(status);
    }
    return ChangeLabel(transaction, TextKind::CustomLabel, number, label);
}

long CAddressTable::RefusePhoneLabel(long id) {
    return static_cast<long>(
        m_engine.Fail(StoreStatus::Refused,
                      fmt::format("a phone label is 0 to {}, not {}",
                                  std::min(GetPhoneLabelCount(), kMostPhoneLabels - 1), id)));
}

long CAddressTable::ChangeLabel(StoreTransaction& transaction, TextKind texts, int number,
                                const CString& label) {
    std::string utf8;
    if (!SystemToUtf8(label, utf8)) {
        return RefuseRecord("the label holds bytes that stand for no character");
    }
    StoreStatus status = m_engine.WriteText(m_kind, texts, number, utf8);
    if (status == StoreStatus::Ok) {
        status = transaction.Commit();
    }
    if (status == StoreStatus::Ok) {
        const bool isPhone = texts == TextKind::PhoneLabel;
        std::vector<std::string>& labels = isPhone ? m_phoneLabels : m_customLabels;
        const auto place = static_cast<std::size_t>(isPhone ? number : number - 1);
        labels.resize(std::max(labels.size(), place + 1));
        labels[place] = std::move(utf8);
        Tell(RecordChange::Kind::TextChanged, 0);
    }
    return static_cast<long>(status);
}

StoreStatus CAddressTable::LoadTexts() {
    NumberedTexts phones;
    NumberedTexts customs;
    StoreStatus status = ReadTexts(TextKind::PhoneLabel, phones);
    if (status == StoreStatus::Ok) {
        status = ReadTexts(TextKind::CustomLabel, customs);
    }
    if (status == StoreStatus::Ok) {
        status = CBaseTable::LoadTexts();
    }
    if (status != StoreStatus::Ok) {
        return status;
    }
    m_phoneLabels = InPlaces(phones, 0, kMostPhoneLabels);
    m_customLabels = InPlaces(customs, 1, kCustomFields);
    m_customLabels.resize(kCustomFields);
    return status;
}

CToDoTable::CToDoTable(StoreEngine& engine) : CBaseTable(engine, TableKind::ToDo) {
    CBaseTable::LoadTexts();
    m_isMade = true;
}

}  // namespace orvo
