// The birthdays and anniversaries of all people, kept so that a list of them is there at once.
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include <people/YearlyDays.h>

namespace orvo {

// Those of one person, with what decides whether and where they are listed.
struct PersonDays {
    std::string name;  // UTF-8
    std::string key;   // by which names stand in the order of the user's locale
    int category = 0;
    bool isPrivate = false;
    YearlyDays found;  // at least one day
};

// Cards are read bit by bit, and again where their records have changed.
class DayIndex {
public:
    using NameOf = std::function<std::string(CAddressRecord&)>;

    // The table outlives it. `nameOf` says how a person is called, in UTF-8.
    DayIndex(CAddressTable& table, NameOf nameOf);
    ~DayIndex();

    // The record isn't as it was; none is. Until they are read anew they stay as they were.
    void Forget(std::int64_t id);
    void Clear();

    // Reads what isn't read yet, for about that time.
    void Read(std::chrono::milliseconds time);
    bool IsRead() const { return m_isWalked && m_forgotten.empty(); }
    // How much of the table is read, of 100.
    int Percent() const;

    // By the ids of their records; of the last time that all were read, as long as not all are.
    const std::map<std::int64_t, PersonDays>& People() const { return m_people; }

private:
    struct Walk;

    bool Step();
    void TakeForgotten();
    void Take(CAddressRecord& record, std::map<std::int64_t, PersonDays>& people);

    CAddressTable& m_table;
    NameOf m_nameOf;
    std::map<std::int64_t, PersonDays> m_people;
    std::set<std::int64_t> m_forgotten;
    std::unique_ptr<Walk> m_walk;  // while the table is being read
    bool m_isWalked = false;
};

}  // namespace orvo
