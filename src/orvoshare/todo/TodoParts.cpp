// Which to-dos are parts of which.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <contracts/RowIdentity.h>
#include <orvoshare/todo/TodoParts.h>

namespace orvo {

void TodoParts::Note(std::int64_t id, std::string_view parentUid, bool isCompleted) {
    ++m_notes;
    TakeWaiting();
    const auto known = m_parts.find(id);
    if (known == m_parts.end() && parentUid.empty()) return;
    if (known != m_parts.end() && known->second.whole->uid == PlainUid(parentUid)) {
        known->second.isCompleted = isCompleted;
        return;
    }
    Forget(id);
    if (!parentUid.empty()) Add(id, parentUid, isCompleted);
}

void TodoParts::NoteNew(std::int64_t id, std::string_view parentUid, bool isCompleted) {
    ++m_notes;
    if (!parentUid.empty()) m_waiting.push_back({id, std::string(parentUid), isCompleted});
}

void TodoParts::TakeWaiting() {
    if (m_waiting.empty()) return;
    m_parts.reserve(m_parts.size() + m_waiting.size());
    for (const WaitingPart& part : std::exchange(m_waiting, {})) {
        Add(part.id, part.parentUid, part.isCompleted);
    }
}

void TodoParts::Add(std::int64_t id, std::string_view parentUid, bool isCompleted) {
    const auto place = m_wholes.try_emplace(PlainUid(parentUid)).first;
    Whole& whole = place->second;
    if (whole.parts.empty()) whole.uid = place->first;
    whole.parts.push_back(id);
    m_parts.emplace(id, Part{&whole, isCompleted});
}

void TodoParts::Forget(std::int64_t id) {
    ++m_notes;
    TakeWaiting();
    const auto known = m_parts.find(id);
    if (known == m_parts.end()) return;
    Whole& whole = *known->second.whole;
    m_parts.erase(known);
    std::erase(whole.parts, id);
    if (whole.parts.empty()) m_wholes.erase(std::string(whole.uid));
}

void TodoParts::Clear() {
    ++m_notes;
    m_waiting.clear();
    m_parts.clear();
    m_wholes.clear();
}

void TodoParts::Read() {
    CToDoRecord record(m_table);
    if (m_isRead) {
        if (m_changed.empty()) return;
        for (const std::int64_t id : std::exchange(m_changed, {})) {
            const bool isThere = m_table.Find(id, record) == 0 && record.IsDeleted() == 0;
            isThere ? Note(id, record.ParentUid(), record.IsCompleted() != 0) : Forget(id);
        }
        return;
    }
    Clear();
    CToDoIterator iterator(m_table);
    long found = iterator.FindFirst(record);
    for (; found == 0 || iterator.IsAtDamage(); found = iterator.FindNext(record)) {
        if (found == 0) NoteNew(record.GetId(), record.ParentUid(), record.IsCompleted() != 0);
    }
    m_isRead = true;
}

void TodoParts::SetChanged(std::optional<std::int64_t> id) {
    // What nobody has asked for yet is read as it is then.
    if (m_isRead && id) m_changed.insert(*id);
    if (id) return;
    m_isRead = false;
    m_changed.clear();
}

std::int64_t TodoParts::IdOf(Whole& whole) {
    if (whole.asked == m_notes) return whole.id;
    whole.asked = m_notes;
    whole.id = 0;
    std::vector<std::int64_t> ids;
    if (m_table.FindUid(whole.uid, ids) != 0) return 0;
    CToDoRecord record(m_table);
    for (const std::int64_t id : ids) {
        if (m_table.Find(id, record) != 0 || record.IsDeleted() != 0) continue;
        whole.id = id;
        break;
    }
    return whole.id;
}

std::int64_t TodoParts::NamedBy(std::int64_t id) {
    const auto part = m_parts.find(id);
    return part == m_parts.end() ? 0 : IdOf(*part->second.whole);
}

// Where they lead into a circle, that is among them once.
std::unordered_set<std::int64_t> TodoParts::WholesAbove(std::int64_t id) {
    std::unordered_set<std::int64_t> above;
    for (id = NamedBy(id); id != 0 && above.insert(id).second;) id = NamedBy(id);
    return above;
}

std::int64_t TodoParts::ParentOf(std::int64_t id) {
    TakeWaiting();
    return WholesAbove(id).count(id) != 0 ? 0 : NamedBy(id);
}

std::vector<std::int64_t> TodoParts::PartsOf(std::string_view uid) {
    TakeWaiting();
    const auto found = m_wholes.find(PlainUid(uid));
    if (found == m_wholes.end()) return {};
    const std::int64_t id = IdOf(found->second);
    if (id == 0) return {};
    // Among its parts only those that it is itself below of are in a circle with it.
    std::unordered_set<std::int64_t> above = WholesAbove(id);
    above.insert(id);
    std::vector<std::int64_t> parts;
    for (const std::int64_t part : found->second.parts) {
        if (above.count(part) == 0) parts.push_back(part);
    }
    std::sort(parts.begin(), parts.end());
    return parts;
}

PartCount TodoParts::CountOf(std::string_view uid) {
    TakeWaiting();
    PartCount count;
    for (const std::int64_t id : PartsOf(uid)) {
        ++count.all;
        if (m_parts.at(id).isCompleted) ++count.done;
    }
    return count;
}

// Only those below are asked for their UIDs, not all parts for their wholes.
std::unordered_set<std::int64_t> TodoParts::AllBelow(std::int64_t id) {
    TakeWaiting();
    std::unordered_set<std::int64_t> below;
    if (IsEmpty()) return below;
    std::unordered_set<std::int64_t> above = WholesAbove(id);
    above.insert(id);
    std::vector<std::int64_t> open{id};
    while (!open.empty()) {
        const std::int64_t whole = open.back();
        open.pop_back();
        for (const std::int64_t part : NamingIt(whole)) {
            if (above.count(part) == 0 && below.insert(part).second) open.push_back(part);
        }
    }
    return below;
}

// All that name it as their whole, those in a circle with it, too.
std::vector<std::int64_t> TodoParts::NamingIt(std::int64_t id) {
    CToDoRecord record(m_table);
    RowIdentity identity;
    if (m_table.Find(id, record) != 0 || record.GetIdentity(identity) != 0) return {};
    const auto found = m_wholes.find(PlainUid(identity.uid));
    if (found == m_wholes.end() || IdOf(found->second) != id) return {};
    return found->second.parts;
}

}  // namespace orvo
