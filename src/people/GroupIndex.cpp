// Which groups of people there are, and who is in them.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <functional>

#include <exchange/lines/EntryReader.h>
#include <exchange/lines/Origin.h>
#include <exchange/lines/ValueDecoder.h>
#include <people/DetailProperties.h>
#include <people/GroupIndex.h>
#include <people/PersonReader.h>

namespace orvo {
namespace {

// The same for all ways to write one address.
std::size_t HashOf(std::string_view member) {
    for (const std::string_view scheme : {"urn:uuid:", "uid:", "mailto:"}) {
        if (StartsIgnoringCase(member, scheme)) member.remove_prefix(scheme.size());
    }
    return std::hash<std::string>()(InLowerCase(Trimmed(member)));
}

std::string NameOfGroup(const CAddressRecord& record) {
    std::string name;
    for (const AddressField field : {AddressField::First, AddressField::Name}) {
        const std::string_view part = record.Utf8(field);
        if (!name.empty() && !part.empty()) name += ' ';
        name += part;
    }
    return name.empty() ? std::string(record.Utf8(AddressField::Company)) : name;
}

bool TellsGroup(const ContentLine& line) {
    constexpr std::array<std::string_view, 4> names{"KIND", "X-ADDRESSBOOKSERVER-KIND",
                                                    "X-KADDRESSBOOK-KIND", "X-EVOLUTION-LIST"};
    return std::any_of(names.begin(), names.end(),
                       [&](std::string_view name) { return EqualsIgnoringCase(name, line.name); });
}

}  // namespace

void GroupIndex::AddKey(std::string_view member, std::int64_t id) {
    const Key key{HashOf(member), id};
    const auto place =
        m_isWhole ? std::lower_bound(m_keys.begin(), m_keys.end(), key) : m_keys.end();
    m_keys.insert(place, key);
}

void GroupIndex::Take(const CAddressRecord& record) {
    const std::int64_t id = record.GetId();
    std::vector<std::string> mails;
    for (long slot = 1; slot <= kPhoneSlots; ++slot) {
        const std::string_view text = record.Utf8(PhoneField(slot));
        if (text.find('@') != std::string_view::npos) mails.emplace_back(text);
    }
    std::string source;
    bool mayBeGroup = false;
    if (record.GetSource(source) != 0) source.clear();
    EntryReader reader(source);
    Entry entry;
    if (reader.Next(entry) && entry.kind == EntryKind::Card) {
        for (const ContentLine& line : entry.lines) {
            if (EqualsIgnoringCase(line.name, "UID")) AddKey(line.value, id);
            if (EqualsIgnoringCase(line.name, "EMAIL")) mails.emplace_back(line.value);
            mayBeGroup = mayBeGroup || TellsGroup(line);
        }
    }
    // The addresses of a list are those of its members.
    if (mayBeGroup && TakeGroup(record, source)) return;
    for (const std::string& mail : mails) AddKey(mail, id);
}

// Returns:  true for a list of mail addresses.
bool GroupIndex::TakeGroup(const CAddressRecord& record, const std::string& source) {
    std::string origin;
    if (record.GetOrigin(origin) != 0) return false;
    const Person person = ReadPerson(source, ParseOrigin(origin).value_or(Origin{}).charset);
    if (!person.isGroup || record.IsArchived()) return person.isMailList;
    PersonGroup group{NameOfGroup(record), record.IsPrivate() != 0, person.isMailList, {}};
    for (const Detail& detail : person.details) {
        if (detail.kind == DetailKind::Member) group.members.push_back(detail.uri);
    }
    m_groups.insert_or_assign(record.GetId(), std::move(group));
    return person.isMailList;
}

bool GroupIndex::Read(std::chrono::milliseconds time) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + time;
    CAddressRecord record(m_table);
    while (!m_isWhole) {
        const bool isFirst = !m_walk;
        if (isFirst) m_walk = std::make_unique<CAddressIterator>(m_table);
        const long status = isFirst ? m_walk->FindFirst(record) : m_walk->FindNext(record);
        if (status == 0) {
            Take(record);
        } else if (!m_walk->IsAtDamage()) {
            m_walk.reset();
            std::sort(m_keys.begin(), m_keys.end());
            m_isWhole = true;
        }
        if (Clock::now() >= end) break;
    }
    if (m_isWhole) TakeChanged();
    return m_isWhole;
}

void GroupIndex::TakeChanged() {
    if (m_changed.empty()) return;
    std::erase_if(m_keys, [&](const Key& key) { return m_changed.count(key.id) != 0; });
    m_people.clear();
    for (const std::int64_t id : m_changed) {
        m_groups.erase(id);
        CAddressRecord record(m_table);
        if (m_table.Find(id, record) == 0 && !record.IsDeleted()) Take(record);
    }
    m_changed.clear();
}

void GroupIndex::Forget(std::int64_t id) {
    // What nobody has asked for yet is read as it is then.
    if (m_isWhole || m_walk) m_changed.insert(id);
}

void GroupIndex::Clear() {
    m_walk.reset();
    m_isWhole = false;
    m_changed.clear();
    m_keys.clear();
    m_groups.clear();
    m_people.clear();
}

std::optional<std::int64_t> GroupIndex::PersonOf(std::string_view member) const {
    const Key wanted{HashOf(member), 0};
    const auto found = std::lower_bound(m_keys.begin(), m_keys.end(), wanted);
    if (!m_isWhole || found == m_keys.end() || found->hash != wanted.hash) return std::nullopt;
    return found->id;
}

const std::unordered_set<std::int64_t>& GroupIndex::PeopleOf(std::int64_t group) const {
    const auto [place, isNew] = m_people.try_emplace(group);
    const auto found = m_groups.find(group);
    if (!isNew || found == m_groups.end()) return place->second;
    for (const std::string& member : found->second.members) {
        if (const std::optional<std::int64_t> person = PersonOf(member)) {
            place->second.insert(*person);
        }
    }
    return place->second;
}

bool GroupIndex::IsMember(std::int64_t group, std::int64_t person) const {
    return PeopleOf(group).count(person) != 0;
}

std::vector<std::int64_t> GroupIndex::GroupsOf(std::int64_t person) const {
    std::vector<std::int64_t> groups;
    for (const auto& [id, group] : m_groups) {
        if (IsMember(id, person)) groups.push_back(id);
    }
    return groups;
}

}  // namespace orvo
