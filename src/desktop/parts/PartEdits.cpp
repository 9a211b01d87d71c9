// The parts of a to-do as a tree, and what can be done to them.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>
#include <utility>

#include <desktop/parts/PartEdits.h>
#include <desktop/texts/Texts.h>
#include <exchange/calendar/ToDoParent.h>

namespace orvo::desktop {
namespace {

// More than anybody looks through, and few enough that the tree is there at once.
constexpr int kMostParts = 1000;
constexpr int kDeepest = 100;

int PlaceOf(const CToDoRecord& record) {
    int place = 0;
    record.GetPlacementPos(place);
    return place;
}

}  // namespace

PartEdits::Children PartEdits::ChildrenOf(std::int64_t whole) const {
    Children children;
    for (const std::int64_t id : m_context.index().PartsOf(UidOf(whole))) {
        auto record = std::make_unique<CToDoRecord>(m_context.table);
        if (m_context.table.Find(id, *record) != 0 || record->IsDeleted() != 0) continue;
        children.records.push_back(std::move(record));
    }
    std::stable_sort(
        children.records.begin(), children.records.end(),
        [](const auto& left, const auto& right) { return PlaceOf(*left) < PlaceOf(*right); });
    return children;
}

void PartEdits::Read(std::int64_t whole, int depth, int& room, std::vector<ToDoPart>& parts) const {
    for (const auto& record : ChildrenOf(whole).records) {
        const Told told = m_context.told(WayOut::View, *record);
        if (told == Told::Nothing) continue;
        ToDoPart& part = parts.emplace_back();
        if (--room < 0 || depth == kDeepest) {
            part.isCut = true;
            return;
        }
        part.id = record->GetId();
        part.isCompleted = record->IsCompleted() != 0;
        part.isMasked = told == Told::Masked;
        if (!part.isMasked) part.text = record->DescriptionUtf8();
        Read(part.id, depth + 1, room, part.parts);
    }
}

std::vector<ToDoPart> PartEdits::PartsOf(std::int64_t whole) const {
    std::vector<ToDoPart> parts;
    int room = kMostParts;
    Read(whole, 0, room, parts);
    return parts;
}

std::vector<std::int64_t> PartEdits::OpenPartsOf(std::int64_t whole) const {
    std::vector<std::int64_t> open;
    CToDoRecord record(m_context.table);
    for (const std::int64_t id : m_context.index().AllBelow(whole)) {
        if (m_context.table.Find(id, record) != 0 || record.IsDeleted() != 0) continue;
        if (record.IsCompleted() != 0) continue;
        if (m_context.told(WayOut::Change, record) == Told::Whole) open.push_back(id);
    }
    std::sort(open.begin(), open.end());
    return open;
}

std::string PartEdits::UidOf(std::int64_t id) const {
    RowIdentity identity;
    CToDoRecord record(m_context.table);
    if (id == 0 || m_context.table.Find(id, record) != 0) return {};
    record.GetIdentity(identity);
    return identity.uid;
}

// Of none for 0.
long PartEdits::SetParent(CToDoRecord& record, std::int64_t whole) const {
    const std::string uid = UidOf(whole);
    return EditToDoText(record, [&uid](ToDoText& toDo) { return WithParent(toDo, uid); });
}

// The places of the parts go round among them, so that they keep theirs among other to-dos.
long PartEdits::Arrange(std::int64_t whole, CToDoRecord& record, std::int64_t before) const {
    Children children = ChildrenOf(whole);
    std::vector<CToDoRecord*> order;
    for (const auto& each : children.records) {
        if (each->GetId() == before) order.push_back(&record);
        if (each->GetId() != record.GetId()) order.push_back(each.get());
    }
    if (std::find(order.begin(), order.end(), &record) == order.end()) order.push_back(&record);
    std::vector<int> places;
    places.reserve(order.size());
    for (const CToDoRecord* each : order) places.push_back(PlaceOf(*each));
    std::sort(places.begin(), places.end());
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i > 0 && places[i] <= places[i - 1]) places[i] = places[i - 1] + 1;
        if (PlaceOf(*order[i]) == places[i]) continue;
        if (const long status = order[i]->SetPlacementPos(places[i]); status != 0) return status;
    }
    return 0;
}

long PartEdits::Change(std::int64_t id, const std::function<long(CToDoRecord&)>& change) const {
    CToDoRecord record(m_context.table);
    const long status = m_context.table.Find(id, record);
    return status != 0 ? status : change(record);
}

std::string PartEdits::Add(std::int64_t whole, std::int64_t before, const std::string& text,
                           std::int64_t& id) const {
    return m_context.change(Text("Add part"), [&] {
        CToDoRecord parent(m_context.table);
        CToDoRecord part(m_context.table);
        int category = kNoCategory;
        long status = m_context.table.Find(whole, parent);
        if (status == 0) status = parent.GetCategoryId(category);
        if (status == 0) status = part.SetCategoryId(category);
        if (status == 0) status = part.SetPrivate(parent.IsPrivate());
        if (status == 0) status = part.SetDescriptionUtf8(text);
        if (status == 0) status = m_context.table.Add(part);
        if (status == 0) status = SetParent(part, whole);
        if (status == 0 && before != 0) status = Arrange(whole, part, before);
        id = part.GetId();
        return status;
    });
}

std::string PartEdits::SetText(std::int64_t id, const std::string& text) const {
    return m_context.change(Text("Edit to-do"), [&] {
        return Change(id, [&](CToDoRecord& record) { return record.SetDescriptionUtf8(text); });
    });
}

long PartEdits::Complete(const std::vector<std::int64_t>& ids) const {
    const int marks = m_context.marksCompletion() ? 1 : 0;
    for (const std::int64_t id : ids) {
        const long status = Change(id, [marks](CToDoRecord& record) {
            return record.IsCompleted() != 0 ? 0 : record.SetCompleted(1, marks);
        });
        if (status != 0) return status;
    }
    return 0;
}

std::string PartEdits::SetCompleted(std::int64_t id, bool isCompleted,
                                    const std::vector<std::int64_t>& others) const {
    return m_context.change(Text("Complete to-do"), [&] {
        if (!isCompleted) {
            return Change(id, [](CToDoRecord& record) { return record.SetCompleted(0, 0); });
        }
        const long status = Complete(others);
        return status != 0 ? status : Complete({id});
    });
}

long PartEdits::Put(std::int64_t id, std::int64_t whole, std::int64_t before) const {
    TodoParts& index = m_context.index();
    if (whole == id || index.AllBelow(id).count(whole) != 0) return 0;
    const bool isThere = whole != 0 && index.ParentOf(id) == whole;
    return Change(id, [&](CToDoRecord& record) {
        const long status = isThere ? 0 : SetParent(record, whole);
        return status != 0 || whole == 0 ? status : Arrange(whole, record, before);
    });
}

std::string PartEdits::Move(std::int64_t id, std::int64_t whole, std::int64_t before) const {
    return m_context.change(Text("Move part"), [&] { return Put(id, whole, before); });
}

std::string PartEdits::TakeOut(std::int64_t id) const {
    return m_context.change(Text("Take out part"), [&] { return Put(id, 0, 0); });
}

}  // namespace orvo::desktop
