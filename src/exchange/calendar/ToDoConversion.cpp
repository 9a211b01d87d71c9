// The lines of a to-do that both calendar formats have, carried from one to the other.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <optional>

#include <exchange/calendar/OldRule.h>
#include <exchange/calendar/SeriesDates.h>
#include <exchange/calendar/ToDoConversion.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

constexpr std::string_view kCount = "COUNT=";

enum class Content { Text, List, Date, Dates, Rule, AsItIs };

struct SharedRule {
    std::string_view oldName;  // of vCalendar
    std::string_view name;
    Content content;
};
constexpr std::array<SharedRule, 15> kShared{{{"UID", "UID", Content::Text},
                                              {"DCREATED", "CREATED", Content::Date},
                                              {"LAST-MODIFIED", "LAST-MODIFIED", Content::Date},
                                              {"DTSTART", "DTSTART", Content::Date},
                                              {"RRULE", "RRULE", Content::Rule},
                                              {"RDATE", "RDATE", Content::Dates},
                                              {"EXDATE", "EXDATE", Content::Dates},
                                              {"PRIORITY", "PRIORITY", Content::AsItIs},
                                              {"LOCATION", "LOCATION", Content::Text},
                                              {"URL", "URL", Content::AsItIs},
                                              {"ATTACH", "ATTACH", Content::AsItIs},
                                              {"RELATED-TO", "RELATED-TO", Content::Text},
                                              {"CONTACT", "CONTACT", Content::Text},
                                              {"COMMENT", "COMMENT", Content::Text},
                                              {"RESOURCES", "RESOURCES", Content::List}}};

class Converter {
public:
    Converter(const ToDoSource& source, std::string_view charset, Dialect dialect,
              CalendarClock& clock)
        : m_source(source),
          m_dialect(dialect),
          m_clock(clock),
          m_decoder(source.toDo.lines, charset) {}

    std::string Run() {
        std::string text;
        for (const ContentLine& line : m_source.toDo.lines) {
            if (const auto rule = RuleOf(line)) text += Convert(line, *rule);
        }
        return text;
    }

private:
    std::optional<SharedRule> RuleOf(const ContentLine& line) const {
        const bool wasOld = m_source.dialect == Dialect::Calendar10;
        for (const SharedRule& rule : kShared) {
            if (EqualsIgnoringCase(line.name, wasOld ? rule.oldName : rule.name)) return rule;
        }
        const bool isOwn = StartsIgnoringCase(line.name, "X-") &&
                           !EqualsIgnoringCase(line.name, NameOf(ToDoProperty::Archived));
        if (!isOwn) return std::nullopt;
        return SharedRule{line.name, line.name, Content::AsItIs};
    }

    std::string Convert(const ContentLine& line, const SharedRule& rule) {
        const bool isOld = m_dialect == Dialect::Calendar10;
        const bool isBinary = EncodingOf(line.parameters) == TransferEncoding::Base64;
        const bool isDate = rule.content == Content::Date || rule.content == Content::Dates;
        if (rule.content == Content::Rule) return ConvertRule(line);
        std::string head(isOld ? rule.oldName : rule.name);
        ParameterWalk walk(line.parameters);
        Parameter parameter;
        while (walk.Next(parameter)) {
            const bool isForm = EqualsIgnoringCase(parameter.name, "VALUE") ||
                                EqualsIgnoringCase(parameter.name, "TZID");
            if (parameter.source.empty() || TellsEncoding(parameter)) continue;
            if (isForm && (isDate || isBinary)) continue;
            const bool needsName = parameter.name.empty() && !isOld;
            head.append(needsName ? ";TYPE=" : ";").append(parameter.source);
        }
        if (isBinary) {
            head += isOld ? ";ENCODING=BASE64" : ";ENCODING=BASE64;VALUE=BINARY";
            std::string value(line.value);
            std::erase_if(value, [](char c) { return c == ' ' || c == '\t'; });
            return FormatLine(head, value, m_dialect, "\r\n");
        }
        const std::string value = rule.content == Content::Dates ? DatesOf(line, head)
                                  : isDate                       ? DateOf(line, head)
                                                                 : ValueOf(line, rule.content);
        return FormatLine(head, value, m_dialect, "\r\n");
    }

    std::string ValueOf(const ContentLine& line, Content content) {
        std::string storage;
        const std::string_view value = m_decoder.Decode(line, storage);
        if (content == Content::AsItIs) return std::string(value);
        const bool isOld = m_dialect == Dialect::Calendar10;
        const std::string_view dividers =
            content == Content::Text ? "" : CategoryDividers(m_source.dialect);
        std::string result;
        std::string text;
        std::string_view part;
        for (PartWalk walk(value, dividers); walk.Next(part);) {
            if (content == Content::Text) {
                Unescape(part, m_source.dialect, text);
                return Escape(text, m_dialect);
            }
            Unescape(part, Dialect::Calendar20, text);
            if (!result.empty()) result += isOld ? ';' : ',';
            result += Escape(text, Dialect::Calendar20);
        }
        return result;
    }

    // A rule that the other format can't say is left out.
    std::string ConvertRule(const ContentLine& line) {
        const bool isOld = m_dialect == Dialect::Calendar10;
        std::string storage;
        const std::string_view value = m_decoder.Decode(line, storage);
        std::optional<std::string> rule = isOld ? OldRuleOfRule(value) : RuleOfOldRule(value);
        // vCalendar counts weeks and months, not dates; a last day is a last day.
        if (isOld && !rule) rule = OldRuleOfRule(UntilLast(value));
        return rule ? FormatLine("RRULE", *rule, m_dialect, "\r\n") : std::string();
    }

    // The rule with its last date in place of its COUNT.
    std::string UntilLast(std::string_view rule) const {
        const std::string_view count = RulePart(rule, "COUNT");
        const std::optional<std::int64_t> last = LastMoment();
        std::string text(rule);
        if (count.empty() || !last) return text;
        const auto place = static_cast<std::size_t>(count.data() - rule.data()) - kCount.size();
        return text.replace(place, kCount.size() + count.size(),
                            "UNTIL=" + FormatWallTime({*last, WallTime::Form::Utc}));
    }

    // Of the series, where that is near.
    std::optional<std::int64_t> LastMoment() const {
        constexpr int kMost = 1000;
        SeriesLines lines(m_source.toDo.source);
        const SeriesPart* master = lines.Master();
        const SeriesLine* anchor = master ? AnchorOf(*master) : nullptr;
        if (!anchor) return std::nullopt;
        std::optional<SeriesClock> clock = SeriesClock::Of(anchor->line, m_source.timeZones);
        if (!clock) return std::nullopt;
        SeriesDates dates(lines, *master, *clock);
        WallSeconds last = clock->Start().seconds;
        for (int i = 0; i < kMost; ++i) {
            const std::optional<SeriesDate> next = dates.Next();
            if (!next) return clock->UtcAt(last);
            last = next->wall;
        }
        return std::nullopt;
    }

    std::string DatesOf(const ContentLine& line, std::string& head) {
        const std::string plainHead = head;
        std::string result;
        std::string_view part;
        for (PartWalk walk(line.value, CategoryDividers(m_source.dialect)); walk.Next(part);) {
            ContentLine date = line;
            date.value = part;
            head = plainHead;
            if (!result.empty()) result += m_dialect == Dialect::Calendar10 ? ';' : ',';
            result += DateOf(date, head);
        }
        return result;
    }

    std::string DateOf(const ContentLine& line, std::string& head) {
        const std::optional<CalendarDate> read = m_clock.Read(line);
        if (!read) return std::string(Trimmed(line.value));
        const bool isOld = m_dialect == Dialect::Calendar10;
        CalendarDate date = *read;
        const bool wasInZone = m_source.dialect == Dialect::Calendar10 &&
                               !m_source.timeZones.empty() &&
                               date.form == CalendarDate::Form::Floating;
        if (date.form == CalendarDate::Form::Zoned || wasInZone) {
            date.form = CalendarDate::Form::Utc;
        } else if (date.form == CalendarDate::Form::Day && isOld) {
            // vCalendar has no days; this one begins at midnight.
            std::string day = m_clock.Format(date.moment, date);
            return day.append("T000000");
        } else if (date.form == CalendarDate::Form::Day) {
            head += ";VALUE=DATE";
        }
        return m_clock.Format(date.moment, date);
    }

    const ToDoSource& m_source;
    Dialect m_dialect;
    CalendarClock& m_clock;
    ValueDecoder m_decoder;
};

}  // namespace

std::string ConvertLines(const ToDoSource& source, std::string_view charset, Dialect dialect,
                         CalendarClock& clock) {
    clock.SetZones(source.timeZones);
    return Converter(source, charset, dialect, clock).Run();
}

}  // namespace orvo
