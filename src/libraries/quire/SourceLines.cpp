// The content lines of a kept card or to-do, as far as the store reads them.
// SPDX-License-Identifier: MIT
#include "SourceLines.h"

#include <algorithm>
#include <chrono>
#include <strings.h>

namespace orvo {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// Takes the next line off the text, which may go on in lines behind it that begin with a blank.
std::string_view TakeLine(std::string_view& text, char lineEnd) {
    std::size_t end = 0;
    do {
        const std::size_t found = text.find(lineEnd, end);
        end = found == std::string_view::npos ? text.size() : found + 1;
    } while (end < text.size() && IsBlank(text[end]));
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    return line;
}

// The name of a line without its group; what follows begins with ';' or ':'.
std::string_view NameOf(std::string_view line) {
    const auto end = std::find_if(line.begin(), line.end(),
                                  [](char c) { return c == ';' || c == ':' || c == '\n'; });
    std::string_view name = line.substr(0, static_cast<std::size_t>(end - line.begin()));
    const std::size_t group = name.find('.');
    return group == std::string_view::npos ? name : name.substr(group + 1);
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    return text;
}

// The value of a line without parameters, folds and escapes, as most are; nothing for others.
std::optional<std::string_view> PlainValueOf(std::string_view line) {
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.remove_suffix(1);
    const std::size_t colon = line.find(':');
    const bool isPlain =
        colon != std::string_view::npos && std::none_of(line.begin(), line.end(), [](char c) {
            return c == ';' || c == '\\' || c == '\n' || c == '\r';
        });
    return isPlain ? std::optional(Trimmed(line.substr(colon + 1))) : std::nullopt;
}

// Takes `count` digits off the text, and before them the separator where it stands there.
std::optional<int> TakeDigits(std::string_view& text, std::size_t count, char separator) {
    if (text.starts_with(separator)) text.remove_prefix(1);
    int number = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (i >= text.size() || text[i] < '0' || text[i] > '9') return std::nullopt;
        number = number * 10 + (text[i] - '0');
    }
    text.remove_prefix(count);
    return number;
}

// Hours, minutes and, where they are there, seconds, in seconds.
std::optional<std::int64_t> TakeClock(std::string_view& text) {
    const std::optional<int> hour = TakeDigits(text, 2, 'T');
    const std::optional<int> minute = hour ? TakeDigits(text, 2, ':') : std::nullopt;
    if (!minute || *hour > 24 || *minute > 59) return std::nullopt;
    std::string_view rest = text;
    const std::optional<int> second = TakeDigits(rest, 2, ':');
    if (second) text = rest;
    return *hour * 3600 + *minute * 60 + second.value_or(0);
}

}  // namespace

bool IsSourceName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

void SourceWalk::Run(std::string_view source) const {
    int depth = 0;  // below the card or the to-do
    const char lineEnd = source.find('\n') != std::string_view::npos ? '\n' : '\r';
    while (!source.empty()) {
        const std::string_view line = TakeLine(source, lineEnd);
        const std::string_view name = NameOf(line);
        if (name.empty() || firstLetters.find(name[0]) == std::string_view::npos) continue;
        if (IsSourceName(name, "BEGIN")) {
            const std::string component = SourceLineValue(line);
            if (depth == 1 && enter) enter(component);
            if (depth > 0 || IsSourceName(component, "VCARD") || IsSourceName(component, "VTODO")) {
                ++depth;
            }
        } else if (IsSourceName(name, "END")) {
            if (depth == 1) break;
            depth -= depth > 0 ? 1 : 0;
        } else if (depth == 1) {
            take(name, line);
        }
    }
}

std::string SourceLineValue(std::string_view line) {
    if (const std::optional<std::string_view> plain = PlainValueOf(line)) {
        return std::string(*plain);
    }
    std::string value;
    bool isQuoted = false;
    bool isValue = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\r' || line[i] == '\n') {
            i = std::min(line.find_first_not_of("\r\n", i), line.size());  // and the blank
        } else if (!isValue) {
            isQuoted = isQuoted != (line[i] == '"');
            isValue = line[i] == ':' && !isQuoted;
        } else {
            value += line[i];
        }
    }
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool isEscape = value[i] == '\\' && i + 1 < value.size() &&
                              std::string_view("\\,;").find(value[i + 1]) != std::string_view::npos;
        text += value[isEscape ? ++i : i];
    }
    return std::string(Trimmed(text));
}

std::string SourceLineParameter(std::string_view line, std::string_view name) {
    bool isQuoted = false;
    std::string parameter;
    std::size_t place = line.find_first_of(";:");
    const auto isWanted = [&] {
        return parameter.size() > name.size() && parameter[name.size()] == '=' &&
               IsSourceName(std::string_view(parameter).substr(0, name.size()), name);
    };
    for (; place < line.size(); ++place) {
        const char c = line[place];
        if (c == '"') {
            isQuoted = !isQuoted;
        } else if (!isQuoted && (c == ';' || c == ':')) {
            if (isWanted()) return parameter.substr(name.size() + 1);
            parameter.clear();
            if (c == ':') break;
        } else if (c == '\r' || c == '\n') {
            place = std::min(line.find_first_not_of("\r\n", place), line.size());
        } else {
            parameter += c;
        }
    }
    return {};
}

std::optional<std::int64_t> SourceMoment(std::string_view text) {
    const std::optional<int> year = TakeDigits(text, 4, ' ');
    const std::optional<int> month = year ? TakeDigits(text, 2, '-') : std::nullopt;
    const std::optional<int> day = month ? TakeDigits(text, 2, '-') : std::nullopt;
    if (!day) return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year(*year),
                                           std::chrono::month(static_cast<unsigned>(*month)),
                                           std::chrono::day(static_cast<unsigned>(*day))};
    if (!date.ok()) return std::nullopt;
    std::int64_t seconds =
        std::int64_t{std::chrono::sys_days(date).time_since_epoch().count()} * 86400;
    if (!text.starts_with('T') && !text.starts_with('t')) return seconds * 1000;
    const std::optional<std::int64_t> clock = TakeClock(text);
    if (!clock) return std::nullopt;
    seconds += *clock;
    std::int64_t fraction = 0;  // milliseconds
    if (text.starts_with('.') || text.starts_with(',')) {
        text.remove_prefix(1);
        for (int weight = 100; !text.empty() && text[0] >= '0' && text[0] <= '9'; weight /= 10) {
            fraction += weight * (text[0] - '0');
            text.remove_prefix(1);
        }
    }
    if (text.starts_with('+') || text.starts_with('-')) {
        const int sign = text[0] == '+' ? 1 : -1;
        text.remove_prefix(1);
        const std::optional<int> hours = TakeDigits(text, 2, ' ');
        const std::optional<int> minutes = TakeDigits(text, 2, ':');
        seconds -= sign * (hours.value_or(0) * 3600 + minutes.value_or(0) * 60);
    }
    return seconds * 1000 + fraction;
}

}  // namespace orvo
