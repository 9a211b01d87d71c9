// A store of to-dos in memory, and a clock that stands.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include <contracts/RecordStore.h>
#include <libraries/quire/MemoryEngine.h>
#include <orvoshare/options/DesktopOptions.h>
#include <platform/time/CTime.h>
#include <platform/time/TimeZone.h>

namespace orvo::desktop {

struct ToDoStore {
    ToDoStore() {
        options.SetAlarmSet(1);
        options.SetAlarmAdvance(5);
        options.SetShowingPrivate(1);
        options.SetWorkDayBegins(9);
        SetNow("2026-11-25T10:00:00");
    }
    ~ToDoStore() { CTime::SetClock(-1); }
    ToDoStore(const ToDoStore&) = delete;
    ToDoStore& operator=(const ToDoStore&) = delete;

    static void SetNow(const char* iso) { CTime::SetClock(MomentOfCivil(*ParseIso(iso))); }

    // Gives the id; an empty `due` stands for no date.
    std::int64_t Add(const char* description, const std::string& due, bool isPrivate = false) {
        CToDoRecord record(toDos);
        record.SetDescriptionUtf8(description);
        record.SetPrivate(isPrivate ? 1 : 0);
        if (!due.empty()) record.SetDueDate(MomentOfCivil(*ParseIso(due)));
        toDos.Add(record);
        return record.GetId();
    }

    void Change(std::int64_t id, const std::function<void(CToDoRecord&)>& change) {
        CToDoRecord record(toDos);
        toDos.Find(id, record);
        change(record);
    }

    MemoryEngine engine;
    CToDoTable toDos{engine};
    COrvoDesktopOptions options;
};

}  // namespace orvo::desktop
