// Reading a date that a user has typed.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>

#include <unicode/uchar.h>

#include <libraries/odcmn/DateReader.h>
#include <libraries/odcmn/Era.h>
#include <platform/text/Utf8.h>

namespace orvo {
namespace {

constexpr std::u32string_view kDividers = U" /-.";
constexpr std::size_t kMostDigits = 4;
constexpr int kLastEraYear = 99;

struct FieldSign {
    char32_t sign;  // stands after the number
    char field;
};
constexpr FieldSign kFieldSigns[] = {{U'年', 'y'}, {U'月', 'M'}, {U'日', 'd'},
                                     {U'년', 'y'}, {U'월', 'M'}, {U'일', 'd'}};

struct Number {
    int value;
    char field;  // 'y', 'M', 'd'; 0 where only its place decides
};

bool IsBlank(char32_t c) {
    return c == U' ';
}

// The digits of every script, -1 for what is no digit.
int DigitValue(char32_t c) {
    return u_charDigitValue(static_cast<UChar32>(c));
}

bool IsDigit(char32_t c) {
    return DigitValue(c) >= 0;
}

char32_t AsciiUpper(char32_t c) {
    return c >= U'a' && c <= U'z' ? c - U'a' + U'A' : c;
}

// Full-width signs as plain ones, every blank as a blank, and no marks of the writing direction.
std::u32string PlainCharacters(std::string_view utf8) {
    std::u32string plain;
    while (!utf8.empty()) {
        const CodePoint point = FirstCodePoint(utf8);
        utf8.remove_prefix(point.length);
        if (point.value >= U'\uFF01' && point.value <= U'\uFF5E') {
            plain += point.value - U'\uFF01' + U'!';
        } else if (u_isblank(static_cast<UChar32>(point.value))) {
            plain += U' ';
        } else if (!u_hasBinaryProperty(static_cast<UChar32>(point.value), UCHAR_BIDI_CONTROL)) {
            plain += point.value;
        }
    }
    return plain;
}

std::u32string_view Trimmed(std::u32string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

// Takes a text apart into its numbers and its era.
class DateReader {
public:
    DateReader(const std::vector<PictureItem>& picture, std::string_view text, char separator)
        : m_text(PlainCharacters(text)), m_dividers(kDividers) {
        for (const PictureItem& item : picture) {
            if (item.letter == 0) m_literals.push_back(PlainCharacters(item.text));
        }
        m_beginsWithText = !picture.empty() && picture.front().letter == 0;
        m_endsWithText = !picture.empty() && picture.back().letter == 0;
        for (const std::u32string& literal : m_literals) m_dividers += literal;
        // A byte above ASCII is only a part of a character, which the picture holds whole.
        const unsigned char byte = static_cast<unsigned char>(separator);
        if (byte < 0x80 && u_isgraph(byte) && !u_isalnum(byte)) m_dividers += byte;
    }

    // False where something else than numbers, eras and dividers stands in the text.
    bool Read() {
        if (!IsEdge(Divider(), m_beginsWithText ? m_literals.front() : std::u32string())) {
            return false;
        }
        while (m_position < m_text.size()) {
            const bool isRead = ReadEra() || ReadNumber();
            if (!isRead) return false;
            const std::u32string_view divider = Divider();
            const bool isLast = m_position == m_text.size();
            if (isLast && !IsEdge(divider, m_endsWithText ? m_literals.back() : std::u32string())) {
                return false;
            }
            if (!isLast && !IsBetween(divider)) return false;
        }
        return true;
    }

    const std::vector<Number>& Numbers() const { return m_numbers; }
    const Era* TypedEra() const { return m_era; }

private:
    char32_t Next() const { return m_position < m_text.size() ? m_text[m_position] : U'\0'; }

    std::u32string_view Divider() {
        const std::size_t begin = m_position;
        m_position = std::min(m_text.find_first_not_of(m_dividers, begin), m_text.size());
        return std::u32string_view(m_text).substr(begin, m_position - begin);
    }

    static bool IsEdge(std::u32string_view divider, std::u32string_view literal) {
        const std::u32string_view core = Trimmed(divider);
        return core.empty() || core == Trimmed(literal);
    }

    bool IsBetween(std::u32string_view divider) const {
        if (Trimmed(divider).size() <= 1) return true;
        return std::find(m_literals.begin(), m_literals.end(), divider) != m_literals.end();
    }

    // The era that is named next, and the length of its name; a letter needs its number.
    std::pair<const Era*, std::size_t> NextEra() const {
        const std::u32string_view rest = std::u32string_view(m_text).substr(m_position);
        for (const Era& era : Eras()) {
            if (rest.starts_with(era.name)) return {&era, era.name.size()};
            if (rest.starts_with(era.name.front())) return {&era, 1};
            const bool isLetter = AsciiUpper(rest.front()) == era.letter;
            if (isLetter && rest.size() > 1 && IsDigit(rest[1])) return {&era, 1};
        }
        return {nullptr, 0};
    }

    bool ReadEra() {
        const auto [era, length] = NextEra();
        if (era == nullptr || m_era != nullptr) return false;
        m_era = era;
        m_isAfterEra = true;
        m_position += length;
        return true;
    }

    bool ReadNumber() {
        Number number{0, m_isAfterEra ? 'y' : '\0'};
        if (!ReadDigits(number.value)) return false;
        for (const FieldSign& sign : kFieldSigns) {
            if (Next() != sign.sign) continue;
            if (m_isAfterEra && sign.field != 'y') return false;
            number.field = sign.field;
            ++m_position;
            break;
        }
        m_isAfterEra = false;
        m_numbers.push_back(number);
        return true;
    }

    bool ReadDigits(int& value) {
        if (m_isAfterEra && Next() == U'元') {
            value = 1;
            ++m_position;
            return true;
        }
        std::size_t digits = 0;
        for (; IsDigit(Next()); ++m_position, ++digits) {
            if (digits == kMostDigits) return false;
            value = value * 10 + DigitValue(Next());
        }
        return digits > 0;
    }

    std::u32string m_text;
    std::u32string m_dividers;
    std::vector<std::u32string> m_literals;
    bool m_beginsWithText = false;
    bool m_endsWithText = false;
    std::size_t m_position = 0;
    std::vector<Number> m_numbers;
    const Era* m_era = nullptr;
    bool m_isAfterEra = false;
};

void Erase(std::string& fields, char field) {
    if (const std::size_t place = fields.find(field); place != std::string::npos) {
        fields.erase(place, 1);
    }
}

std::optional<int>& FieldOf(TypedDate& date, char field) {
    return field == 'y' ? date.year : field == 'M' ? date.month : date.day;
}

// The letters of the fields in the order of the picture.
std::string FieldOrder(const std::vector<PictureItem>& picture) {
    std::string order;
    for (const PictureItem& item : picture) {
        if (item.letter != 0 && item.letter != 'g') order += item.letter;
    }
    return order;
}

// Gives each number its field: by its sign, else by the order of the picture, from which the year
// drops out where there are too few numbers. False where the numbers don't match the fields.
bool Assign(const std::vector<Number>& numbers, std::string order, TypedDate& date) {
    std::vector<int> byPlace;
    for (const Number& number : numbers) {
        if (number.field == 0) {
            byPlace.push_back(number.value);
            continue;
        }
        std::optional<int>& field = FieldOf(date, number.field);
        if (field) return false;
        field = number.value;
        Erase(order, number.field);
    }
    if (byPlace.empty()) return !numbers.empty();
    if (byPlace.size() < order.size()) Erase(order, 'y');
    if (byPlace.size() != order.size()) return false;
    for (std::size_t i = 0; i < order.size(); ++i) FieldOf(date, order[i]) = byPlace[i];
    return true;
}

// Turns a year of an era into a Western one. False for an era without a year, and for a year that
// it can't have.
bool ApplyEra(const Era* typed, bool picturesEra, const CivilTime& today, TypedDate& date) {
    if (!date.year) return typed == nullptr;
    const bool countsInEra = typed != nullptr || (picturesEra && *date.year <= kLastEraYear);
    if (!countsInEra) return true;

    const Era* era = typed != nullptr ? typed : EraOfDay(today);
    if (*date.year < 1 || *date.year > kLastEraYear || era == nullptr) return false;
    *date.year += era->firstDay.year - 1;
    return true;
}

// A year of two digits is of a century in which every fourth year is a leap year; without a year
// there may be a 29th of February, without a month a 31st.
bool IsDate(const TypedDate& date) {
    constexpr int kLeapYear = 2000;
    const int year = date.year.value_or(kLeapYear);
    const int month = date.month.value_or(1);
    const int day = date.day.value_or(1);
    const CivilTime civil{year < 100 ? year + kLeapYear : year, month, day};
    return month >= 1 && month <= 12 &&
           CivilOfDays(DaysOfCivil(civil.year, civil.month, civil.day)) == civil;
}

}  // namespace

std::optional<TypedDate> ReadDate(const std::vector<PictureItem>& picture, std::string_view text,
                                  char separator, const CivilTime& today) {
    DateReader reader(picture, text, separator);
    TypedDate date;
    if (!reader.Read()) return std::nullopt;
    if (!Assign(reader.Numbers(), FieldOrder(picture), date)) return std::nullopt;
    if (!ApplyEra(reader.TypedEra(), HasEra(picture), today, date)) return std::nullopt;
    if (!IsDate(date)) return std::nullopt;
    return date;
}

}  // namespace orvo
