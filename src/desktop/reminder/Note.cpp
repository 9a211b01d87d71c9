// What is told of reminders, and what the user may answer.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <sstream>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <desktop/reminder/Note.h>

namespace orvo::desktop {
namespace {

// In the order of ReminderAnswer::Kind.
constexpr std::array<const char*, 6> kNames{"complete", "ten-minutes", "one-hour",
                                            "tomorrow", "open",        "seen"};
constexpr const char* kMark = "orvo-reminder";

}  // namespace

std::string ReminderAnswer::Text() const {
    return fmt::format("{} {} {} {} {}", kMark, store, kNames.at(static_cast<std::size_t>(kind)),
                       told, fmt::join(ids, " "));
}

std::optional<ReminderAnswer> ReminderAnswer::Of(std::string_view text) {
    std::istringstream words{std::string(text)};
    std::string mark;
    std::string name;
    ReminderAnswer answer;
    if (!(words >> mark >> answer.store >> name >> answer.told) || mark != kMark) {
        return std::nullopt;
    }
    const auto place = std::ranges::find(kNames, name);
    if (place == kNames.end()) return std::nullopt;
    answer.kind = static_cast<Kind>(place - kNames.begin());
    for (std::int64_t id = 0; words >> id;) answer.ids.push_back(id);
    return answer;
}

}  // namespace orvo::desktop
