// What details are called, in English; each text here has a translation.
// SPDX-License-Identifier: MIT
#include <people/Person.h>

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

const char* NameOfGender(std::string_view code) {
    if (code.size() != 1) return nullptr;
    switch (code.front()) {
        case 'M':
            return "male";
        case 'F':
            return "female";
        case 'O':
            return "other";
        case 'N':
            return "not applicable";
        case 'U':
            return "unknown";
        default:
            return nullptr;
    }
}

}  // namespace orvo
