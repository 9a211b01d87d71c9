// The tables of a store.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include <contracts/RecordStore.h>
#include <platform/text/CodePage.h>

#include "SystemText.h"

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
      m_categories([this](int index, const CString& name) { return KeepCategory(index, name); }),
      m_foreignVersion(engine.ForeignVersion()) {}

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
        record.m_id = row.id;
        record.m_placement = row.placement;
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

bool CBaseTable::TakeForeignChange() {
    const std::int64_t version = m_engine.ForeignVersion();
    if (version == m_foreignVersion || !LoadTexts()) {
        return false;
    }
    m_foreignVersion = version;
    return true;
}

bool CBaseTable::LoadTexts() {
    NumberedTexts names;
    if (!ReadTexts(TextKind::Category, names)) {
        return false;
    }
    for (const auto& [index, name] : names) {
        m_categories.Load(index, Utf8ToSystem(name));
    }
    return true;
}

bool CBaseTable::ReadTexts(TextKind texts, NumberedTexts& result) {
    return m_engine.ReadTexts(m_kind, texts, result) == StoreStatus::Ok;
}

void CBaseTable::Tell(RecordChange::Kind kind, std::int64_t id) {
    const Listener listener = m_listener;  // it may set another one while it runs
    if (listener) {
        listener({kind, id});
    }
}

bool CBaseTable::KeepCategory(int index, const CString& name) {
    std::string utf8;
    CodePage::System().ToUtf8(name.View(), utf8);
    if (m_engine.WriteText(m_kind, TextKind::Category, index, utf8) != StoreStatus::Ok) {
        return false;
    }
    Tell(RecordChange::Kind::TextChanged, 0);
    return true;
}

long CBaseTable::RefuseRecord(const char* reason) {
    return static_cast<long>(m_engine.Fail(StoreStatus::Refused, reason));
}

CAddressTable::CAddressTable(StoreEngine& engine) : CBaseTable(engine, TableKind::Address) {
    CAddressTable::LoadTexts();
}

int CAddressTable::GetPhoneLabelCount() const {
    return static_cast<int>(m_phoneLabels.size());
}

CString CAddressTable::GetPhoneLabel(long id) const {
    const bool isThere = id >= 0 && id < GetPhoneLabelCount();
    return isThere ? Utf8ToSystem(m_phoneLabels[static_cast<std::size_t>(id)]) : CString();
}

CString CAddressTable::GetCustomLabel(int number) const {
    const bool isThere = number >= 1 && number <= kCustomFields;
    return isThere ? Utf8ToSystem(m_customLabels[static_cast<std::size_t>(number - 1)]) : CString();
}

long CAddressTable::SetPhoneLabel(long id, const CString& label) {
    const int count = GetPhoneLabelCount();
    if (id < 0 || id > count || id >= kMostPhoneLabels) {
        return static_cast<long>(m_engine.Fail(
            StoreStatus::Refused, fmt::format("a phone label is 0 to {}, not {}",
                                              std::min(count, kMostPhoneLabels - 1), id)));
    }
    if (id < count && GetPhoneLabel(id) == label) {
        return kOk;
    }
    return ChangeLabel(TextKind::PhoneLabel, static_cast<int>(id), label, m_phoneLabels,
                       static_cast<std::size_t>(id));
}

long CAddressTable::SetCustomLabel(int number, const CString& label) {
    if (number < 1 || number > kCustomFields) {
        return static_cast<long>(m_engine.Fail(
            StoreStatus::Refused, fmt::format("a custom label is 1 to 4, not {}", number)));
    }
    if (GetCustomLabel(number) == label) {
        return kOk;
    }
    return ChangeLabel(TextKind::CustomLabel, number, label, m_customLabels,
                       static_cast<std::size_t>(number - 1));
}

long CAddressTable::ChangeLabel(TextKind texts, int number, const CString& label,
                                std::vector<std::string>& labels, std::size_t index) {
    std::string utf8;
    if (!SystemToUtf8(label, utf8)) {
        return static_cast<long>(m_engine.Fail(
            StoreStatus::Refused, "the label holds bytes that stand for no character"));
    }
    const StoreStatus status = m_engine.WriteText(m_kind, texts, number, utf8);
    if (status == StoreStatus::Ok) {
        labels.resize(std::max(labels.size(), index + 1));
        labels[index] = std::move(utf8);
        Tell(RecordChange::Kind::TextChanged, 0);
    }
    return static_cast<long>(status);
}

bool CAddressTable::LoadTexts() {
    NumberedTexts phones;
    NumberedTexts customs;
    if (!CBaseTable::LoadTexts() || !ReadTexts(TextKind::PhoneLabel, phones) ||
        !ReadTexts(TextKind::CustomLabel, customs)) {
        return false;
    }
    m_phoneLabels = InPlaces(phones, 0, kMostPhoneLabels);
    m_customLabels = InPlaces(customs, 1, kCustomFields);
    m_customLabels.resize(kCustomFields);
    return true;
}

CToDoTable::CToDoTable(StoreEngine& engine) : CBaseTable(engine, TableKind::ToDo) {
    CBaseTable::LoadTexts();
}

}  // namespace orvo
