// All that is known of a person.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <people/Person.h>

#include <fmt/format.h>

namespace orvo {
namespace {

constexpr std::array<const char*, 12> kKindNames{"Phone",    "E-mail",   "Messenger",   "Address",
                                                 "Web page", "Birthday", "Anniversary", "Date",
                                                 "Relation", "Member",   "Fact",        "Other"};

constexpr std::array<const char*, kDetailWords> kWordNames{
    "Home",           "Work",     "Mobile",      "Fax",         "Pager",    "Main",
    "Text",           "Video",    "Car",         "School",      "Spouse",   "Partner",
    "Child",          "Parent",   "Mother",      "Father",      "Brother",  "Sister",
    "Sibling",        "Relative", "Friend",      "Colleague",   "Manager",  "Assistant",
    "Emergency",      "Agent",    "Death",       "Language",    "Gender",   "Birthplace",
    "Place of death", "Place",    "Time zone",   "Maiden name", "Interest", "Hobby",
    "Expertise",      "Calendar", "Free or busy"};

}  // namespace

const char* NameOf(DetailKind kind) {
    return kKindNames.at(static_cast<std::size_t>(kind));
}

const char* NameOf(DetailWord word) {
    return kWordNames.at(static_cast<std::size_t>(word));
}

std::string TitleOf(const Detail& detail, const TranslateName& translate) {
    std::string heading = detail.label;
    for (const DetailWord word : detail.words) {
        if (!heading.empty()) heading += ", ";
        heading += translate(NameOf(word));
    }
    if (detail.kind == DetailKind::Fact) return heading;
    if (detail.kind == DetailKind::Other) {
        return detail.label.empty() ? detail.property : detail.label;
    }
    const bool hasService = detail.kind == DetailKind::Messenger && !detail.service.empty();
    const std::string title = hasService ? detail.service : translate(NameOf(detail.kind));
    return heading.empty() ? title : fmt::format("{} ({})", title, heading);
}

const Detail* Person::First(DetailKind kind) const {
    const auto found = std::find_if(details.begin(), details.end(),
                                    [&](const Detail& detail) { return detail.kind == kind; });
    return found == details.end() ? nullptr : &*found;
}

}  // namespace orvo
