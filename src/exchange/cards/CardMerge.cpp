// What two cards of one person know together.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <map>
#include <set>

#include <fmt/format.h>

#include <exchange/cards/CardFields.h>
#include <exchange/cards/CardMerge.h>
#include <exchange/cards/CardWriter.h>
#include <exchange/lines/EntryReader.h>
#include <exchange/lines/LineEdits.h>
#include <exchange/lines/Origin.h>
#include <exchange/lines/Stamps.h>
#include <platform/text/Utf8.h>
#include <platform/time/CTime.h>

namespace orvo {
namespace {

constexpr std::string_view kOtherPrefix = "X-ORVO-OTHER-";

constexpr std::array<std::string_view, 3> kFrame{"BEGIN", "END", "VERSION"};

struct OnceRule {
    std::string_view property;
    std::string_view name;
};
constexpr std::array kOnce{
    OnceRule{"KIND", "KIND"},
    OnceRule{"PHOTO", "PHOTO"},
    OnceRule{"NICKNAME", "NICKNAME"},
    OnceRule{"BDAY", "BDAY"},
    OnceRule{"ANNIVERSARY", "ANNIVERSARY"},
    OnceRule{"X-ANNIVERSARY", "ANNIVERSARY"},
    OnceRule{"X-EVOLUTION-ANNIVERSARY", "ANNIVERSARY"},
    OnceRule{"X-KADDRESSBOOK-X-ANNIVERSARY", "ANNIVERSARY"},
    OnceRule{"X-MS-ANNIVERSARY", "ANNIVERSARY"},
    OnceRule{"GENDER", "GENDER"},
    OnceRule{"X-GENDER", "GENDER"},
    OnceRule{"X-WAB-GENDER", "GENDER"},
    OnceRule{"BIRTHPLACE", "BIRTHPLACE"},
    OnceRule{"DEATHDATE", "DEATHDATE"},
    OnceRule{"DEATHPLACE", "DEATHPLACE"},
    OnceRule{"X-MAIDENNAME", "X-MAIDENNAME"},
    OnceRule{"UID", "UID"},
    OnceRule{"REV", "REV"},
    OnceRule{"PRODID", "PRODID"},
    OnceRule{"SOURCE", "SOURCE"},
};
// What these say a field holds as a whole. Of names, companies and categories there is more.
constexpr std::array kWhole{Property::Title,
                            Property::Address,
                            Property::Label,
                            Property::Note,
                            Property::Class,
                            Property::PhoneticLast,
                            Property::PhoneticFirst,
                            Property::PhoneticOrganization,
                            Property::OwnNameReading,
                            Property::OwnFirstReading,
                            Property::OwnCompanyReading,
                            Property::Custom1,
                            Property::Custom2,
                            Property::Custom3,
                            Property::Custom4,
                            Property::Archived};

template <std::size_t Count>
bool IsOneOf(std::string_view name, const std::array<std::string_view, Count>& names) {
    return std::any_of(names.begin(), names.end(),
                       [&](std::string_view each) { return EqualsIgnoringCase(each, name); });
}

// The card that a record came from.
struct SourceCard {
    std::string source;
    Origin origin;
    std::unique_ptr<EntryReader> reader;
    Entry entry{};
    bool isCard = false;

    void Open(std::string text) {
        source = std::move(text);
        reader = std::make_unique<EntryReader>(source);
        isCard = reader->Next(entry) && entry.kind == EntryKind::Card && entry.complete;
    }
    long Read(const CAddressRecord& record) {
        std::string text;
        std::string originText;
        long status = record.GetSource(text);
        if (status == 0) status = record.GetOrigin(originText);
        if (status != 0) return status;
        origin = ParseOrigin(originText).value_or(Origin{});
        Open(std::move(text));
        return 0;
    }
};

bool IsBlank(std::string_view value) {
    return value.find_first_not_of("; \t") == std::string_view::npos;
}

bool IsAscii(std::string_view text) {
    return AsciiLength(text) == text.size();
}

std::string_view WithoutLineEnd(std::string_view text) {
    while (text.ends_with('\n') || text.ends_with('\r')) text.remove_suffix(1);
    return text;
}

using OnceNames = std::set<std::string, std::less<>>;

class Merger {
public:
    Merger(const SourceCard& kept, const SourceCard& other, const OnceNames& ofOther)
        : m_kept(kept.entry),
          m_other(other.entry),
          m_dialect(DialectOfCard(m_kept.lines)),
          m_otherDialect(DialectOfCard(m_other.lines)),
          m_hasCategory(other.origin.category != kNoCategory),
          m_edits(m_kept.lines, m_dialect, kept.origin.charset),
          m_otherEdits(m_other.lines, m_otherDialect, other.origin.charset) {
        DeriveFields(m_other.lines, m_otherDialect, other.origin.charset, m_fields);
        for (const ContentLine& line : m_other.lines) {
            if (ofOther.contains(ChoiceOf(line))) m_ofOther.insert(std::string(ChoiceOf(line)));
        }
        for (std::size_t i = 0; i < m_kept.lines.size(); ++i) {
            const ContentLine line = m_kept.lines[i];
            m_groups.insert(Upper(line.group));
            if (IsOfOther(line)) continue;
            m_once.insert(OnceName(line.name));
            m_present.insert(Key(line, m_edits.ValueOf(static_cast<std::ptrdiff_t>(i))));
        }
    }

    void Run() {
        for (std::size_t i = 0; i < m_kept.lines.size(); ++i) {
            if (IsOfOther(m_kept.lines[i])) PutAside(i);
        }
        for (std::size_t i = 0; i + 1 < m_other.lines.size(); ++i) Take(i);
    }

    bool IsChanged() const { return !m_edits.IsEmpty(); }
    std::string Text() {
        SetStamp(m_edits, m_kept.lines, "REV", CTime::GetCurrentMilliseconds());
        return m_edits.Text();
    }

private:
    static std::string Upper(std::string_view text) {
        std::string upper(text);
        std::transform(upper.begin(), upper.end(), upper.begin(),
                       [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
        return upper;
    }

    // Lines without a name are part of what stands before them, so that none is left out alone.
    static std::string Key(const ContentLine& line, std::string_view value) {
        return line.name.empty() ? std::string() : Upper(line.name) + ":" + std::string(value);
    }

    // What the line is in the names of those to choose from; empty for one that is in none of them.
    static std::string_view ChoiceOf(const ContentLine& line) {
        const std::optional<Property> property = PropertyOf(line);
        if (property == Property::Name) return "N";
        if (property == Property::FormattedName) return "FN";
        if (property == Property::Organization) return "ORG";
        return OnceName(line.name);
    }

    bool IsOfOther(const ContentLine& line) const { return m_ofOther.contains(ChoiceOf(line)); }

    // True where a field of the record holds all of the line.
    bool IsHeld(std::size_t number, Property property) const {
        const auto line = static_cast<std::ptrdiff_t>(number);
        if (property == Property::Phone || property == Property::Email ||
            property == Property::Url) {
            const auto& used = m_fields.phoneLine;
            return std::find(used.begin(), used.end(), line) != used.end();
        }
        if (property == Property::Categories) {
            return m_hasCategory && m_fields.categories.size() == 1;
        }
        if (m_fields.Line(property) != line) return false;
        if (!HasOnlyHeldParts(m_other.lines[number])) return false;
        return property == Property::Name || property == Property::Organization ||
               std::find(kWhole.begin(), kWhole.end(), property) != kWhole.end();
    }

    // False where a name or a company has more parts than there are fields for them.
    static bool HasOnlyHeldParts(const ContentLine& line) {
        const std::string_view choice = ChoiceOf(line);
        const std::size_t count = choice == "N" ? 2 : 1;
        if (count == 1 && choice != "ORG") return true;
        PartWalk walk(line.value, ";");
        std::string_view part;
        for (std::size_t i = 0; walk.Next(part); ++i) {
            if (i >= count && !IsBlank(part)) return false;
        }
        return true;
    }

    void Take(std::size_t number) {
        const ContentLine& line = m_other.lines[number];
        if (line.name.empty()) {
            const bool isBlank = Trimmed(WithoutLineEnd(line.source)).empty();
            if (m_addedLast && !isBlank) AddPart(number);
            return;
        }
        m_addedLast = false;
        if (IsOneOf(line.name, kFrame)) return;
        const std::optional<Property> property = PropertyOf(line);
        if (property && (IsHeld(number, *property) || IsBlank(line.value))) return;
        const std::string value = m_otherEdits.ValueOf(static_cast<std::ptrdiff_t>(number));
        const bool isWhole = !value.empty() && !OpensAgent(line);
        if (isWhole && m_present.contains(Key(line, value))) return;
        const std::string_view once = OnceName(line.name);
        const bool isSecond = !once.empty() && m_once.contains(once);
        Add(number, (property.has_value() || isSecond) && !IsOfOther(line));
        m_addedLast = true;
    }

    // In this form its own words say how it is to be read, wherever it stands.
    bool CanStayAsItIs(const ContentLine& line) const {
        if (ValueDecoder::IsLegacy(line)) return false;
        const TransferEncoding encoding = EncodingOf(line.parameters);
        if (encoding == TransferEncoding::Base64) return true;
        if (encoding == TransferEncoding::QuotedPrintable) return IsQuotedDialect(m_dialect);
        return !IsQuotedDialect(m_dialect) || IsAscii(line.source);
    }

    static std::string FullName(const ContentLine& line, std::string_view group,
                                bool underOurName) {
        return fmt::format("{}{}{}{}", group, group.empty() ? "" : ".",
                           underOurName ? kOtherPrefix : std::string_view(), line.name);
    }

    // The line as it came, under that name; empty where it has to be written anew.
    std::string Renamed(const ContentLine& line, const std::string& name) const {
        // A line whose name is folded doesn't begin with it.
        const std::string head = FullName(line, line.group, false);
        if (!CanStayAsItIs(line) || !line.source.starts_with(head)) return {};
        return name + std::string(WithoutLineEnd(line.source.substr(head.size())));
    }

    // A line of the kept card stays at its place, under our name; but for what fields have held.
    void PutAside(std::size_t number) {
        const ContentLine& line = m_kept.lines[number];
        const bool hasParts = ChoiceOf(line) == "N" || ChoiceOf(line) == "ORG";
        if (hasParts && HasOnlyHeldParts(line)) {
            m_edits.At(static_cast<std::ptrdiff_t>(number)).isRemoved = true;
            return;
        }
        const std::string name = FullName(line, line.group, true);
        EditedLine& edited = m_edits.At(static_cast<std::ptrdiff_t>(number));
        std::string renamed = Renamed(line, name);
        edited.name = renamed.empty() ? name : std::string();
        if (!renamed.empty()) edited.value = std::move(renamed);
    }

    void Add(std::size_t number, bool underOurName) {
        const ContentLine& line = m_other.lines[number];
        const std::string group = line.group.empty() ? std::string() : NewGroup(line.group);
        const std::string name = FullName(line, group, underOurName);
        if (const std::string renamed = Renamed(line, name); !renamed.empty()) {
            AddAsItIs(renamed);
            return;
        }
        EditedLine edited = m_otherEdits.At(static_cast<std::ptrdiff_t>(number));
        edited.name = name;
        m_edits.Add({}) = edited;
    }

    // A line of a component inside the card, or what is no line at all.
    void AddPart(std::size_t number) {
        const ContentLine& line = m_other.lines[number];
        if (ValueDecoder::IsLegacy(line)) {
            m_edits.Add({}) = m_otherEdits.At(static_cast<std::ptrdiff_t>(number));
        } else {
            AddAsItIs(line.source);
        }
    }

    void AddAsItIs(std::string_view source) {
        EditedLine& added = m_edits.Add({});
        added.value = WithoutLineEnd(source);
    }

    // Lines that stand together in a group still do, but with none of the kept card.
    std::string NewGroup(std::string_view group) {
        std::string& name = m_newGroups[Upper(group)];
        for (int number = 2; name.empty(); ++number) {
            const std::string wanted = m_groups.contains(Upper(group))
                                           ? fmt::format("{}-{}", group, number)
                                           : std::string(group);
            if (m_groups.insert(Upper(wanted)).second) name = wanted;
        }
        return name;
    }

    const Entry& m_kept;
    const Entry& m_other;
    Dialect m_dialect;
    Dialect m_otherDialect;
    bool m_hasCategory;
    LineEdits m_edits;
    LineEdits m_otherEdits;
    CardFields m_fields;  // of the other card
    std::set<std::string> m_groups;
    OnceNames m_ofOther;                // of these the lines of the other card stay
    std::set<std::string_view> m_once;  // what the kept card says once
    std::set<std::string> m_present;
    std::map<std::string, std::string> m_newGroups;
    bool m_addedLast = false;
};

}  // namespace

std::string_view OnceName(std::string_view property) {
    const auto* const rule = std::find_if(kOnce.begin(), kOnce.end(), [&](const OnceRule& each) {
        return EqualsIgnoringCase(each.property, property);
    });
    return rule == kOnce.end() ? std::string_view() : rule->name;
}

long AddLinesOfOther(CAddressRecord& kept, const CAddressRecord& other, CAddressTable& table,
                     const OnceNames& ofOther) {
    SourceCard keptCard;
    SourceCard otherCard;
    long status = keptCard.Read(kept);
    if (status == 0) status = otherCard.Read(other);
    if (status != 0 || !otherCard.isCard) return status;
    if (!keptCard.isCard) {
        keptCard.Open(CardWriter(table).Write(kept));
        CardFields fields;
        DeriveFields(keptCard.entry.lines, DialectOfCard(keptCard.entry.lines), {}, fields);
        keptCard.origin = CardWriter(table).OriginHere(fields);
    }
    Merger merger(keptCard, otherCard, ofOther);
    merger.Run();
    if (!merger.IsChanged()) return 0;
    // The lines are UTF-8 from now on.
    keptCard.origin.charset.clear();
    keptCard.origin.isEdited = true;
    return kept.SetSource(merger.Text(), FormatOrigin(keptCard.origin));
}

}  // namespace orvo
