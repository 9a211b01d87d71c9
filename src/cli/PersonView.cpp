// What only a person's card says, as `show` prints it.
// SPDX-License-Identifier: MIT
#include <array>

#include <fmt/format.h>

#include <cli/PersonView.h>

namespace orvo::cli {
namespace {

// A text of the card that there is one of: its JSON key and its title.
struct CardText {
    const char* key;
    const char* title;
    const std::string& (*of)(const Person& person);
};
constexpr std::array<CardText, 6> kCardTexts{{
    {"prefix", "Prefix", [](const Person& p) -> const std::string& { return p.name.prefix; }},
    {"middle", "Middle name", [](const Person& p) -> const std::string& { return p.name.middle; }},
    {"suffix", "Suffix", [](const Person& p) -> const std::string& { return p.name.suffix; }},
    {"nickname", "Nickname", [](const Person& p) -> const std::string& { return p.name.nickname; }},
    {"department", "Department",
     [](const Person& p) -> const std::string& { return p.work.department; }},
    {"role", "Role", [](const Person& p) -> const std::string& { return p.work.role; }},
}};

std::string PhotoText(const PersonPhoto& photo) {
    if (photo.bytes.empty()) return photo.link;
    return fmt::format("{} ({} bytes)", photo.mediaType, photo.bytes.size());
}

// How long ago, and how soon again.
std::string DayText(const Detail& detail) {
    if (!detail.date || !detail.date->ComesBack()) return {};
    const auto today = Today();
    const auto days = (NextDay(*detail.date, today) - today).count();
    const std::string when = days == 0   ? "today"
                             : days == 1 ? "tomorrow"
                                         : fmt::format("in {} days", days);
    const std::optional<int> years = YearsAtNextDay(*detail.date, today);
    return years ? fmt::format("  ({} {})", *years, when) : fmt::format("  ({})", when);
}

Json DetailAsJson(const Detail& detail) {
    Json json{{"kind", NameOf(detail.kind)}, {"text", detail.text}};
    for (const DetailWord word : detail.words) json["words"].push_back(NameOf(word));
    const std::array<std::pair<const char*, const std::string*>, 4> texts{
        {{"label", &detail.label},
         {"service", &detail.service},
         {"place", &detail.place},
         {"uri", &detail.uri}}};
    for (const auto& [key, text] : texts) {
        if (!text->empty()) json[key] = *text;
    }
    json["property"] = detail.property;
    if (detail.slot != 0) json["slot"] = detail.slot;
    if (detail.preference != kNotPreferred) json["preference"] = detail.preference;
    return json;
}

}  // namespace

void PrintField(const std::string& title, std::string text) {
    if (text.empty()) return;
    std::string head = title + ":";
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        PrintLine(fmt::format("{:<20} {}", head, text.substr(0, end)));
        head.clear();
        if (end == std::string::npos) break;
        text.erase(0, text.compare(end, 2, "\r\n") == 0 ? end + 2 : end + 1);
    }
}

void PrintPerson(const Person& person) {
    for (const CardText& text : kCardTexts) PrintField(text.title, text.of(person));
    if (person.photo) PrintField("Photo", PhotoText(*person.photo));
    for (const Detail& detail : person.details) {
        if (detail.isOfRecord) continue;
        PrintField(TitleOf(detail, [](const char* name) { return std::string(name); }),
                   detail.text + DayText(detail));
    }
}

Json PersonAsJson(const Person& person) {
    Json json;
    for (const CardText& text : kCardTexts) json[text.key] = text.of(person);
    json["uid"] = person.uid;
    json["group"] = person.isGroup;
    if (person.photo) {
        json["photo"] = {{"type", person.photo->mediaType}, {"bytes", person.photo->bytes.size()}};
        if (!person.photo->link.empty()) json["photo"]["link"] = person.photo->link;
    }
    json["details"] = Json::array();
    for (const Detail& detail : person.details) json["details"].push_back(DetailAsJson(detail));
    return json;
}

}  // namespace orvo::cli
