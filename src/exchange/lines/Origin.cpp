// What an import took from its surroundings.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>

#include <fmt/format.h>

#include <contracts/Dates.h>
#include <exchange/lines/Origin.h>

namespace orvo {
namespace {

template <class Number>
bool ReadNumber(std::string_view text, Number& number) {
    Number read{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
    if (error != std::errc() || end != text.data() + text.size()) return false;
    number = read;
    return true;
}

void ReadLabels(std::string_view text, std::array<long, kPhoneSlots>& labels) {
    for (long& label : labels) {
        const std::size_t end = std::min(text.find(','), text.size());
        ReadNumber(text.substr(0, end), label);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void Take(std::string_view key, std::string_view value, Origin& origin) {
    std::size_t listed = 0;
    if (key == "charset") origin.charset = value;
    if (key == "category") ReadNumber(value, origin.category);
    if (key == "listed" && ReadNumber(value, listed)) origin.listed = listed;
    if (key == "labels") ReadLabels(value, origin.labels);
    if (key == "display") ReadNumber(value, origin.displayPhone);
    if (key == "due") origin.due = ParseIso(value);
    if (key == "completed") origin.completed = ParseIso(value);
    if (key == "edited") origin.isEdited = value == "1";
}

}  // namespace

std::string FormatOrigin(const Origin& origin) {
    const Origin usual;
    std::string text = fmt::format("category={}", origin.category);
    if (origin.listed) text += fmt::format(" listed={}", *origin.listed);
    if (!origin.charset.empty()) text += fmt::format(" charset={}", origin.charset);
    if (origin.labels != usual.labels) {
        text += fmt::format(" labels={}", fmt::join(origin.labels, ","));
    }
    if (origin.displayPhone != usual.displayPhone) {
        text += fmt::format(" display={}", origin.displayPhone);
    }
    if (origin.due) text += fmt::format(" due={}", FormatIso(*origin.due));
    if (origin.completed) text += fmt::format(" completed={}", FormatIso(*origin.completed));
    if (origin.isEdited) text += " edited=1";
    return text;
}

std::optional<Origin> ParseOrigin(std::string_view text) {
    if (text.empty()) return std::nullopt;
    Origin origin;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        const std::string_view word = text.substr(0, end);
        const std::size_t equals = std::min(word.find('='), word.size());
        Take(word.substr(0, equals), word.substr(std::min(equals + 1, word.size())), origin);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return origin;
}

long RecordDateOf(const std::optional<CivilTime>& civil) {
    return civil ? static_cast<long>(std::clamp<std::int64_t>(MomentOfCivil(*civil), 0, kMaxDate))
                 : kMaxDate;
}

std::optional<CivilTime> CivilOfRecordDate(long date) {
    return date == kMaxDate ? std::nullopt : CivilOfMoment(date);
}

}  // namespace orvo
