// The key of a record, and the typed text of a lookup held against the start of many keys.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <span>

#include <contracts/TextServices.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/addressviews/LookupKey.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemLocale.h>
#include <platform/text/Utf8.h>

namespace orvo {
namespace {

using enum AddressField;

// A key's main field, and the fields of which the first filled one stands second.
struct KeyRule {
    AddressField main;
    std::span<const AddressField> second;
};

constexpr AddressField kFirst[]{First};
constexpr AddressField kNameElseFirst[]{Name, First};
constexpr AddressField kFirstYomi[]{FirstYomi};
constexpr AddressField kNameElseFirstYomi[]{NameYomi, FirstYomi};

// The first rule whose main field is filled makes the key.
constexpr KeyRule kPlainByName[]{{Name, kFirst}, {First, {}}, {Company, {}}};
constexpr KeyRule kPlainByCompany[]{{Company, kNameElseFirst}, {Name, kFirst}, {First, {}}};
constexpr KeyRule kReadingByName[]{{NameYomi, kFirstYomi}, {Name, kFirstYomi},
                                   {FirstYomi, {}},        {First, {}},
                                   {CompanyYomi, {}},      {Company, {}}};
constexpr KeyRule kReadingByCompany[]{{CompanyYomi, kNameElseFirstYomi},
                                      {Company, kNameElseFirstYomi},
                                      {NameYomi, kFirstYomi},
                                      {Name, kFirstYomi},
                                      {FirstYomi, {}},
                                      {First, {}}};

std::span<const KeyRule> RulesOf(KeyFields fields, long listBy) {
    const bool byCompany = listBy == kListByCompany;
    if (fields == KeyFields::Reading) {
        return byCompany ? std::span<const KeyRule>(kReadingByCompany) : kReadingByName;
    }
    return byCompany ? std::span<const KeyRule>(kPlainByCompany) : kPlainByName;
}

void TakeText(const CAddressRecord& record, AddressField field, CString& text) {
    record.Get(field, text);
    RemoveLeadingSpacesEx(text);
}

// What RemoveLeadingSpacesEx leaves, but for its cut to 256 bytes.
std::string_view ShownPart(std::string_view utf8) {
    const std::size_t begin = utf8.find_first_not_of(" \t\r\n");
    if (begin == std::string_view::npos) return {};
    utf8.remove_prefix(begin);
    return utf8.substr(0, utf8.find_first_of("\r\t"));
}

int CountCharacters(std::string_view text) {
    const CodePage& page = CodePage::System();
    int count = 0;
    for (; !text.empty(); ++count) text.remove_prefix(page.CharacterLength(text));
    return count;
}

// The bytes of the first characters of a text.
int LengthOf(int characters, std::string_view text) {
    const CodePage& page = CodePage::System();
    std::size_t length = 0;
    for (; characters > 0 && length < text.size(); --characters) {
        length += page.CharacterLength(text.substr(length));
    }
    return static_cast<int>(length);
}

bool BeginsCharacter(char byte) {
    constexpr unsigned kContinuationMask = 0xC0;
    constexpr unsigned kContinuation = 0x80;
    return (static_cast<unsigned char>(byte) & kContinuationMask) != kContinuation;
}

}  // namespace

KeyFields SystemKeyFields() {
    return GetACP() == kJapaneseCodePage ? KeyFields::Reading : KeyFields::Plain;
}

void MakeRecordKey(const CAddressRecord* record, KeyFields fields, long listBy, CString& key) {
    key.Empty();
    if (!record) return;
    CString main;
    CString second;
    for (const KeyRule& rule : RulesOf(fields, listBy)) {
        TakeText(*record, rule.main, main);
        if (main.IsEmpty()) continue;
        for (const AddressField field : rule.second) {
            TakeText(*record, field, second);
            if (!second.IsEmpty()) break;
        }
        key = FullName(second, main, true);
        return;
    }
}

void FetchAhead(std::span<const CAddressRecord* const> records) {
    for (const CAddressRecord* record : records) __builtin_prefetch(record);
    for (const CAddressRecord* record : records) {
        if (record) __builtin_prefetch(record->Utf8(Name).data());
    }
}

LookupKey::LookupKey(CString typed, long listBy, KeyMatch match)
    : m_typed(std::move(typed)), m_listBy(listBy), m_flags(static_cast<unsigned>(match)) {
    ToFullwidthAndHira(m_typed);
    const bool isAscii = AsciiLength(m_typed.View()) == m_typed.View().size();
    if (isAscii) m_weights = &AsciiWeightsFor(m_flags);
    m_last = m_typed;
    m_typedCharacters = CountCharacters(m_typed.View());
    // What FullName puts between the parts is the locale's.
    const CString sample = FullName("f", "n", true);
    m_hasSeparator = sample.View().starts_with('n') && sample.View().ends_with('f');
    m_separator = m_hasSeparator ? sample.View().substr(1, sample.View().size() - 2) : "";
}

// A key has two parts of 256 bytes at most, and what the locale puts between them.
bool LookupKey::IsLongerThanAnyKey() const {
    constexpr int kNoKeyHas = 1000;
    return m_typedCharacters > kNoKeyHas;
}

LookupKey::Parts LookupKey::PartsOf(const CAddressRecord& record, KeyFields fields) const {
    Parts parts;
    for (const KeyRule& rule : RulesOf(fields, m_listBy)) {
        parts.main = ShownPart(record.Utf8(rule.main));
        if (parts.main.empty()) continue;
        for (const AddressField field : rule.second) {
            parts.second = ShownPart(record.Utf8(field));
            if (!parts.second.empty()) break;
        }
        break;
    }
    return parts;
}

bool LookupKey::IsLiteral(const Parts& parts) const {
    constexpr std::size_t kNeverCut = 256;
    return !m_hasSeparator || parts.main.size() > kNeverCut || parts.second.size() > kNeverCut;
}

// Each character is at least one byte of the page, whatever folding makes of it; the one more may
// be a sound mark that belongs to the last.
void LookupKey::TakeStart(const Parts& parts) {
    m_start = parts.main;
    if (!parts.second.empty()) {
        m_start += m_separator;
        m_start += parts.second;
    }
    std::size_t characters = m_typed.View().size() + 2;
    const auto end = std::find_if(m_start.begin(), m_start.end(), [&](char byte) {
        return BeginsCharacter(byte) && --characters == 0;
    });
    m_start.erase(end, m_start.end());
}

// False where the texts aren't all of characters with a weight, as far as that matters.
bool LookupKey::CompareAsAscii(int& result) const {
    const auto weightAt = [&](std::string_view text, std::size_t position) {
        const auto code = static_cast<unsigned char>(text[position]);
        return code < m_weights->size() ? (*m_weights)[code] : std::uint8_t{0};
    };
    const std::string_view typed = m_typed.View();
    const std::string_view start = std::string_view(m_start).substr(0, typed.size());
    for (std::size_t i = 0; i < typed.size(); ++i) {
        const std::uint8_t ours = weightAt(typed, i);
        if (ours == 0) return false;
        if (i == start.size()) {
            result = 1;
            return true;
        }
        const std::uint8_t theirs = weightAt(start, i);
        if (theirs == 0) return false;
        if (ours == theirs) continue;
        // A mark that follows might belong to the letter.
        result = ours < theirs ? -1 : 1;
        return i + 1 >= start.size() || weightAt(start, i + 1) != 0;
    }
    result = 0;
    return true;
}

void LookupKey::CutItem(KeyCut cut) {
    if (GetACP() == kUtf8CodePage) {
        LeftAndValidateDec(m_item, LengthOf(m_typedCharacters, m_item.View()));
    } else if (cut == KeyCut::Inc) {
        LeftAndValidateInc(m_item, m_typed.GetLength());
    } else {
        LeftAndValidateDec(m_item, m_typed.GetLength());
    }
}

int LookupKey::CompareItem(KeyCut cut) {
    ToFullwidthAndHira(m_item);
    CutItem(cut);
    if (m_item == m_last) return m_lastResult;
    m_last = m_item;
    m_lastResult = CompareStringA(LOCALE_SYSTEM_DEFAULT, m_flags, m_typed, m_typed.GetLength(),
                                  m_item, m_item.GetLength()) -
                   CSTR_EQUAL;
    return m_lastResult;
}

int LookupKey::Compare(const CAddressRecord* record, KeyFields fields, KeyCut cut) {
    const Parts parts = record ? PartsOf(*record, fields) : Parts();
    if (IsLiteral(parts)) {
        MakeRecordKey(record, fields, m_listBy, m_item);
        return CompareItem(cut);
    }
    TakeStart(parts);
    int result = 0;
    if (m_weights && CompareAsAscii(result)) return result;
    CodePage::System().FromUtf8(m_start, m_item.Bytes());
    return CompareItem(cut);
}

}  // namespace orvo
