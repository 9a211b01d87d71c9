// The birthdays and anniversaries of all people, kept so that a list of them is there at once.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <people/DayIndex.h>
#include <platform/text/Collation.h>

namespace orvo {

struct DayIndex::Walk {
    explicit Walk(CAddressTable& table)
        : record(table), iterator(table), total(std::max<std::int64_t>(table.GetCount(), 1)) {}

    CAddressRecord record;
    CAddressIterator iterator;
    std::map<std::int64_t, PersonDays> people;
    std::int64_t total;
    std::int64_t done = 0;
};

DayIndex::DayIndex(CAddressTable& table, NameOf nameOf)
    : m_table(table), m_nameOf(std::move(nameOf)) {}

DayIndex::~DayIndex() = default;

void DayIndex::Forget(std::int64_t id) {
    const bool isBegun = m_isWalked || m_walk || !m_people.empty();
    if (isBegun) m_forgotten.insert(id);
}

void DayIndex::Clear() {
    m_forgotten.clear();
    m_walk.reset();
    m_isWalked = false;
}

void DayIndex::Take(CAddressRecord& record, std::map<std::int64_t, PersonDays>& people) {
    PersonDays person;
    if (!record.IsArchived()) person.found = ReadYearlyDays(record);
    if (person.found.days.empty()) {
        people.erase(record.GetId());
        return;
    }
    person.name = m_nameOf(record);
    AppendSortKey(NORM_IGNORECASE | SORT_STRINGSORT, person.name, person.key);
    record.GetCategoryId(person.category);
    person.isPrivate = record.IsPrivate() != 0;
    people.insert_or_assign(record.GetId(), std::move(person));
}

void DayIndex::TakeForgotten() {
    const std::int64_t id = *m_forgotten.begin();
    m_forgotten.erase(m_forgotten.begin());
    CAddressRecord record(m_table);
    const bool isThere = m_table.Find(id, record) == 0 && record.IsDeleted() == 0;
    // The walk may have seen it as it was.
    for (auto* people : {&m_people, m_walk ? &m_walk->people : nullptr}) {
        if (people && isThere) Take(record, *people);
        if (people && !isThere) people->erase(id);
    }
}

// Returns false where there is nothing left to be read.
bool DayIndex::Step() {
    if (!m_forgotten.empty()) {
        TakeForgotten();
        return true;
    }
    if (m_isWalked) return false;
    if (!m_walk) m_walk = std::make_unique<Walk>(m_table);
    const long status = m_walk->iterator.FindNext(m_walk->record);
    ++m_walk->done;
    if (status == 0) {
        Take(m_walk->record, m_walk->people);
    } else if (!m_walk->iterator.IsAtDamage()) {
        m_people = std::move(m_walk->people);
        m_walk.reset();
        m_isWalked = true;
    }
    return true;
}

void DayIndex::Read(std::chrono::milliseconds time) {
    using Clock = std::chrono::steady_clock;
    constexpr int stepsAtATime = 16;  // between two looks at the clock
    const Clock::time_point end = Clock::now() + time;
    do {
        for (int step = 0; step < stepsAtATime; ++step) {
            if (!Step()) return;
        }
    } while (Clock::now() < end);
}

int DayIndex::Percent() const {
    constexpr std::int64_t whole = 100;
    if (m_isWalked || !m_walk) return m_isWalked ? static_cast<int>(whole) : 0;
    return static_cast<int>(std::min(whole, whole * m_walk->done / m_walk->total));
}

}  // namespace orvo
