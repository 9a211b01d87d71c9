// The properties of cards that say something of a person, and what they say.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <exchange/lines/ContentLine.h>
#include <people/DetailProperties.h>

namespace orvo {
namespace {

using Kind = DetailKind;
using Form = DetailForm;
using Word = DetailWord;

// The names of RFC 6350, 4770, 6473, 6474 and 6715, and those under which programs in wide use keep
// the same.
constexpr std::array kDetailProperties{
    DetailProperty{"TEL", Kind::Phone, Form::Number},
    DetailProperty{"X-MS-TEL", Kind::Phone, Form::Number},
    DetailProperty{"EMAIL", Kind::Email, Form::Text},
    DetailProperty{"IMPP", Kind::Messenger, Form::Uri},
    DetailProperty{"X-SOCIALPROFILE", Kind::Messenger, Form::Uri},
    DetailProperty{"SOCIALPROFILE", Kind::Messenger, Form::Uri},
    DetailProperty{"X-MS-IMADDRESS", Kind::Messenger, Form::Text},
    DetailProperty{"X-KADDRESSBOOK-X-IMADDRESS", Kind::Messenger, Form::Text},
    DetailProperty{"X-AIM", Kind::Messenger, Form::Text, {}, "AIM"},
    DetailProperty{"X-DISCORD", Kind::Messenger, Form::Text, {}, "Discord"},
    DetailProperty{"X-GADUGADU", Kind::Messenger, Form::Text, {}, "Gadu-Gadu"},
    DetailProperty{"X-GOOGLE-TALK", Kind::Messenger, Form::Text, {}, "Google Talk"},
    DetailProperty{"X-GROUPWISE", Kind::Messenger, Form::Text, {}, "GroupWise"},
    DetailProperty{"X-GTALK", Kind::Messenger, Form::Text, {}, "Google Talk"},
    DetailProperty{"X-ICQ", Kind::Messenger, Form::Text, {}, "ICQ"},
    DetailProperty{"X-JABBER", Kind::Messenger, Form::Text, {}, "Jabber"},
    DetailProperty{"X-MATRIX", Kind::Messenger, Form::Text, {}, "Matrix"},
    DetailProperty{"X-MSN", Kind::Messenger, Form::Text, {}, "MSN"},
    DetailProperty{"X-QQ", Kind::Messenger, Form::Text, {}, "QQ"},
    DetailProperty{"X-SAMETIME", Kind::Messenger, Form::Text, {}, "Sametime"},
    DetailProperty{"X-SIP", Kind::Messenger, Form::Text, {}, "SIP"},
    DetailProperty{"X-SKYPE", Kind::Messenger, Form::Text, {}, "Skype"},
    DetailProperty{"X-SKYPE-USERNAME", Kind::Messenger, Form::Text, {}, "Skype"},
    DetailProperty{"X-TELEGRAM", Kind::Messenger, Form::Text, {}, "Telegram"},
    DetailProperty{"X-TWITTER", Kind::Messenger, Form::Text, {}, "Twitter"},
    DetailProperty{"X-YAHOO", Kind::Messenger, Form::Text, {}, "Yahoo"},
    DetailProperty{"ADR", Kind::Address, Form::Address},
    DetailProperty{"LABEL", Kind::Address, Form::Text},
    DetailProperty{"URL", Kind::Page, Form::Uri},
    DetailProperty{"X-EVOLUTION-BLOG-URL", Kind::Page, Form::Uri},
    DetailProperty{"X-EVOLUTION-VIDEO-URL", Kind::Page, Form::Uri, Word::Video},
    DetailProperty{"CALURI", Kind::Page, Form::Uri, Word::Calendar},
    DetailProperty{"CALADRURI", Kind::Page, Form::Uri, Word::Calendar},
    DetailProperty{"FBURL", Kind::Page, Form::Uri, Word::FreeBusy},
    DetailProperty{"BDAY", Kind::Birthday, Form::Date},
    DetailProperty{"ANNIVERSARY", Kind::Anniversary, Form::Date},
    DetailProperty{"X-ANNIVERSARY", Kind::Anniversary, Form::Date},
    DetailProperty{"X-EVOLUTION-ANNIVERSARY", Kind::Anniversary, Form::Date},
    DetailProperty{"X-KADDRESSBOOK-X-ANNIVERSARY", Kind::Anniversary, Form::Date},
    DetailProperty{"X-MS-ANNIVERSARY", Kind::Anniversary, Form::Date},
    DetailProperty{"X-ABDATE", Kind::Date, Form::Date},
    DetailProperty{"DEATHDATE", Kind::Date, Form::Date, Word::Death},
    DetailProperty{"RELATED", Kind::Relation, Form::Uri},
    DetailProperty{"X-ABRELATEDNAMES", Kind::Relation, Form::Text},
    DetailProperty{"AGENT", Kind::Relation, Form::Uri, Word::Agent},
    DetailProperty{"X-SPOUSE", Kind::Relation, Form::Text, Word::Spouse},
    DetailProperty{"X-EVOLUTION-SPOUSE", Kind::Relation, Form::Text, Word::Spouse},
    DetailProperty{"X-KADDRESSBOOK-X-SPOUSESNAME", Kind::Relation, Form::Text, Word::Spouse},
    DetailProperty{"X-MS-SPOUSE", Kind::Relation, Form::Text, Word::Spouse},
    DetailProperty{"X-MS-CHILD", Kind::Relation, Form::Text, Word::Child},
    DetailProperty{"X-MANAGER", Kind::Relation, Form::Text, Word::Manager},
    DetailProperty{"X-EVOLUTION-MANAGER", Kind::Relation, Form::Text, Word::Manager},
    DetailProperty{"X-KADDRESSBOOK-X-MANAGERSNAME", Kind::Relation, Form::Text, Word::Manager},
    DetailProperty{"X-MS-MANAGER", Kind::Relation, Form::Text, Word::Manager},
    DetailProperty{"X-ASSISTANT", Kind::Relation, Form::Text, Word::Assistant},
    DetailProperty{"X-EVOLUTION-ASSISTANT", Kind::Relation, Form::Text, Word::Assistant},
    DetailProperty{"X-KADDRESSBOOK-X-ASSISTANTSNAME", Kind::Relation, Form::Text, Word::Assistant},
    DetailProperty{"X-MS-ASSISTANT", Kind::Relation, Form::Text, Word::Assistant},
    DetailProperty{"X-ANDROID-CUSTOM", Kind::Other, Form::Android},
    DetailProperty{"MEMBER", Kind::Member, Form::Uri},
    DetailProperty{"X-ADDRESSBOOKSERVER-MEMBER", Kind::Member, Form::Uri},
    DetailProperty{"GEO", Kind::Fact, Form::Place, Word::Place},
    DetailProperty{"TZ", Kind::Fact, Form::Text, Word::TimeZone},
    DetailProperty{"LANG", Kind::Fact, Form::Text, Word::Language},
    DetailProperty{"GENDER", Kind::Fact, Form::Text, Word::Gender},
    DetailProperty{"X-GENDER", Kind::Fact, Form::Text, Word::Gender},
    DetailProperty{"X-WAB-GENDER", Kind::Fact, Form::Text, Word::Gender},
    DetailProperty{"BIRTHPLACE", Kind::Fact, Form::Text, Word::BirthPlace},
    DetailProperty{"DEATHPLACE", Kind::Fact, Form::Text, Word::DeathPlace},
    DetailProperty{"X-MAIDENNAME", Kind::Fact, Form::Text, Word::MaidenName},
    DetailProperty{"INTEREST", Kind::Fact, Form::Text, Word::Interest},
    DetailProperty{"HOBBY", Kind::Fact, Form::Text, Word::Hobby},
    DetailProperty{"EXPERTISE", Kind::Fact, Form::Text, Word::Expertise},
};

// Under which names details are written: of version 4.0 (RFC 6350, X-ABDATE aside), and of those
// before it, which leave some to the programs.
struct NewProperty {
    DetailKind kind;
    std::string_view name;
    std::string_view olderName;
};
constexpr std::array kNewProperties{
    NewProperty{Kind::Phone, "TEL", "TEL"},
    NewProperty{Kind::Email, "EMAIL", "EMAIL"},
    NewProperty{Kind::Messenger, "IMPP", "IMPP"},
    NewProperty{Kind::Address, "ADR", "ADR"},
    NewProperty{Kind::Page, "URL", "URL"},
    NewProperty{Kind::Birthday, "BDAY", "BDAY"},
    NewProperty{Kind::Anniversary, "ANNIVERSARY", "X-ANNIVERSARY"},
    NewProperty{Kind::Date, "X-ABDATE", "X-ABDATE"},
    NewProperty{Kind::Relation, "RELATED", "X-ABRELATEDNAMES"},
    NewProperty{Kind::Member, "MEMBER", "X-ADDRESSBOOKSERVER-MEMBER"},
};

struct WordRule {
    std::string_view type;
    DetailWord word;
};
// As TYPE parameters name them (RFC 2426, 6350), and labels in the form "_$!<Mother>!$_".
constexpr std::array kWords{
    WordRule{"HOME", Word::Home},
    WordRule{"WORK", Word::Work},
    WordRule{"CELL", Word::Mobile},
    WordRule{"MOBILE", Word::Mobile},
    WordRule{"IPHONE", Word::Mobile},
    WordRule{"FAX", Word::Fax},
    WordRule{"PAGER", Word::Pager},
    WordRule{"MAIN", Word::Main},
    WordRule{"MAIN-NUMBER", Word::Main},
    WordRule{"TEXT", Word::Text},
    WordRule{"TEXTPHONE", Word::Text},
    WordRule{"VIDEO", Word::Video},
    WordRule{"CAR", Word::Car},
    WordRule{"SCHOOL", Word::School},
    WordRule{"SPOUSE", Word::Spouse},
    WordRule{"PARTNER", Word::Partner},
    WordRule{"SWEETHEART", Word::Partner},
    WordRule{"CHILD", Word::Child},
    WordRule{"PARENT", Word::Parent},
    WordRule{"MOTHER", Word::Mother},
    WordRule{"FATHER", Word::Father},
    WordRule{"BROTHER", Word::Brother},
    WordRule{"SISTER", Word::Sister},
    WordRule{"SIBLING", Word::Sibling},
    WordRule{"KIN", Word::Relative},
    WordRule{"FRIEND", Word::Friend},
    WordRule{"COLLEAGUE", Word::Colleague},
    WordRule{"CO-WORKER", Word::Colleague},
    WordRule{"MANAGER", Word::Manager},
    WordRule{"ASSISTANT", Word::Assistant},
    WordRule{"EMERGENCY", Word::Emergency},
    WordRule{"AGENT", Word::Agent},
};

struct LabelRule {
    std::string_view label;
    DetailWord word;
};
constexpr std::array kTwoWordLabels{LabelRule{"HomeFAX", Word::Fax},
                                    LabelRule{"WorkFAX", Word::Fax},
                                    LabelRule{"HomePage", Word::Home}};

}  // namespace

std::string InLowerCase(std::string_view ascii) {
    std::string text(ascii);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

const DetailProperty* FindDetailProperty(std::string_view name) {
    const auto* const found = std::find_if(
        kDetailProperties.begin(), kDetailProperties.end(),
        [&](const DetailProperty& property) { return EqualsIgnoringCase(property.name, name); });
    return found == kDetailProperties.end() ? nullptr : &*found;
}

std::vector<DetailWord> WordsOf(std::string_view parameters) {
    std::vector<DetailWord> words;
    if (parameters.empty()) return words;
    for (const WordRule& rule : kWords) {
        const bool isThere = std::find(words.begin(), words.end(), rule.word) != words.end();
        if (!isThere && HasType(parameters, rule.type)) words.push_back(rule.word);
    }
    return words;
}

std::vector<std::string_view> TypesOf(DetailWord word) {
    std::vector<std::string_view> types;
    for (const WordRule& rule : kWords) {
        if (rule.word == word) types.push_back(rule.type);
    }
    return types;
}

std::string_view PropertyFor(DetailKind kind, Dialect dialect) {
    for (const NewProperty& property : kNewProperties) {
        if (property.kind != kind) continue;
        return dialect == Dialect::Card40 ? property.name : property.olderName;
    }
    return {};
}

std::optional<DetailWord> WordOfLabel(std::string_view label) {
    for (const LabelRule& rule : kTwoWordLabels) {
        if (EqualsIgnoringCase(rule.label, label)) return rule.word;
    }
    for (const WordRule& rule : kWords) {
        if (EqualsIgnoringCase(rule.type, label)) return rule.word;
    }
    return std::nullopt;
}

}  // namespace orvo
