// Writing details of a person as lines of a card.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <fmt/format.h>

#include <exchange/lines/ParameterEdits.h>
#include <people/DetailProperties.h>
#include <people/DetailWriter.h>

namespace orvo {
namespace {

constexpr std::string_view kLabelName = "X-ABLabel";
constexpr std::string_view kAndroidName = "X-ANDROID-CUSTOM";

bool IsDay(DetailKind kind) {
    return kind == DetailKind::Birthday || kind == DetailKind::Anniversary ||
           kind == DetailKind::Date;
}

bool HoldsSameValue(const Detail& left, const Detail& right) {
    if (left.kind == DetailKind::Address) return left.parts == right.parts;
    if (left.kind == DetailKind::Member) return left.uri == right.uri;
    return left.date == right.date && (left.date || left.text == right.text);
}

bool HoldsSameWords(const Detail& left, const Detail& right) {
    return left.words == right.words && left.label == right.label;
}

// Of these the label says what they are, as no type does.
bool IsToldByLabel(std::string_view name) {
    return EqualsIgnoringCase(name, "X-ABDATE") || EqualsIgnoringCase(name, "X-ABRELATEDNAMES");
}

std::string_view NameWithoutGroup(const EditedLine& line) {
    return std::string_view(line.name).substr(line.name.find('.') + 1);
}

// "_$!<Spouse>!$_" of the first word, or what the user calls it.
std::string LabelText(const Detail& detail) {
    if (!detail.label.empty() || detail.words.empty()) return detail.label;
    const std::vector<std::string_view> types = TypesOf(detail.words.front());
    if (types.empty()) return NameOf(detail.words.front());
    std::string word = InLowerCase(types.front());
    word.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(word.front())));
    return "_$!<" + word + ">!$_";
}

struct Scheme {
    std::string_view service;
    std::string_view scheme;
};
// Where the scheme of its addresses isn't the name of the service.
constexpr std::array kSchemes{Scheme{"jabber", "xmpp"}, Scheme{"googletalk", "xmpp"},
                              Scheme{"signal", "sgnl"}, Scheme{"telegram", "tg"}};

std::string SchemeFor(std::string_view service) {
    std::string name = InLowerCase(service);
    std::erase_if(name, [](unsigned char c) { return c > 0x7F || std::isalnum(c) == 0; });
    for (const Scheme& rule : kSchemes) {
        if (rule.service == name) return std::string(rule.scheme);
    }
    return name.empty() || std::isdigit(static_cast<unsigned char>(name.front())) != 0 ? "im"
                                                                                       : name;
}

// The dates of RFC 6350 lack the dashes, and may lack the year.
std::string DateIn40(const PersonDate& date) {
    std::string text = FormatPersonDate(date);
    if (date.day == 0 || date.month == 0) return text;
    const std::size_t start = date.year == 0 ? 2 : 0;
    text.erase(std::remove(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), '-'),
               text.end());
    return text;
}

// Base64 as version 2.1 has it: in lines that begin with a blank, with an empty one behind them.
std::string FoldedBase64(std::string_view head, std::string_view bytes) {
    constexpr std::size_t lineLength = 74;
    const std::string text = ToBase64(bytes);
    std::string folded(head);
    for (std::size_t i = 0; i < text.size(); i += lineLength) {
        folded.append("\r\n ").append(text.substr(i, lineLength));
    }
    return folded + "\r\n";
}

}  // namespace

DetailWriter::Label DetailWriter::LabelOf(std::size_t line) const {
    Label label;
    const std::string_view group = m_lines[line].group;
    if (group.empty()) return label;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const ContentLine other = m_lines[i];
        if (i == line || !EqualsIgnoringCase(other.group, group)) continue;
        if (!EqualsIgnoringCase(other.name, kLabelName)) {
            label.servesOthers = true;
        } else if (!label.line) {
            label.line = i;
        }
    }
    return label;
}

std::string DetailWriter::FreshGroup() {
    if (m_groups.empty()) {
        for (const ContentLine& line : m_lines) m_groups.insert(InLowerCase(line.group));
    }
    std::string group;
    for (int number = 1; group.empty(); ++number) {
        const std::string wanted = fmt::format("item{}", number);
        if (m_groups.insert(wanted).second) group = wanted;
    }
    return group;
}

void DetailWriter::AddLabel(EditedLine& line, const std::string& text) {
    const std::size_t dot = line.name.find('.');
    const std::string group = dot == std::string::npos ? FreshGroup() : line.name.substr(0, dot);
    if (dot == std::string::npos) line.name = fmt::format("{}.{}", group, line.name);
    EditedLine& label = m_edits.Add(fmt::format("{}.{}", group, kLabelName));
    label.value = Escape(text, m_dialect);
}

void DetailWriter::SetAddress(EditedLine& line, const Detail* was, const Detail& now) const {
    if (!was) line.value = ";;;;;;";
    for (std::size_t i = 0; i < kAddressParts; ++i) {
        if (was && was->parts.at(i) == now.parts.at(i)) continue;
        line.value = ReplaceParts(line.value, {{i, now.parts.at(i)}}, ';', m_dialect);
    }
    // Both tell of the address as it was.
    for (const char* name : {"LABEL", "GEO"}) RemoveParameter(line.parameters, name);
}

void DetailWriter::SetDate(EditedLine& line, const Detail& now) const {
    for (const char* name : {"VALUE", "X-APPLE-OMIT-YEAR"}) {
        RemoveParameter(line.parameters, name);
    }
    if (!now.date) {
        line.value = Escape(now.text, m_dialect);
        if (!IsQuotedDialect(m_dialect)) line.parameters.emplace_back("VALUE=text");
        return;
    }
    if (m_dialect == Dialect::Card40) {
        line.value = DateIn40(*now.date);
        return;
    }
    PersonDate date = *now.date;
    // A leap year stands for none, as the versions before 4.0 have no date without a year.
    constexpr int noYear = 1604;
    if (date.year == 0 && date.ComesBack()) {
        date.year = noYear;
        line.parameters.push_back(fmt::format("X-APPLE-OMIT-YEAR={}", noYear));
    }
    line.value = FormatPersonDate(date);
}

void DetailWriter::SetMessenger(EditedLine& line, const Detail* was, const Detail& now) const {
    if (!EqualsIgnoringCase(NameWithoutGroup(line), "IMPP")) {
        line.value = Escape(now.text, m_dialect);
        return;
    }
    bool isEncoded = false;
    if (was && was->service == now.service) {
        const std::string scheme = was->uri.substr(0, was->uri.size() - was->text.size());
        line.value = EncodeUri(scheme + now.text, isEncoded);
        return;
    }
    const bool hasScheme = now.service.empty() && now.text.find(':') != std::string::npos;
    const std::string scheme = hasScheme ? std::string() : SchemeFor(now.service) + ":";
    line.value = EncodeUri(scheme + now.text, isEncoded);
    for (const char* name : {"X-SERVICE-TYPE", "SERVICE-TYPE"}) {
        RemoveParameter(line.parameters, name);
    }
    if (now.service.empty()) return;
    line.parameters.push_back(
        fmt::format("{}SERVICE-TYPE={}", m_dialect == Dialect::Card40 ? "" : "X-",
                    IsQuotedDialect(m_dialect) ? now.service : QuoteParameter(now.service)));
}

void DetailWriter::SetValue(EditedLine& line, const Detail* was, const Detail& now) const {
    bool isEncoded = false;
    if (now.kind == DetailKind::Address) return SetAddress(line, was, now);
    if (IsDay(now.kind)) return SetDate(line, now);
    if (now.kind == DetailKind::Messenger) return SetMessenger(line, was, now);
    RemoveParameter(line.parameters, "VALUE");
    if (now.kind == DetailKind::Page) {
        line.value = EncodeUri(now.text, isEncoded);
    } else if (now.kind == DetailKind::Member) {
        line.value = EncodeUri(now.uri, isEncoded);
    } else {
        line.value = Escape(now.text, m_dialect);
        const bool isRelated = EqualsIgnoringCase(NameWithoutGroup(line), "RELATED");
        if (isRelated) line.parameters.emplace_back("VALUE=text");
    }
}

void DetailWriter::SetWords(EditedLine& line, const Detail* was, const Detail& now) {
    const bool isByLabel = IsToldByLabel(NameWithoutGroup(line));
    if (!isByLabel) {
        for (const DetailWord word : was ? was->words : std::vector<DetailWord>()) {
            const bool stays =
                std::find(now.words.begin(), now.words.end(), word) != now.words.end();
            if (!stays) RemoveTypes(line.parameters, TypesOf(word));
        }
        const std::vector<DetailWord> told =
            WordsOf(fmt::format("{}", fmt::join(line.parameters, ";")));
        for (const DetailWord word : now.words) {
            const std::vector<std::string_view> types = TypesOf(word);
            const bool isTold = std::find(told.begin(), told.end(), word) != told.end();
            if (!isTold && !types.empty()) AddType(line.parameters, types.front(), m_dialect);
        }
    }
    const std::string text = isByLabel ? LabelText(now) : now.label;
    const std::optional<std::size_t> present = was ? LabelOf(was->line).line : std::nullopt;
    if (!present) {
        if (!text.empty()) AddLabel(line, text);
        return;
    }
    EditedLine& label = m_edits.At(static_cast<std::ptrdiff_t>(*present));
    label.value = Escape(text, m_dialect);
    label.isRemoved = text.empty();
}

// Where the name of the property, or a value that is none of a line's own, says what has changed.
bool DetailWriter::MustMove(const Detail& was, const Detail& now) const {
    if (was.kind != now.kind || was.property == "AGENT" || was.property == "LABEL") return true;
    if (was.service != now.service && was.property != "IMPP") return true;
    if (HoldsSameWords(was, now)) return false;
    const DetailProperty* property = FindDetailProperty(was.property);
    return was.property == kAndroidName || (property && property->word);
}

void DetailWriter::Add(const Detail& detail) {
    const std::string_view name = PropertyFor(detail.kind, m_dialect);
    EditedLine& line = m_edits.Add(name.empty() ? detail.property : std::string(name));
    SetValue(line, nullptr, detail);
    SetWords(line, nullptr, detail);
}

void DetailWriter::Change(const Detail& was, const Detail& now) {
    const bool isSameValue = HoldsSameValue(was, now) && was.service == now.service;
    if (was.kind == now.kind && isSameValue && HoldsSameWords(was, now)) return;
    if (MustMove(was, now)) {
        Remove(was.line);
        return Add(now);
    }
    EditedLine& line = m_edits.At(static_cast<std::ptrdiff_t>(was.line));
    if (was.property == kAndroidName) {
        const std::string text = now.date ? FormatPersonDate(*now.date) : now.text;
        line.value = ReplaceParts(line.value, {{1, text}}, ';', m_dialect);
        return;
    }
    if (!isSameValue) SetValue(line, &was, now);
    if (!HoldsSameWords(was, now)) SetWords(line, &was, now);
}

void DetailWriter::Remove(std::size_t line) {
    m_edits.At(static_cast<std::ptrdiff_t>(line)).isRemoved = true;
    const Label label = LabelOf(line);
    if (label.line && !label.servesOthers) {
        m_edits.At(static_cast<std::ptrdiff_t>(*label.line)).isRemoved = true;
    }
    // The card of an agent, which stands on lines without a name of their own.
    if (!EqualsIgnoringCase(m_lines[line].name, "AGENT")) return;
    for (std::size_t i = line + 1; i < m_lines.size() && m_lines[i].name.empty(); ++i) {
        m_edits.At(static_cast<std::ptrdiff_t>(i)).isRemoved = true;
    }
}

void DetailWriter::SetPhoto(const PersonPhoto& photo, std::optional<std::size_t> place) {
    if (photo.bytes.empty()) {
        if (place) m_edits.At(static_cast<std::ptrdiff_t>(*place)).isRemoved = true;
        return;
    }
    EditedLine& line =
        place ? m_edits.At(static_cast<std::ptrdiff_t>(*place)) : m_edits.Add("PHOTO");
    std::string type = photo.mediaType.substr(photo.mediaType.find('/') + 1);
    std::transform(type.begin(), type.end(), type.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    if (m_dialect == Dialect::Card40) {
        line.parameters.clear();
        line.value = fmt::format("data:{};base64,{}", photo.mediaType, ToBase64(photo.bytes));
    } else if (m_dialect == Dialect::Card30) {
        line.parameters = {"ENCODING=b", "TYPE=" + type};
        line.value = ToBase64(photo.bytes);
    } else {
        line.value =
            FoldedBase64(fmt::format("{};ENCODING=BASE64;{}:", line.name, type), photo.bytes);
        line.name.clear();
    }
}

}  // namespace orvo
