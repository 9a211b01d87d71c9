// What all records have: category, place, marks, note, source, and the road of a change.
// SPDX-License-Identifier: MIT
#include <utility>

#include <fmt/format.h>

#include <contracts/RecordStore.h>
#include <platform/text/Charset.h>
#include <platform/text/SystemText.h>

#include "CheckedText.h"

namespace orvo {

namespace {

constexpr long kOk = static_cast<long>(StoreStatus::Ok);

}  // namespace

CBaseRecord::CBaseRecord(CBaseTable& table, TableKind kind) : m_table(table), m_kind(kind) {}

long CBaseRecord::GetCategoryId(int& category) const {
    category = m_category;
    return kOk;
}

long CBaseRecord::SetCategoryId(int category) {
    if (category < 0 || category >= kCategoryCount) {
        return Refuse(fmt::format("a record's category is 0 to 15, not {}", category));
    }
    return Change([=](Draft& draft) { draft.row.category = category; });
}

long CBaseRecord::GetPlacementPos(int& position) const {
    position = m_placement;
    return kOk;
}

long CBaseRecord::SetPlacementPos(int position) {
    return Change([=](Draft& draft) { draft.row.placement = position; });
}

long CBaseRecord::SetPrivate(int isPrivate) {
    return ChangeFlag(RowFlag::Private, isPrivate != 0);
}

long CBaseRecord::SetArchived(int isArchived) {
    return ChangeFlag(RowFlag::Archived, isArchived != 0);
}

long CBaseRecord::GetNote(CString& note) const {
    RowExtra extra;
    const long status = ReadExtra(extra);
    if (status == kOk) {
        note = SystemText(extra.note);
    }
    return status;
}

long CBaseRecord::SetNote(const CString& note) {
    CString before;
    if (const long status = GetNote(before); status != kOk || before == note) {
        return status;
    }
    std::string utf8;
    if (!SystemToUtf8(note, utf8)) {
        return Refuse("the note holds bytes that stand for no character");
    }
    return SetNoteUtf8(utf8);
}

long CBaseRecord::GetNoteUtf8(std::string& note) const {
    RowExtra extra;
    const long status = ReadExtra(extra);
    if (status == kOk) {
        note = std::move(extra.note);
    }
    return status;
}

long CBaseRecord::SetNoteUtf8(std::string_view note) {
    if (!IsValidUtf8(note)) {
        return Refuse("the note isn't UTF-8");
    }
    return Change(
        [=](Draft& draft) {
            draft.extra.note = note;
            draft.row.flags &= ~RowFlag::Note;
            draft.row.flags |= note.empty() ? 0 : RowFlag::Note;
        },
        Parts::All);
}

long CBaseRecord::GetSource(std::string& source) const {
    std::vector<SharedText> shared;
    std::string rest;
    const long status = GetSourceParts(shared, rest);
    if (status == kOk) {
        std::string beginning;
        for (const SharedText& text : shared) {
            beginning += text.Text();
        }
        source = std::move(rest.insert(0, beginning));
    }
    return status;
}

long CBaseRecord::GetSourceParts(std::vector<SharedText>& shared, std::string& rest) const {
    RowExtra extra;
    const long status = ReadExtra(extra);
    if (status == kOk) {
        shared = std::move(extra.shared);
        rest = std::move(extra.source);
    }
    return status;
}

long CBaseRecord::GetOrigin(std::string& origin) const {
    RowExtra extra;
    const long status = ReadExtra(extra);
    if (status == kOk) {
        origin = std::move(extra.origin);
    }
    return status;
}

long CBaseRecord::SetSource(std::string_view rest, std::string_view origin,
                            const std::vector<SharedText>& shared) {
    if (!IsValidUtf8(origin)) {
        return Refuse("the origin isn't UTF-8");
    }
    return Change(
        [&](Draft& draft) {
            draft.extra.source = rest;
            draft.extra.origin = origin;
            draft.extra.shared = shared;
        },
        Parts::All);
}

long CBaseRecord::GetIdentity(RowIdentity& identity) const {
    return static_cast<long>(m_table.m_engine.ReadIdentity(m_kind, m_id, identity));
}

long CBaseRecord::ChangeFlag(std::uint32_t flag, bool on) {
    return Change([=](Draft& draft) {
        draft.row.flags = on ? draft.row.flags | flag : draft.row.flags & ~flag;
    });
}

long CBaseRecord::GetText(std::uint8_t field, CString& text) const {
    text = SystemText(m_fields.Get(field));
    return kOk;
}

long CBaseRecord::ChangeText(std::uint8_t field, const CString& text) {
    CString before;
    GetText(field, before);
    if (before == text) {
        return kOk;
    }
    std::string utf8;
    if (!SystemToUtf8(text, utf8)) {
        return Refuse("the text holds bytes that stand for no character");
    }
    return Change([&](Draft& draft) { draft.fields.Set(field, utf8); });
}

long CBaseRecord::ChangeUtf8(std::uint8_t field, std::string_view utf8) {
    if (!IsValidUtf8(utf8)) {
        return Refuse("the text isn't UTF-8");
    }
    return Change([&](Draft& draft) { draft.fields.Set(field, utf8); });
}

long CBaseRecord::Change(const std::function<void(Draft&)>& change, Parts parts,
                         RecordChange::Kind kind) {
    if (m_id == 0) {
        ChangeNew(change, parts);
        return kOk;
    }
    const long status = ChangeStored(change, parts);
    if (status == kOk) {
        m_table.Tell(kind, m_id);
    } else if (m_table.m_failed) {
        m_table.m_failed(m_table.LastError(), true);
    }
    return status;
}

long CBaseRecord::ChangeStored(const std::function<void(Draft&)>& change, Parts parts) {
    StoreTransaction transaction(m_table.m_engine);
    Draft draft;
    if (transaction.Status() != StoreStatus::Ok) {
        return static_cast<long>(transaction.Status());
    }
    if (const long status = ReadDraft(draft, parts); status != kOk) {
        return status;
    }
    change(draft);
    draft.row.fields = draft.fields.Bytes();
    StoreStatus status =
        m_table.m_engine.Update(m_kind, draft.row, parts == Parts::All ? &draft.extra : nullptr);
    if (status == StoreStatus::Ok) {
        status = transaction.Commit();
    }
    if (status != StoreStatus::Ok) {
        return static_cast<long>(status);
    }
    FromRow(draft.row);
    m_fields = std::move(draft.fields);
    return kOk;
}

long CBaseRecord::Refuse(std::string reason) const {
    return static_cast<long>(m_table.m_engine.Fail(StoreStatus::Refused, std::move(reason)));
}

void CBaseRecord::ToRow(StoredRow& row) const {
    row.id = m_id;
    row.placement = m_placement;
    row.category = m_category;
    row.flags = m_flags;
}

void CBaseRecord::FromRow(const StoredRow& row) {
    const bool isKnown = row.category >= 0 && row.category < kCategoryCount;
    m_id = row.id;
    m_placement = row.placement;
    m_category = static_cast<std::uint8_t>(isKnown ? row.category : kNoCategory);
    m_flags = row.flags;
}

long CBaseRecord::ReadExtra(RowExtra& extra) const {
    if (m_id != 0) {
        return static_cast<long>(m_table.m_engine.ReadExtra(m_kind, m_id, extra));
    }
    if (m_newExtra) {
        extra = *m_newExtra;
    }
    return kOk;
}

// The record as the store has it now.
long CBaseRecord::ReadDraft(Draft& draft, Parts parts) const {
    StoreEngine& engine = m_table.m_engine;
    std::string fields;
    const StoreStatus status = engine.Read(m_kind, m_id, draft.row, fields);
    if (status != StoreStatus::Ok) {
        return static_cast<long>(status);
    }
    if (!draft.fields.Assign(fields)) {
        return Damaged(m_id);
    }
    return parts == Parts::All ? ReadExtra(draft.extra) : kOk;
}

long CBaseRecord::Damaged(std::int64_t id) const {
    StoreEngine& engine = m_table.m_engine;
    const std::string store = engine.Name().empty() ? "" : engine.Name() + ": ";
    return static_cast<long>(engine.Fail(
        StoreStatus::Failed, fmt::format("{}the fields of record {} are damaged", store, id)));
}

void CBaseRecord::ChangeNew(const std::function<void(Draft&)>& change, Parts parts) {
    Draft draft;
    ToRow(draft.row);
    draft.fields = std::move(m_fields);
    if (parts == Parts::All && m_newExtra) {
        draft.extra = std::move(*m_newExtra);
    }
    change(draft);
    FromRow(draft.row);
    m_fields = std::move(draft.fields);
    if (parts == Parts::All) {
        m_newExtra = std::make_unique<RowExtra>(std::move(draft.extra));
    }
}

void CBaseRecord::TakeOver(CBaseRecord& other) {
    StoredRow row;
    other.ToRow(row);
    FromRow(row);
    m_fields = std::move(other.m_fields);
    m_newExtra.reset();
}

long CBaseRecord::Load(const StoredRow& row) {
    if (!m_fields.Assign(row.fields)) {
        return Damaged(row.id);
    }
    FromRow(row);
    m_newExtra.reset();
    return kOk;
}

}  // namespace orvo
