// The reminders of a to-do: the alarms in its text.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>
#include <map>
#include <string>

#include <contracts/RowIdentity.h>
#include <exchange/calendar/AlarmTimes.h>
#include <exchange/calendar/Reminders.h>
#include <exchange/lines/LineEdits.h>
#include <exchange/lines/Stamps.h>

namespace orvo {
namespace {

// A stretch of the text.
struct Stretch {
    std::size_t begin = 0;
    std::size_t end = 0;
};

struct Alarm {
    ToDoReminder reminder;
    bool isUnderstood = false;
    Stretch text;
    std::size_t endLine = 0;              // where its END begins
    std::optional<Stretch> acknowledged;  // the line of that name
    std::string uid;
    std::string original;  // the uid of the alarm that this one was put off from
};

struct Alarms {
    std::vector<Alarm> all;
    ReminderDates dates;
    std::string summary;  // escaped
    std::size_t end = 0;  // where the END of the to-do begins
    std::string_view lineEnd = "\r\n";
};

struct TextEdit {
    Stretch place;
    std::string text;
};

// Reads the first to-do of a text line by line.
class AlarmReader {
public:
    explicit AlarmReader(const ToDoText& toDo) : m_text(toDo.text) {
        m_clock.SetZones(toDo.timeZones);
    }

    Alarms Read() {
        ContentLineReader reader(m_text);
        ContentLine line;
        std::size_t begin = 0;
        while (m_found.end == 0 && reader.Next(line)) {
            const std::size_t end = m_text.size() - reader.Rest().size();
            Take(line, {begin, end});
            reader.Forget();
            begin = end;
        }
        if (m_found.end == 0) m_found.end = m_text.size();
        std::erase_if(m_found.all, [](const Alarm& alarm) { return alarm.text.end == 0; });
        for (Alarm& alarm : m_found.all) {
            alarm.reminder.first = MomentOf(alarm.reminder.time, m_found.dates);
        }
        return std::move(m_found);
    }

private:
    void Take(const ContentLine& line, Stretch place) {
        if (EqualsIgnoringCase(line.name, "BEGIN")) {
            if (m_depth == 0) m_found.lineEnd = LineEndOf(line.source);
            ++m_depth;
            m_isInAlarm = m_depth > 1 && (m_isInAlarm || IsAlarm(line));
            if (m_depth == 2 && m_isInAlarm) {
                m_found.all.emplace_back();
                m_found.all.back().text = place;
                m_action = m_trigger = false;
            }
        } else if (EqualsIgnoringCase(line.name, "END")) {
            End(place, EqualsIgnoringCase(Trimmed(line.value), "VTODO"));
        } else if (m_depth == 1) {
            TakeOfToDo(line);
        } else if (m_depth == 2 && m_isInAlarm) {
            TakeOfAlarm(line, place);
        }
    }

    static bool IsAlarm(const ContentLine& line) {
        return EqualsIgnoringCase(Trimmed(line.value), "VALARM");
    }

    // An alarm that has no END of its own isn't one.
    void End(Stretch place, bool isOfToDo) {
        if (isOfToDo) m_depth = 1;
        if (m_depth == 2 && m_isInAlarm) {
            Alarm& alarm = m_found.all.back();
            alarm.endLine = place.begin;
            alarm.text.end = place.end;
            alarm.isUnderstood = m_action && m_trigger;
            m_isInAlarm = false;
        }
        if (m_depth <= 1) m_found.end = place.begin;
        if (m_depth > 0) --m_depth;
    }

    void TakeOfToDo(const ContentLine& line) {
        if (EqualsIgnoringCase(line.name, "SUMMARY")) m_found.summary = line.value;
        if (EqualsIgnoringCase(line.name, "DTSTART")) {
            if (const auto date = m_clock.Read(line)) m_found.dates.start = BeginOf(*date);
        } else if (EqualsIgnoringCase(line.name, "DUE")) {
            if (const auto date = m_clock.Read(line)) m_found.dates.due = BeginOf(*date);
        } else if (EqualsIgnoringCase(line.name, "DURATION")) {
            m_length = ReadLength(line.value);
        }
        const bool hasEnd = m_found.dates.due || !m_found.dates.start || !m_length;
        if (hasEnd) return;
        const ReminderTime end{ReminderTime::From::Start, -*m_length};
        m_found.dates.due = MomentOf(end, m_found.dates);
    }

    void TakeOfAlarm(const ContentLine& line, Stretch place) {
        Alarm& alarm = m_found.all.back();
        const std::string_view value = Trimmed(line.value);
        if (EqualsIgnoringCase(line.name, "ACTION")) {
            m_action = EqualsIgnoringCase(value, "DISPLAY") || EqualsIgnoringCase(value, "AUDIO");
        } else if (EqualsIgnoringCase(line.name, "TRIGGER")) {
            const std::optional<ReminderTime> time = ReadTrigger(line, m_clock);
            m_trigger = time.has_value();
            if (time) alarm.reminder.time = *time;
        } else if (EqualsIgnoringCase(line.name, "ACKNOWLEDGED")) {
            alarm.acknowledged = place;
            const std::optional<CalendarDate> date = m_clock.Read(line);
            if (date) alarm.reminder.acknowledged = date->moment;
        } else if (EqualsIgnoringCase(line.name, "REPEAT")) {
            std::from_chars(value.data(), value.data() + value.size(), alarm.reminder.repeats);
            alarm.reminder.repeats = std::max<std::int64_t>(alarm.reminder.repeats, 0);
        } else if (EqualsIgnoringCase(line.name, "DURATION")) {
            alarm.reminder.pause = std::max<std::int64_t>(ReadLength(value).value_or(0), 0);
        } else if (EqualsIgnoringCase(line.name, "UID")) {
            alarm.uid = value;
        } else if (EqualsIgnoringCase(line.name, "RELATED-TO")) {
            const std::string_view kind = Trimmed(FindParameter(line.parameters, "RELTYPE"));
            if (!EqualsIgnoringCase(kind, "SNOOZE")) return;
            alarm.reminder.isSnooze = true;
            alarm.original = value;
        }
    }

    const std::string& m_text;
    CalendarClock m_clock;
    Alarms m_found;
    int m_depth = 0;
    bool m_isInAlarm = false;
    bool m_action = false;   // of the present alarm: understood
    bool m_trigger = false;  // the same
    std::optional<std::int64_t> m_length;
};

// The edits don't overlap and stand in the order of the text.
bool Apply(const std::vector<TextEdit>& edits, std::string& text) {
    if (edits.empty()) return false;
    std::string result;
    std::size_t at = 0;
    for (const TextEdit& edit : edits) {
        result.append(text, at, edit.place.begin - at).append(edit.text);
        at = edit.place.end;
    }
    text = result.append(text, at);
    return true;
}

std::string LineOf(std::string_view head, std::string_view value, std::string_view lineEnd) {
    return FormatLine(head, value, Dialect::Calendar20, lineEnd);
}

// Of what an alarm may say it says what all readers need.
std::string NewAlarm(const Alarms& alarms, const ReminderTime& time, const std::string& original) {
    const std::string_view end = alarms.lineEnd;
    const std::string trigger = FormatTrigger(time);
    const std::size_t colon = trigger.find(':');
    const std::string summary = alarms.summary.empty() ? "Reminder" : alarms.summary;
    std::string text = LineOf("BEGIN", "VALARM", end) + LineOf("UID", NewUid(), end) +
                       LineOf("ACTION", "DISPLAY", end) + LineOf("DESCRIPTION", summary, end) +
                       LineOf(trigger.substr(0, colon), trigger.substr(colon + 1), end);
    if (!original.empty()) text += LineOf("RELATED-TO;RELTYPE=SNOOZE", original, end);
    return text + LineOf("END", "VALARM", end);
}

// One that was put off is gone once it has come; the alarm that it was put off from counts as seen.
// Sets `last` to the one that came last, for which its original stands.
// Returns:  the edits by their places in the text.
std::map<std::size_t, TextEdit> Acknowledge(const Alarms& alarms, std::int64_t told,
                                            std::int64_t now, const Alarm*& last) {
    std::map<std::size_t, TextEdit> edits;
    std::vector<std::string_view> originals;
    std::optional<std::int64_t> latest;
    for (const Alarm& alarm : alarms.all) {
        const std::optional<std::int64_t> came = alarm.reminder.Last(told);
        if (!alarm.isUnderstood || !came) continue;
        if (!latest || *came >= *latest) {
            latest = came;
            last = &alarm;
        }
        if (!alarm.reminder.isSnooze) continue;
        originals.push_back(alarm.original);
        edits[alarm.text.begin] = {alarm.text, {}};
    }
    const std::string stamp =
        LineOf("ACKNOWLEDGED", FormatStamp(std::max(now, told) * 1000), alarms.lineEnd);
    for (const Alarm& alarm : alarms.all) {
        if (alarm.reminder.isSnooze) continue;
        const bool isOriginal =
            !alarm.uid.empty() && std::ranges::find(originals, alarm.uid) != originals.end();
        const bool came = alarm.isUnderstood && alarm.reminder.Last(told);
        if (!came && !isOriginal) continue;
        const Stretch place = alarm.acknowledged.value_or(Stretch{alarm.endLine, alarm.endLine});
        edits[place.begin] = {place, stamp};
        if (isOriginal && last && last->original == alarm.uid) last = &alarm;
    }
    return edits;
}

std::vector<ReminderTime> TimesOf(const ToDoText& toDo) {
    std::vector<ReminderTime> times;
    for (const ToDoReminder& reminder : ReadReminders(toDo)) {
        if (!reminder.isSnooze) times.push_back(reminder.time);
    }
    return times;
}

bool ApplyAll(const std::map<std::size_t, TextEdit>& edits, std::string& text) {
    std::vector<TextEdit> list;
    list.reserve(edits.size());
    for (const auto& [place, edit] : edits) list.push_back(edit);
    return Apply(list, text);
}

}  // namespace

std::optional<std::int64_t> ToDoReminder::Next(std::int64_t after) const {
    const std::int64_t known = std::max(after, acknowledged);
    if (!first || *first > known) return first;
    if (pause <= 0) return std::nullopt;
    const std::int64_t number = (known - *first) / pause + 1;
    return number <= repeats ? std::optional(*first + number * pause) : std::nullopt;
}

std::optional<std::int64_t> ToDoReminder::Last(std::int64_t upTo) const {
    if (!first || *first > upTo) return std::nullopt;
    std::int64_t last = *first;
    if (pause > 0) last += std::min(repeats, (upTo - last) / pause) * pause;
    return last > acknowledged ? std::optional(last) : std::nullopt;
}

std::vector<ToDoReminder> ReadReminders(const ToDoText& toDo) {
    std::vector<ToDoReminder> reminders;
    for (const Alarm& alarm : AlarmReader(toDo).Read().all) {
        if (alarm.isUnderstood) reminders.push_back(alarm.reminder);
    }
    return reminders;
}

bool SetReminders(ToDoText& toDo, const std::vector<ReminderTime>& times) {
    const Alarms alarms = AlarmReader(toDo).Read();
    std::vector<ReminderTime> missing = times;
    std::vector<TextEdit> edits;
    for (const Alarm& alarm : alarms.all) {
        if (!alarm.isUnderstood || alarm.reminder.isSnooze) continue;
        std::erase(missing, alarm.reminder.time);
        const bool stays = std::ranges::find(times, alarm.reminder.time) != times.end();
        if (!stays) edits.push_back({alarm.text, {}});
    }
    std::string added;
    for (auto time = missing.begin(); time != missing.end(); ++time) {
        if (std::find(missing.begin(), time, *time) == time) added += NewAlarm(alarms, *time, {});
    }
    if (!added.empty()) edits.push_back({{alarms.end, alarms.end}, added});
    return Apply(edits, toDo.text);
}

bool AddReminder(ToDoText& toDo, const ReminderTime& time) {
    std::vector<ReminderTime> times = TimesOf(toDo);
    times.push_back(time);
    return SetReminders(toDo, times);
}

bool RemoveReminder(ToDoText& toDo, const ReminderTime& time) {
    std::vector<ReminderTime> times = TimesOf(toDo);
    std::erase(times, time);
    return SetReminders(toDo, times);
}

bool RemoveSnoozes(ToDoText& toDo) {
    std::vector<TextEdit> edits;
    for (const Alarm& alarm : AlarmReader(toDo).Read().all) {
        if (alarm.isUnderstood && alarm.reminder.isSnooze) edits.push_back({alarm.text, {}});
    }
    return Apply(edits, toDo.text);
}

bool AcknowledgeReminders(ToDoText& toDo, std::int64_t told, std::int64_t now) {
    const Alarms alarms = AlarmReader(toDo).Read();
    const Alarm* last = nullptr;
    return ApplyAll(Acknowledge(alarms, told, now, last), toDo.text);
}

bool SnoozeReminders(ToDoText& toDo, std::int64_t told, std::int64_t now, std::int64_t until) {
    const Alarms alarms = AlarmReader(toDo).Read();
    const Alarm* last = nullptr;
    std::map<std::size_t, TextEdit> edits = Acknowledge(alarms, told, now, last);
    std::string original;
    if (last) original = last->reminder.isSnooze ? last->original : last->uid;
    if (original.empty()) {
        original = NewUid();
        if (last && !last->reminder.isSnooze) {
            TextEdit& edit = edits[last->endLine];
            edit.place = {last->endLine, last->endLine};
            edit.text += LineOf("UID", original, alarms.lineEnd);
        }
    }
    const ReminderTime time{ReminderTime::From::Moment, until};
    edits[alarms.end] = {{alarms.end, alarms.end}, NewAlarm(alarms, time, original)};
    return ApplyAll(edits, toDo.text);
}

}  // namespace orvo
