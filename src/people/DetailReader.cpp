// Reading one line of a card as a detail of a person.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <charconv>

#include <fmt/format.h>

#include <exchange/cards/CardProperties.h>
#include <people/DetailReader.h>
#include <platform/text/Percents.h>

namespace orvo {
namespace {

constexpr std::size_t kCity = 3;
constexpr std::size_t kState = 4;
constexpr std::size_t kCode = 5;
constexpr std::size_t kCountry = 6;

void AppendLine(std::string& text, std::string_view line) {
    if (line.empty()) return;
    if (!text.empty()) text += '\n';
    text += line;
}

// The way of a country that names its states, else the code before the city.
std::string TownOf(const Detail& detail) {
    const std::string& city = detail.parts[kCity];
    const std::string& state = detail.parts[kState];
    const std::string& code = detail.parts[kCode];
    const char* const form = state.empty() ? "{1} {0}" : city.empty() ? "{2} {1}" : "{0}, {2} {1}";
    return std::string(Trimmed(fmt::format(fmt::runtime(form), city, code, state)));
}

std::string AddressText(const Detail& detail) {
    std::string text;
    for (std::size_t part = 0; part < kCity; ++part) AppendLine(text, detail.parts.at(part));
    AppendLine(text, TownOf(detail));
    AppendLine(text, detail.parts[kCountry]);
    return text;
}

// "latitude,longitude" of "geo:1.5,2.5", "1.5;2.5" and "1.5,2.5"; empty for what is none.
std::string PlaceOf(std::string_view text) {
    if (StartsIgnoringCase(text, "geo:")) text.remove_prefix(4);
    std::array<double, 2> degrees{};
    for (double& number : degrees) {
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc()) return {};
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        text.remove_prefix(std::min(text.find_first_not_of(",;\\ "), text.size()));
    }
    constexpr double mostNorth = 90;
    constexpr double mostEast = 180;
    const bool isOnEarth = degrees[0] >= -mostNorth && degrees[0] <= mostNorth &&
                           degrees[1] >= -mostEast && degrees[1] <= mostEast;
    return isOnEarth ? fmt::format("{},{}", degrees[0], degrees[1]) : std::string();
}

// The scheme of an address of the web, without its colon; empty where there is none (RFC 3986).
std::string_view SchemeOf(std::string_view uri) {
    const std::size_t colon = uri.find(':');
    if (colon == std::string_view::npos) return {};
    const std::string_view scheme = uri.substr(0, colon);
    const bool isOne = std::all_of(scheme.begin(), scheme.end(), [](unsigned char c) {
        return std::isalnum(c) != 0 || c == '+' || c == '-' || c == '.';
    });
    return isOne ? scheme : std::string_view();
}

// The relations that telephones number (of the type of their own items), from 1 on.
constexpr std::array kAndroidRelations{
    DetailWord::Assistant, DetailWord::Brother, DetailWord::Child,   DetailWord::Partner,
    DetailWord::Father,    DetailWord::Friend,  DetailWord::Manager, DetailWord::Mother,
    DetailWord::Parent,    DetailWord::Partner, DetailWord::Agent,   DetailWord::Relative,
    DetailWord::Sister,    DetailWord::Spouse};

// What the person calls it stands before its code.
void ReadGender(Detail& detail) {
    const std::string value = detail.text;
    const std::size_t divider = value.find(';');
    if (divider != std::string::npos && divider + 1 < value.size()) {
        detail.text = value.substr(divider + 1);
        return;
    }
    detail.text = value.substr(0, divider);
    if (const char* name = NameOfGender(detail.text)) {
        detail.text = name;
        detail.isName = true;
    }
}

}  // namespace

std::string DetailReader::TextOf(const ContentLine& line) {
    std::string text;
    Unescape(m_decoder.Decode(line, m_storage), m_dialect, text);
    return std::string(Trimmed(text));
}

std::string DetailReader::PartOf(const ContentLine& line, std::size_t part) {
    std::string text;
    Unescape(orvo::PartOf(m_decoder.Decode(line, m_storage), part, ';'), m_dialect, text,
             ValueKind::Parts);
    return std::string(Trimmed(text));
}

std::string DetailReader::BytesOf(const ContentLine& line, std::string& mediaType) {
    std::string_view value = line.value;
    bool isBase64 = EncodingOf(line.parameters) == TransferEncoding::Base64;
    if (StartsIgnoringCase(value, "data:")) {
        const std::size_t comma = value.find(',');
        if (comma == std::string_view::npos) return {};
        std::string_view head = value.substr(5, comma - 5);
        constexpr std::string_view mark = ";base64";
        isBase64 = head.ends_with(mark);
        mediaType = head.substr(0, std::min(head.find(';'), head.size()));
        value.remove_prefix(comma + 1);
        if (!isBase64) return DecodePercents(value);
    }
    if (!isBase64) return {};
    if (mediaType.empty()) {
        std::string_view type = FindParameter(line.parameters, "MEDIATYPE");
        if (type.empty()) type = FindParameter(line.parameters, "TYPE");
        mediaType = type.empty() || type.find('/') != std::string_view::npos
                        ? std::string(type)
                        : "image/" + std::string(type);
        mediaType = InLowerCase(mediaType);
    }
    std::string bytes;
    AppendBase64(value, bytes);
    return bytes;
}

const DetailReader::Group* DetailReader::GroupOf(const ContentLine& line) {
    if (m_groups.empty()) {
        for (std::size_t i = 0; i < m_lines.size(); ++i) {
            const ContentLine other = m_lines[i];
            if (other.group.empty()) continue;
            Group& group = m_groups[InLowerCase(other.group)];
            if (!EqualsIgnoringCase(other.name, "X-ABLabel")) {
                group.holdsMore = true;
            } else if (!group.label) {
                group.label = i;
            }
        }
    }
    const auto found = m_groups.find(InLowerCase(line.group));
    return found == m_groups.end() ? nullptr : &found->second;
}

bool DetailReader::IsLabelOfAnother(const ContentLine& line) {
    const Group* group = GroupOf(line);
    return group && group->holdsMore;
}

// A line of the same group may name the label.
void DetailReader::ReadLabel(const ContentLine& line, Detail& detail) {
    const Group* group = line.group.empty() ? nullptr : GroupOf(line);
    if (!group || !group->label) return;
    const std::string label = TextOf(m_lines[*group->label]);
    const std::string_view known = WordOfGroupLabel(label).value_or(std::string_view());
    if (const std::optional<DetailWord> word = WordOfLabel(known)) {
        const auto& words = detail.words;
        const bool isThere = std::find(words.begin(), words.end(), *word) != words.end();
        if (!isThere) detail.words.push_back(*word);
    } else if (EqualsIgnoringCase(known, "Anniversary")) {
        detail.kind = DetailKind::Anniversary;
    } else {
        detail.label = known.empty() ? label : std::string(known);
    }
}

void DetailReader::ReadAddress(const ContentLine& line, Detail& detail) {
    for (std::size_t i = 0; i < kAddressParts; ++i) detail.parts.at(i) = PartOf(line, i);
    detail.text = AddressText(detail);
    if (line.parameters.empty()) return;
    const std::string_view label = FindParameter(line.parameters, "LABEL");
    if (!label.empty()) {
        const std::string decoded = DecodeParameter(m_decoder.DecodeText(label));
        Unescape(decoded, m_dialect, detail.text);
    }
    detail.place = PlaceOf(FindParameter(line.parameters, "GEO"));
}

void DetailReader::ReadDate(const ContentLine& line, std::string_view text, Detail& detail) {
    detail.text = text;
    detail.date = ReadPersonDate(text);
    if (!detail.date) return;
    // The year that stands for none, as its own parameter says.
    const std::string_view omitted =
        line.parameters.empty() ? "" : FindParameter(line.parameters, "X-APPLE-OMIT-YEAR");
    if (!omitted.empty() && omitted == fmt::format("{:04}", detail.date->year)) {
        detail.date->year = 0;
    }
    detail.text = FormatPersonDate(*detail.date);
}

void DetailReader::ReadMessenger(const ContentLine& line, Detail& detail) {
    detail.uri = detail.text;
    const std::string_view scheme = SchemeOf(detail.text);
    for (const char* name : {"X-SERVICE-TYPE", "SERVICE-TYPE"}) {
        if (!detail.service.empty() || line.parameters.empty()) break;
        detail.service = DecodeParameter(FindParameter(line.parameters, name));
    }
    if (EqualsIgnoringCase(line.name, "IMPP")) {
        if (detail.service.empty()) detail.service = scheme;
        if (!scheme.empty()) detail.text = detail.text.substr(scheme.size() + 1);
    } else if (detail.service.empty() && !line.parameters.empty()) {
        detail.service = DecodeParameter(FindParameter(line.parameters, "TYPE"));
    }
}

void DetailReader::ReadAndroid(Detail& detail) {
    constexpr std::string_view start = "vnd.android.cursor.item/";
    const std::string value = detail.text;
    if (!StartsIgnoringCase(value, start)) return;
    const auto part = [&](std::size_t number) {
        return std::string(Trimmed(orvo::PartOf(value, number, ';')));
    };
    const std::string item = part(0).substr(start.size());
    const std::string text = part(1);
    int type = 0;
    const std::string typeText = part(2);
    std::from_chars(typeText.data(), typeText.data() + typeText.size(), type);
    if (item == "relation") {
        detail.kind = DetailKind::Relation;
        const auto place = static_cast<std::size_t>(type) - 1;
        if (place < kAndroidRelations.size()) {
            detail.words.push_back(kAndroidRelations.at(place));
        }
    } else if (item == "contact_event") {
        constexpr int anniversary = 1;
        constexpr int birthday = 3;
        detail.kind = type == anniversary ? DetailKind::Anniversary
                      : type == birthday  ? DetailKind::Birthday
                                          : DetailKind::Date;
        ReadDate({}, text, detail);
    } else {
        detail.label = item;
    }
    detail.text = detail.date ? detail.text : text;
    if (detail.kind != DetailKind::Other && !part(3).empty()) detail.label = part(3);
}

// The card of an agent stands in the value or on the lines behind it, which have no name here.
void DetailReader::ReadAgent(std::size_t line, Detail& detail) {
    constexpr std::string_view begin = "BEGIN:VCARD";
    if (!StartsIgnoringCase(detail.text, begin) && !detail.text.empty()) return;
    std::string card = detail.text;
    for (std::size_t i = line + 1; i < m_lines.size() && m_lines[i].name.empty(); ++i) {
        card += '\n';
        card += m_lines[i].text;
    }
    detail.text = card;
    for (std::string_view rest = card; !rest.empty();) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        ContentLine inner;
        inner.text = rest.substr(0, end);
        TakeApart(inner);
        if (EqualsIgnoringCase(inner.name, "FN")) detail.text = Trimmed(inner.value);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

void DetailReader::ReadOther(const ContentLine& line, Detail& detail) {
    std::string mediaType;
    const std::string bytes = BytesOf(line, mediaType);
    if (bytes.empty()) return;
    detail.text = fmt::format("{} ({} bytes)", mediaType, bytes.size());
}

void DetailReader::ReadValue(const DetailProperty& property, const ContentLine& line,
                             Detail& detail) {
    detail.kind = property.kind;
    detail.service = property.service;
    if (property.word) detail.words.push_back(*property.word);
    switch (property.form) {
        case DetailForm::Address:
            return ReadAddress(line, detail);
        case DetailForm::Date:
            return ReadDate(line, detail.text, detail);
        case DetailForm::Place:
            detail.place = PlaceOf(detail.text);
            if (!detail.place.empty()) detail.text = detail.place;
            return;
        case DetailForm::Number:
            if (StartsIgnoringCase(detail.text, "tel:")) detail.text.erase(0, 4);
            return;
        case DetailForm::Android:
            return ReadAndroid(detail);
        case DetailForm::Uri:
            detail.uri = detail.text;
            return;
        case DetailForm::Text:
            break;
    }
    if (property.word == DetailWord::Gender) ReadGender(detail);
}

std::optional<Detail> DetailReader::Read(std::size_t number) {
    const ContentLine line = m_lines[number];
    Detail detail;
    detail.line = number;
    detail.property = line.name;
    std::transform(detail.property.begin(), detail.property.end(), detail.property.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    detail.preference = PreferenceOf(line.parameters);
    const DetailProperty* property = FindDetailProperty(line.name);
    // A long picture is no text.
    const bool isText =
        line.parameters.empty() || EncodingOf(line.parameters) != TransferEncoding::Base64;
    if (isText && !StartsIgnoringCase(line.value, "data:")) detail.text = TextOf(line);
    if (property) {
        detail.words = WordsOf(line.parameters);
        ReadValue(*property, line, detail);
        if (detail.kind == DetailKind::Messenger) ReadMessenger(line, detail);
        if (property->word == DetailWord::Agent) ReadAgent(number, detail);
    } else {
        ReadOther(line, detail);
    }
    ReadLabel(line, detail);
    if (detail.text.empty()) return std::nullopt;
    return detail;
}

}  // namespace orvo
