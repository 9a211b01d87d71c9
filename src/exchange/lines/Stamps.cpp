// What is written into an entry of who it is and when it was changed.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <fmt/chrono.h>
#include <fmt/core.h>

#include <exchange/lines/ParameterEdits.h>
#include <exchange/lines/Stamps.h>

namespace orvo {
namespace {

// 8-4-4-4-12 hexadecimal digits.
bool IsUuid(std::string_view uid) {
    constexpr std::string_view kForm = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
    return std::equal(uid.begin(), uid.end(), kForm.begin(), kForm.end(), [](char c, char form) {
        const bool isDigit =
            (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
        return form == '-' ? c == '-' : isDigit;
    });
}

}  // namespace

std::string FormatStamp(std::int64_t moment) {
    return fmt::format("{:%Y%m%dT%H%M%SZ}", fmt::gmtime(static_cast<std::time_t>(moment / 1000)));
}

void SetStamp(LineEdits& edits, const LineList& lines, std::string_view name, std::int64_t moment) {
    const auto line = std::find_if(lines.begin(), lines.end(), [&](const ContentLine& each) {
        return EqualsIgnoringCase(each.name, name);
    });
    EditedLine& edited = line == lines.end() ? edits.Add(name) : edits.At(line - lines.begin());
    edited.value = FormatStamp(moment);
    RemoveParameter(edited.parameters, "VALUE");
    RemoveParameter(edited.parameters, "TZID");
}

std::string FormatUid(std::string_view uid, Dialect dialect) {
    const std::string_view scheme = dialect == Dialect::Card40 && IsUuid(uid) ? "urn:uuid:" : "";
    return std::string(scheme).append(uid);
}

}  // namespace orvo
