// Reading all that a card or a record says of a person.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <exchange/cards/CardFields.h>
#include <exchange/cards/CardWriter.h>
#include <exchange/lines/EntryReader.h>
#include <exchange/lines/Origin.h>
#include <people/DetailReader.h>
#include <people/PersonReader.h>

namespace orvo {
namespace {

void AppendListed(std::string& list, std::string_view text, std::string_view divider = ", ") {
    if (text.empty()) return;
    if (!list.empty()) list += divider;
    list += text;
}

class Reader {
public:
    Reader(const LineList& lines, std::string_view charset, Person& person)
        : m_lines(lines),
          m_dialect(DialectOfCard(lines)),
          m_details(lines, m_dialect, charset),
          m_person(person) {
        DeriveFields(lines, m_dialect, charset, m_fields);
    }

    void Run() {
        for (std::size_t i = 0; i < m_lines.size(); ++i) {
            const ContentLine line = m_lines[i];
            if (line.name.empty() || TakeOwn(line, i)) continue;
            if (std::optional<Detail> detail = m_details.Read(i)) Add(std::move(*detail));
        }
        for (const ListedCategory& category : m_fields.categories) {
            m_person.categories.push_back(category.name);
        }
        if (m_person.isMailList) MakeMembers();
        std::stable_sort(m_person.details.begin(), m_person.details.end(),
                         [](const Detail& left, const Detail& right) {
                             return left.kind != right.kind ? left.kind < right.kind
                                                            : left.preference < right.preference;
                         });
    }

private:
    struct Rule {
        std::string_view name;
        void (Reader::*take)(const ContentLine& line, std::size_t number);
    };
    static const std::array<Rule, 27> kRules;

    bool TakeOwn(const ContentLine& line, std::size_t number) {
        constexpr std::string_view own = "X-ORVO-";
        if (StartsIgnoringCase(line.name, own)) return true;
        for (const Rule& rule : kRules) {
            if (!EqualsIgnoringCase(rule.name, line.name)) continue;
            (this->*rule.take)(line, number);
            return true;
        }
        return false;
    }

    void Pass(const ContentLine&, std::size_t) {}
    void TakeOther(const ContentLine&, std::size_t number) {
        if (std::optional<Detail> detail = m_details.Read(number)) Add(std::move(*detail));
    }
    void TakeFullName(const ContentLine& line, std::size_t number) {
        if (!m_person.name.full.empty()) return TakeOther(line, number);
        m_person.name.full = m_details.TextOf(line);
    }
    void TakeName(const ContentLine& line, std::size_t number) {
        if (!IsFirst(Property::Name, number)) return;  // the same in another script
        PersonName& name = m_person.name;
        constexpr std::array<std::string PersonName::*, 5> parts{
            &PersonName::family, &PersonName::given, &PersonName::middle, &PersonName::prefix,
            &PersonName::suffix};
        for (std::size_t i = 0; i < parts.size(); ++i) {
            name.*parts.at(i) = m_details.PartOf(line, i);
        }
    }
    void TakeNickname(const ContentLine& line, std::size_t) {
        AppendListed(m_person.name.nickname, m_details.TextOf(line));
    }
    void TakeOrganization(const ContentLine& line, std::size_t number) {
        if (!IsFirst(Property::Organization, number)) {
            const bool isReading =
                !line.parameters.empty() && !FindParameter(line.parameters, "PHONETIC").empty();
            if (!isReading) TakeOther(line, number);
            return;
        }
        PersonWork& work = m_person.work;
        work.company = m_details.PartOf(line, 0);
        constexpr std::size_t mostUnits = 10;
        for (std::size_t i = 1; i < mostUnits; ++i) {
            AppendListed(work.department, m_details.PartOf(line, i));
        }
    }
    void TakeTitle(const ContentLine& line, std::size_t) {
        AppendListed(m_person.work.title, m_details.TextOf(line));
    }
    void TakeRole(const ContentLine& line, std::size_t) {
        AppendListed(m_person.work.role, m_details.TextOf(line));
    }
    void TakeNote(const ContentLine& line, std::size_t) {
        AppendListed(m_person.note, m_details.TextOf(line), "\n\n");
    }
    void TakeUid(const ContentLine& line, std::size_t) { m_person.uid = m_details.TextOf(line); }
    void TakePhoto(const ContentLine& line, std::size_t number) {
        PersonPhoto photo;
        photo.line = number;
        photo.bytes = m_details.BytesOf(line, photo.mediaType);
        if (photo.bytes.empty()) photo.link = m_details.TextOf(line);
        if (m_person.photo) return TakeOther(line, number);
        if (!photo.bytes.empty() || !photo.link.empty()) m_person.photo = std::move(photo);
    }
    void TakeKind(const ContentLine& line, std::size_t number) {
        const std::string kind = m_details.TextOf(line);
        m_person.isGroup = m_person.isGroup || EqualsIgnoringCase(kind, "group");
        const bool isUsual = m_person.isGroup || EqualsIgnoringCase(kind, "individual");
        if (!isUsual) TakeOther(line, number);
    }
    void TakeList(const ContentLine& line, std::size_t) {
        m_person.isMailList = IsTrue(m_details.TextOf(line));
        m_person.isGroup = m_person.isGroup || m_person.isMailList;
    }
    void TakeSound(const ContentLine& line, std::size_t number) {
        if (!HasType(line.parameters, "X-IRMC-N")) TakeOther(line, number);
    }
    void TakeLabel(const ContentLine& line, std::size_t number) {
        if (!m_details.IsLabelOfAnother(line)) TakeOther(line, number);
    }

    bool IsFirst(Property property, std::size_t number) const {
        return m_fields.Line(property) == static_cast<std::ptrdiff_t>(number);
    }

    void Add(Detail detail) {
        if (detail.kind == DetailKind::Other && detail.label == "nickname") {
            return AppendListed(m_person.name.nickname, detail.text);
        }
        const auto line = static_cast<std::ptrdiff_t>(detail.line);
        for (int slot = 1; slot <= kPhoneSlots; ++slot) {
            if (m_fields.phoneLine[static_cast<std::size_t>(slot) - 1] == line) detail.slot = slot;
        }
        const bool isAddress =
            m_fields.Line(Property::Address) == line ||
            (m_fields.Line(Property::Address) == kNoLine && m_fields.Line(Property::Label) == line);
        detail.isOfRecord = detail.slot != 0 || isAddress;
        m_person.details.push_back(std::move(detail));
    }

    // The addresses of a list of addressees are its members.
    void MakeMembers() {
        for (Detail& detail : m_person.details) {
            if (detail.kind != DetailKind::Email) continue;
            detail.kind = DetailKind::Member;
            detail.uri = "mailto:" + detail.text;
        }
    }

    LineList m_lines;
    Dialect m_dialect;
    DetailReader m_details;
    Person& m_person;
    CardFields m_fields;
};

// The properties that are no details: they say the name, the work and the like, or nothing of the
// person.
const std::array<Reader::Rule, 27> Reader::kRules{{
    {"BEGIN", &Reader::Pass},
    {"END", &Reader::Pass},
    {"VERSION", &Reader::Pass},
    {"FN", &Reader::TakeFullName},
    {"N", &Reader::TakeName},
    {"NICKNAME", &Reader::TakeNickname},
    {"ORG", &Reader::TakeOrganization},
    {"TITLE", &Reader::TakeTitle},
    {"ROLE", &Reader::TakeRole},
    {"NOTE", &Reader::TakeNote},
    {"UID", &Reader::TakeUid},
    {"REV", &Reader::Pass},
    {"PHOTO", &Reader::TakePhoto},
    {"KIND", &Reader::TakeKind},
    {"X-ADDRESSBOOKSERVER-KIND", &Reader::TakeKind},
    {"X-KADDRESSBOOK-KIND", &Reader::TakeKind},
    {"X-EVOLUTION-LIST", &Reader::TakeList},
    {"CATEGORIES", &Reader::Pass},
    {"CLASS", &Reader::Pass},
    {"SOUND", &Reader::TakeSound},
    {"X-ABLABEL", &Reader::TakeLabel},
    {"SORT-STRING", &Reader::Pass},
    {"X-PHONETIC-LAST-NAME", &Reader::Pass},
    {"X-PHONETIC-FIRST-NAME", &Reader::Pass},
    {"X-PHONETIC-ORG", &Reader::Pass},
    {"X-EVOLUTION-LIST-SHOW-ADDRESSES", &Reader::Pass},
    {"X-EVOLUTION-LIST-SHOW_ADDRESSES", &Reader::Pass},
}};

}  // namespace

Person ReadPerson(std::string_view card, std::string_view charset) {
    Person person;
    EntryReader reader(card);
    Entry entry;
    while (reader.Next(entry)) {
        if (entry.kind != EntryKind::Card) continue;
        Reader(entry.lines, charset, person).Run();
        break;
    }
    return person;
}

std::string CharsetOf(const CBaseRecord& record) {
    std::string origin;
    if (record.GetOrigin(origin) != 0) return {};
    const std::optional<Origin> known = ParseOrigin(origin);
    return known ? known->charset : std::string();
}

Person ReadPerson(const CAddressRecord& record, CAddressTable& table, std::string& loss) {
    loss.clear();
    const std::string card = CardWriter(table).Write(record, &loss);
    return ReadPerson(card, CharsetOf(record));
}

}  // namespace orvo
