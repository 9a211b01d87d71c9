// Addresses that may be of the same person or company.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>
#include <unordered_map>

#include <unicode/uchar.h>

#include <desktop/import/Duplicates.h>
#include <platform/text/Collation.h>
#include <platform/text/Utf8.h>

namespace orvo::desktop {
namespace {

constexpr unsigned kFold = SORT_STRINGSORT | NORM_IGNORECASE | NORM_IGNORENONSPACE;
// Numbers are the same where this many of their last digits are, and what the shorter one has
// before these stands in the longer one, too. Shorter ones are compared as a whole.
constexpr std::size_t kLocalDigits = 7;

std::string_view WithoutBlanks(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

bool IsMail(std::string_view text) {
    return text.find('@') != std::string_view::npos;
}

std::string FoldedMail(std::string_view text) {
    std::string folded;
    text = WithoutBlanks(text);
    while (!text.empty()) {
        const CodePoint point = FirstCodePoint(text);
        text.remove_prefix(point.length);
        const UChar32 lower = u_foldCase(static_cast<UChar32>(point.value), U_FOLD_CASE_DEFAULT);
        AppendCodePoint(static_cast<char32_t>(lower), folded);
    }
    return folded;
}

// The digits of a number, in any script, from the first that isn't 0: what stands before the
// country or the area is written in many ways. Nothing where letters are by far the most of the
// text.
std::string SignificantDigits(std::string_view text) {
    // To be dialled only without the country before it.
    constexpr std::string_view kAtHome = "(0)";
    std::string digits;
    std::size_t letters = 0;
    while (!text.empty()) {
        if (text.starts_with(kAtHome)) text.remove_prefix(kAtHome.size());
        const CodePoint point = FirstCodePoint(text);
        text.remove_prefix(point.length);
        const auto value = static_cast<UChar32>(point.value);
        const int digit = u_charDigitValue(value);
        if (digit > 0 || (digit == 0 && !digits.empty())) digits += static_cast<char>('0' + digit);
        if (u_isalpha(value)) ++letters;
    }
    return letters > 2 * digits.size() ? std::string() : digits;
}

// A contact in the form in which it is compared.
struct Contact {
    std::string text;
    bool isMail = false;

    // Contacts that are the same have the same key.
    std::string Key() const {
        if (isMail || text.size() <= kLocalDigits) return text;
        return text.substr(text.size() - kLocalDigits);
    }
};

Contact ContactOf(std::string_view text) {
    const bool isMail = IsMail(text);
    return {isMail ? FoldedMail(text) : SignificantDigits(text), isMail};
}

bool IsSame(const Contact& left, const Contact& right) {
    if (left.isMail != right.isMail || left.text.empty()) return false;
    if (left.isMail || left.text == right.text) return left.text == right.text;
    const bool leftIsShorter = left.text.size() < right.text.size();
    const std::string& shorter = leftIsShorter ? left.text : right.text;
    const std::string& longer = leftIsShorter ? right.text : left.text;
    return shorter.size() >= kLocalDigits && longer.ends_with(shorter);
}

// Equal for names that are the same; empty where there is neither a name nor a company.
class NameKeys {
public:
    std::string KeyOf(const CAddressRecord& record) {
        const std::string_view name = WithoutBlanks(record.Utf8(AddressField::Name));
        const std::string_view first = WithoutBlanks(record.Utf8(AddressField::First));
        const std::string_view company = WithoutBlanks(record.Utf8(AddressField::Company));
        std::string key;
        if (!name.empty() || !first.empty()) {
            m_keys.Append(name, key);
            m_keys.Append(first, key);
        } else if (!company.empty()) {
            key = "company ";
            m_keys.Append(company, key);
        }
        return key;
    }

private:
    SortKeyMaker m_keys{kFold};
};

// Calls `take` for each address that counts.
template <class Take>
void ForEachAddress(CAddressTable& table, bool withPrivate, Take take) {
    constexpr auto kEnd = static_cast<long>(StoreStatus::End);
    CAddressRecord record(table);
    CAddressIterator iterator(table);
    for (long status = iterator.FindFirst(record); status != kEnd;
         status = iterator.FindNext(record)) {
        if (status != 0 && !iterator.IsAtDamage()) return;
        if (status == 0 && (withPrivate || !record.IsPrivate())) take(record);
    }
}

// Addresses of one name, of which each is compared with all before it.
class Namesakes {
public:
    // Returns:  the id of the first one that shares a contact with the record; 0 for none.
    std::int64_t Add(const CAddressRecord& record) {
        std::int64_t found = 0;
        std::vector<Contact> contacts;
        for (long slot = 1; slot <= kPhoneSlots; ++slot) {
            const std::string_view text = record.Utf8(PhoneField(slot));
            if (text.empty()) continue;
            Contact contact = ContactOf(text);
            if (contact.text.empty()) continue;
            const auto known = m_known.find(contact.Key());
            if (known != m_known.end()) {
                for (const Known& each : known->second) {
                    const bool isEarlier = found == 0 || each.id < found;
                    if (isEarlier && IsSame(each.contact, contact)) found = each.id;
                }
            }
            contacts.push_back(std::move(contact));
        }
        for (Contact& contact : contacts) {
            std::vector<Known>& same = m_known[contact.Key()];
            const auto isThat = [&](const Known& known) {
                return known.contact.text == contact.text;
            };
            // The first to have it stands for all.
            if (std::none_of(same.begin(), same.end(), isThat)) {
                same.push_back({std::move(contact), record.GetId()});
            }
        }
        return found;
    }

private:
    struct Known {
        Contact contact;
        std::int64_t id;
    };
    std::unordered_map<std::string, std::vector<Known>> m_known;
};

}  // namespace

bool IsSameContact(std::string_view left, std::string_view right) {
    return IsSame(ContactOf(left), ContactOf(right));
}

std::vector<DuplicatePair> FindDuplicates(CAddressTable& table, bool withPrivate,
                                          const IdRange& range) {
    NameKeys keys;
    std::unordered_map<std::string, std::pair<std::size_t, bool>> names;
    ForEachAddress(table, withPrivate, [&](const CAddressRecord& record) {
        const std::string key = keys.KeyOf(record);
        if (key.empty()) return;
        auto& [count, isInRange] = names[key];
        ++count;
        isInRange = isInRange || range.Holds(record.GetId());
    });
    std::erase_if(names,
                  [](const auto& name) { return name.second.first < 2 || !name.second.second; });
    std::unordered_map<std::string, Namesakes> groups;
    std::vector<DuplicatePair> pairs;
    if (names.empty()) return pairs;
    ForEachAddress(table, withPrivate, [&](const CAddressRecord& record) {
        const std::string key = keys.KeyOf(record);
        if (!names.contains(key)) return;
        const std::int64_t earlier = groups[key].Add(record);
        if (earlier != 0 && range.Holds(record.GetId())) {
            pairs.push_back({earlier, record.GetId()});
        }
    });
    return pairs;
}

}  // namespace orvo::desktop
