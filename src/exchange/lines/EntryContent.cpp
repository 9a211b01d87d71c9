// What an entry says, whatever the way in which it is written.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <map>

#include <exchange/lines/EntryContent.h>
#include <exchange/lines/ValueDecoder.h>

namespace orvo {
namespace {

// These would be in no text of a line.
constexpr char kPartEnd = '\x1F';
constexpr char kLineEnd = '\x1E';

constexpr std::array<std::string_view, 11> kNotCounted{
    "BEGIN",   "END",           "VERSION", "PRODID",   "UID",     "REV",
    "DTSTAMP", "LAST-MODIFIED", "CREATED", "DCREATED", "SEQUENCE"};
constexpr std::array<std::string_view, 4> kOfParts{"N", "ADR", "ORG", "GENDER"};
constexpr std::array<std::string_view, 2> kLists{"CATEGORIES", "NICKNAME"};

template <std::size_t Count>
bool IsOneOf(std::string_view name, const std::array<std::string_view, Count>& names) {
    return std::any_of(names.begin(), names.end(),
                       [&](std::string_view each) { return EqualsIgnoringCase(each, name); });
}

std::string Upper(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return upper;
}

// The words of a type are one each, also where one parameter lists several of them.
void AppendTypes(std::string_view list, std::vector<std::string>& parameters) {
    std::string_view item;
    list = Unquoted(list);
    while (NextListItem(list, item)) parameters.push_back("TYPE=" + Upper(Trimmed(item)));
}

std::vector<std::string> ParametersOf(std::string_view text, ValueDecoder& decoder) {
    std::vector<std::string> parameters;
    ParameterWalk walk(text);
    Parameter parameter;
    while (walk.Next(parameter)) {
        if (TellsEncoding(parameter)) continue;
        if (parameter.name.empty() || EqualsIgnoringCase(parameter.name, "TYPE")) {
            AppendTypes(parameter.value, parameters);
            continue;
        }
        const std::string value = DecodeParameter(decoder.DecodeText(Unquoted(parameter.value)));
        const bool isWord = EqualsIgnoringCase(parameter.name, "VALUE");
        parameters.push_back(Upper(parameter.name) + "=" + (isWord ? Upper(value) : value));
    }
    std::sort(parameters.begin(), parameters.end());
    parameters.erase(std::unique(parameters.begin(), parameters.end()), parameters.end());
    return parameters;
}

// The parts without the empty ones at the end, which many leave out.
std::string JoinedParts(std::string_view value, const char* dividers, Dialect dialect) {
    std::string joined;
    std::string text;
    PartWalk walk(value, dividers);
    std::string_view part;
    while (walk.Next(part)) {
        Unescape(part, dialect, text, ValueKind::Parts);
        joined.append(text) += kPartEnd;
    }
    while (joined.ends_with(kPartEnd)) joined.pop_back();
    return joined;
}

std::string ValueOf(const ContentLine& line, Dialect dialect, ValueDecoder& decoder) {
    std::string storage;
    const std::string_view value = decoder.Decode(line, storage);
    if (IsOneOf(line.name, kOfParts)) return JoinedParts(value, ";", dialect);
    // In a list a comma of a name is escaped in every format.
    if (IsOneOf(line.name, kLists)) return JoinedParts(value, ",", Dialect::Card30);
    std::string text;
    Unescape(value, dialect, text);
    return text;
}

std::string TextOf(const ContentLine& line, Dialect dialect, ValueDecoder& decoder) {
    // What stands in a component inside the entry, or is no line of the format.
    if (line.name.empty()) return std::string(Trimmed(line.text));
    std::string text = Upper(line.name);
    for (const std::string& parameter : ParametersOf(line.parameters, decoder)) {
        text.append(";").append(parameter);
    }
    return text.append(":").append(ValueOf(line, dialect, decoder));
}

}  // namespace

std::vector<std::string> ContentOf(const LineList& lines, Dialect dialect,
                                   std::string_view charset) {
    ValueDecoder decoder(lines, charset);
    std::vector<std::string> content;
    std::map<std::string, std::vector<std::string>> groups;
    for (const ContentLine& line : lines) {
        if (!line.name.empty() && IsOneOf(line.name, kNotCounted)) continue;
        std::string text = TextOf(line, dialect, decoder);
        if (text.empty()) continue;
        if (line.group.empty()) {
            content.push_back(std::move(text));
        } else {
            groups[Upper(line.group)].push_back(std::move(text));
        }
    }
    for (auto& [name, members] : groups) {
        std::sort(members.begin(), members.end());
        std::string text;
        for (const std::string& member : members) {
            if (!text.empty()) text += kLineEnd;
            text += member;
        }
        content.push_back(std::move(text));
    }
    std::sort(content.begin(), content.end());
    return content;
}

}  // namespace orvo
