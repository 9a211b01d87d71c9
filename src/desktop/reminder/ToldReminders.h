// Which reminders the user was told of on this machine.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace orvo::desktop {

// Kept in the settings of the user, for each store. Of to-dos that were told last, some hundred,
// each is known by itself; of earlier ones only until when they were told.
class ToldReminders {
public:
    // `store` is the path by which stores are told apart.
    explicit ToldReminders(const std::string& store);

    // Reads what is kept, also by another program.
    void Load();
    // Returns:  false where it can't be kept.
    bool Keep() const;

    // The moment up to which a to-do was told; the earliest that there is where it wasn't.
    std::int64_t Of(std::int64_t id) const;
    void Set(std::int64_t id, std::int64_t moment);

private:
    std::string m_section;
    std::int64_t m_all;  // all were told up to there
    std::map<std::int64_t, std::int64_t> m_moments;
};

}  // namespace orvo::desktop
