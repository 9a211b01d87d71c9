// CString: building, cutting and searching 8-bit text in the system's code page.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdarg>
#include <cstdio>

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <platform/text/CString.h>
#include <platform/text/CodePage.h>
#include <platform/text/Utf8.h>

namespace orvo {

namespace {

constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";
constexpr std::size_t kNowhere = std::string_view::npos;

std::string_view ViewOf(const char* text) {
    return text ? std::string_view(text) : std::string_view();
}

int Position(std::size_t position) {
    return position == kNowhere ? -1 : static_cast<int>(position);
}

bool IsAscii(char byte) {
    return (static_cast<unsigned char>(byte) & 0x80) == 0;
}
bool IsAscii(std::string_view text) {
    return AsciiLength(text) == text.size();
}

// False where the byte is the trail byte of a double-byte character. Lead bytes are trail bytes
// too, so the run of them before the byte decides by its length: the first of a run begins a
// character.
bool BeginsCharacter(const CodePage& page, std::string_view text, std::size_t position) {
    if (page.Number() != kJapaneseCodePage) return true;
    std::size_t runBegin = position;
    while (runBegin > 0 && page.IsLeadByte(static_cast<unsigned char>(text[runBegin - 1])))
        --runBegin;
    const bool precededByLead = (position - runBegin) % 2 == 1;
    return !precededByLead || page.CharacterLength(text.substr(position - 1)) == 1;
}

// `searched` is a character or a text.
template <class Searched>
std::size_t FindFrom(std::string_view text, Searched searched, std::size_t start) {
    const CodePage& page = CodePage::System();
    std::size_t found = text.find(searched, start);
    while (found != kNowhere && !BeginsCharacter(page, text, found))
        found = text.find(searched, found + 1);
    return found;
}

bool SetHolds(const CodePage& page, std::string_view set, std::string_view character) {
    while (!set.empty()) {
        const std::string_view member = set.substr(0, page.CharacterLength(set));
        if (member == character) return true;
        set.remove_prefix(member.size());
    }
    return false;
}

// The length of the longest start whose characters all lie in the set (`inSet`) or all outside it.
std::size_t SpanLength(std::string_view text, std::string_view set, bool inSet) {
    const CodePage& page = CodePage::System();
    std::size_t length = 0;
    while (length < text.size()) {
        const std::string_view rest = text.substr(length);
        const std::string_view character = rest.substr(0, page.CharacterLength(rest));
        if (SetHolds(page, set, character) != inSet) break;
        length += character.size();
    }
    return length;
}

// The bytes of the character after its case was mapped. Bytes that stand for no character stay, and
// so does a character whose counterpart the code page lacks.
template <class CaseMap>
std::string MapCharacter(const CodePage& page, std::string_view character, CaseMap mapCase) {
    std::u16string utf16;
    page.ToUtf16(character, utf16);
    std::size_t next = 0;
    UChar32 codePoint = 0;
    U16_NEXT(utf16.data(), next, utf16.size(), codePoint);
    const UChar32 mapped = mapCase(codePoint);
    if (mapped == codePoint) return std::string(character);

    std::u16string mappedUtf16(2, u'\0');
    std::size_t units = 0;
    U16_APPEND_UNSAFE(mappedUtf16.data(), units, mapped);
    mappedUtf16.resize(units);
    std::string bytes;
    page.FromUtf16(mappedUtf16, bytes);
    return bytes == "?" ? std::string(character) : bytes;
}

template <class CaseMap>
std::string MapText(std::string_view text, CaseMap mapCase) {
    const CodePage& page = CodePage::System();
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const std::string_view character = text.substr(0, page.CharacterLength(text));
        if (character.size() == 1 && IsAscii(character[0]))
            result += static_cast<char>(mapCase(character[0]));
        else
            result += MapCharacter(page, character, mapCase);
        text.remove_prefix(character.size());
    }
    return result;
}

UChar32 FoldCase(UChar32 codePoint) {
    return u_foldCase(codePoint, U_FOLD_CASE_DEFAULT);
}

int AsciiLower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? letter + 0x20 : letter;
}

int CompareAsciiNoCase(std::string_view left, std::string_view right) {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        const int difference = AsciiLower(left[i]) - AsciiLower(right[i]);
        if (difference != 0) return difference;
    }
    return left.size() < right.size() ? -1 : left.size() > right.size();
}

}  // namespace

CString::CString(const char* text) : m_text(ViewOf(text)) {}

CString::CString(const char* text, int length) {
    if (text && length > 0) m_text.assign(text, static_cast<std::size_t>(length));
}

CString::CString(char character, int repeat)
    : m_text(static_cast<std::size_t>(std::max(repeat, 0)), character) {}

CString& CString::operator=(const char* text) {
    m_text.assign(ViewOf(text));
    return *this;
}

CString& CString::operator=(std::string_view text) {
    m_text.assign(text);
    return *this;
}

CString& CString::operator=(char character) {
    m_text.assign(1, character);
    return *this;
}

char CString::GetAt(int position) const {
    return position >= 0 && position < GetLength() ? m_text[static_cast<std::size_t>(position)]
                                                   : '\0';
}

void CString::SetAt(int position, char character) {
    if (position >= 0 && position < GetLength())
        m_text[static_cast<std::size_t>(position)] = character;
}

CString& CString::operator+=(const CString& other) {
    m_text += other.m_text;
    return *this;
}

CString& CString::operator+=(const char* text) {
    m_text += ViewOf(text);
    return *this;
}

CString& CString::operator+=(char character) {
    m_text += character;
    return *this;
}

int CString::Compare(const CString& other) const {
    return m_text.compare(other.m_text);
}

int CString::CompareNoCase(const CString& other) const {
    if (IsAscii(m_text) && IsAscii(other.m_text)) return CompareAsciiNoCase(m_text, other.m_text);
    return MapText(m_text, FoldCase).compare(MapText(other.m_text, FoldCase));
}

CString CString::Left(int count) const {
    return Mid(0, count);
}

CString CString::Right(int count) const {
    return Mid(GetLength() - std::clamp(count, 0, GetLength()), count);
}

CString CString::Mid(int first) const {
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const {
    if (first < 0 || first >= GetLength() || count <= 0) return {};
    return View().substr(static_cast<std::size_t>(first), static_cast<std::size_t>(count));
}

CString CString::SpanIncluding(const char* set) const {
    return View().substr(0, SpanLength(m_text, ViewOf(set), true));
}

CString CString::SpanExcluding(const char* set) const {
    return View().substr(0, SpanLength(m_text, ViewOf(set), false));
}

int CString::Find(char character, int start) const {
    if (start < 0) return -1;
    return Position(FindFrom(m_text, character, static_cast<std::size_t>(start)));
}

int CString::Find(const char* text, int start) const {
    if (start < 0) return -1;
    return Position(FindFrom(m_text, ViewOf(text), static_cast<std::size_t>(start)));
}

int CString::ReverseFind(char character) const {
    const CodePage& page = CodePage::System();
    std::size_t found = m_text.rfind(character);
    while (found != kNowhere && !BeginsCharacter(page, m_text, found))
        found = found == 0 ? kNowhere : m_text.rfind(character, found - 1);
    return Position(found);
}

int CString::FindOneOf(const char* set) const {
    const std::size_t length = SpanLength(m_text, ViewOf(set), false);
    return length < m_text.size() ? static_cast<int>(length) : -1;
}

int CString::Replace(char from, char to) {
    if (from == to) return 0;
    int changes = 0;
    std::string result = m_text;
    for (std::size_t at = FindFrom(m_text, from, 0); at != kNowhere;
         at = FindFrom(m_text, from, at + 1)) {
        result[at] = to;
        ++changes;
    }
    m_text = std::move(result);
    return changes;
}

int CString::Replace(const char* from, const char* to) {
    const std::string_view searched = ViewOf(from);
    if (searched.empty()) return 0;
    int changes = 0;
    std::string result;
    std::size_t copied = 0;
    for (std::size_t at = FindFrom(m_text, searched, 0); at != kNowhere;
         at = FindFrom(m_text, searched, copied)) {
        result.append(m_text, copied, at - copied).append(ViewOf(to));
        copied = at + searched.size();
        ++changes;
    }
    if (changes == 0) return 0;
    m_text = result.append(m_text, copied);
    return changes;
}

int CString::Remove(char character) {
    const char text[] = {character, '\0'};
    if (character != '\0') return Replace(text, "");
    return static_cast<int>(std::erase(m_text, '\0'));
}

int CString::Insert(int position, char character) {
    const int place = std::clamp(position, 0, GetLength());
    m_text.insert(static_cast<std::size_t>(place), 1, character);
    return GetLength();
}

int CString::Insert(int position, const char* text) {
    const int place = std::clamp(position, 0, GetLength());
    m_text.insert(static_cast<std::size_t>(place), ViewOf(text));
    return GetLength();
}

int CString::Delete(int position, int count) {
    if (position >= 0 && position < GetLength() && count > 0)
        m_text.erase(static_cast<std::size_t>(position), static_cast<std::size_t>(count));
    return GetLength();
}

void CString::MakeUpper() {
    m_text = MapText(m_text, u_toupper);
}

void CString::MakeLower() {
    m_text = MapText(m_text, u_tolower);
}

void CString::TrimLeft() {
    m_text.erase(0, m_text.find_first_not_of(kWhiteSpace));
}

void CString::TrimLeft(const char* set) {
    m_text.erase(0, SpanLength(m_text, ViewOf(set), true));
}

void CString::TrimRight() {
    m_text.erase(m_text.find_last_not_of(kWhiteSpace) + 1);
}

// Double-byte text can only be read forwards, so the end is found by the spans from the start.
void CString::TrimRight(const char* set) {
    const std::string_view members = ViewOf(set);
    std::size_t position = 0;
    std::size_t end = 0;
    while (position < m_text.size()) {
        end = position + SpanLength(View().substr(position), members, false);
        position = end + SpanLength(View().substr(end), members, true);
    }
    m_text.erase(end);
}

void CString::Format(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    va_list measured;
    va_copy(measured, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measured);
    va_end(measured);

    if (length >= 0) {
        std::string result(static_cast<std::size_t>(length), '\0');
        std::vsnprintf(result.data(), result.size() + 1, format, arguments);
        m_text = std::move(result);
    }
    va_end(arguments);
}

CString operator+(const CString& left, const CString& right) {
    CString sum(left);
    return sum += right;
}

CString operator+(const CString& left, const char* right) {
    CString sum(left);
    return sum += right;
}

CString operator+(const char* left, const CString& right) {
    CString sum(left);
    return sum += right;
}

CString operator+(const CString& left, char right) {
    CString sum(left);
    return sum += right;
}

}  // namespace orvo
