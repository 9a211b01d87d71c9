// Which to-dos are parts of which.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <contracts/RecordStore.h>
#include <platform/Export.h>

namespace orvo {

struct PartCount {
    int done = 0;
    int all = 0;
    bool operator==(const PartCount&) const = default;
};

// A to-do names its whole by the UID of that. Where the whole isn't in the table or lies in the
// trash, and within a circle, it is part of nothing. The table is asked for a whole only when
// somebody asks who is part of it, and then once until the next note.
class ORVO_API TodoParts {
public:
    // The table outlives the index.
    explicit TodoParts(CToDoTable& table) : m_table(table) {}

    // The to-do of that id is there, new or changed; `parentUid` is empty where it names no whole.
    // All to-dos that aren't deleted are to be noted, shown or not.
    void Note(std::int64_t id, std::string_view parentUid, bool isCompleted);
    // The same for one of which nothing was noted yet; it waits until somebody asks.
    void NoteNew(std::int64_t id, std::string_view parentUid, bool isCompleted);
    void Forget(std::int64_t id);
    void Clear();

    // Notes all to-dos of the table, or once that is done those that have changed since.
    void Read();
    // That one may have changed; without an id, all of them.
    void SetChanged(std::optional<std::int64_t> id);
    // Another one after each note.
    std::uint64_t Version() const { return m_notes; }

    // True where no to-do names a whole.
    bool IsEmpty() const { return m_parts.empty() && m_waiting.empty(); }

    // The whole that the to-do is directly part of; 0 for none.
    std::int64_t ParentOf(std::int64_t id);
    // The direct parts of the to-do of that UID, by rising id.
    std::vector<std::int64_t> PartsOf(std::string_view uid);
    PartCount CountOf(std::string_view uid);
    // The parts of that to-do, and theirs, and so on.
    std::unordered_set<std::int64_t> AllBelow(std::int64_t id);

private:
    // All that name the same UID, and to which to-do it belonged at that count of notes.
    struct Whole {
        std::string uid;
        std::vector<std::int64_t> parts;
        std::int64_t id = 0;
        std::uint64_t asked = 0;
    };
    struct Part {
        Whole* whole;
        bool isCompleted;
    };

    struct WaitingPart {
        std::int64_t id;
        std::string parentUid;
        bool isCompleted;
    };

    void TakeWaiting();
    void Add(std::int64_t id, std::string_view parentUid, bool isCompleted);
    std::int64_t IdOf(Whole& whole);
    std::int64_t NamedBy(std::int64_t id);  // 0 for nothing; also within a circle
    std::unordered_set<std::int64_t> WholesAbove(std::int64_t id);
    std::vector<std::int64_t> NamingIt(std::int64_t id);

    CToDoTable& m_table;
    std::unordered_map<std::string, Whole> m_wholes;  // by their PlainUid
    std::unordered_map<std::int64_t, Part> m_parts;
    std::vector<WaitingPart> m_waiting;
    std::uint64_t m_notes = 1;
    bool m_isRead = false;
    std::unordered_set<std::int64_t> m_changed;
};

}  // namespace orvo
