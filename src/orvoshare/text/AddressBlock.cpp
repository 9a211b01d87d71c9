// The lines of a postal address, in the form of the language.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include <contracts/TextServices.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/text/AddressBlock.h>
#include <orvoshare/text/NameText.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemLocale.h>

namespace orvo {
namespace {

enum Field { Address, City, State, Zip, Country };
using Fields = std::array<CString, 5>;

// A field of a line, and what parts it from the one before it on that line.
struct Part {
    Field field;
    const char* separator = "";
};

enum class Tabs { Stay, BecomeBlanks };

struct Line {
    std::span<const Part> parts;
    Tabs tabs = Tabs::Stay;
};

// Where one of the fields in `takesApart` has several lines, every field stands by itself, in the
// order `apart`.
struct Form {
    std::span<const Line> lines;
    std::span<const Field> takesApart;
    std::span<const Field> apart;
};

constexpr Part kAddress[] = {{Address}};
constexpr Part kZip[] = {{Zip}};
constexpr Part kState[] = {{State}};
constexpr Part kCountry[] = {{Country}};
constexpr Part kCityStateZip[] = {{City}, {State, ", "}, {Zip, "  "}};
constexpr Part kStateCity[] = {{State}, {City, "  "}};
constexpr Part kZipCity[] = {{Zip}, {City, " "}};

constexpr Line kEnglishLines[] = {{kAddress}, {kCityStateZip, Tabs::BecomeBlanks}, {kCountry}};
constexpr Line kJapaneseLines[] = {{kZip}, {kStateCity}, {kAddress}, {kCountry}};
constexpr Line kGermanLines[] = {{kAddress}, {kZipCity}, {kState, Tabs::BecomeBlanks}, {kCountry}};

constexpr Field kCityStateOrZip[] = {City, State, Zip};
constexpr Field kCityOrState[] = {City, State};
constexpr Field kEnglishApart[] = {Address, City, State, Zip, Country};
constexpr Field kJapaneseApart[] = {Zip, State, City, Address, Country};
constexpr Field kGermanApart[] = {Address, Zip, City, State, Country};

constexpr Form kEnglish{kEnglishLines, kCityStateOrZip, kEnglishApart};
constexpr Form kJapanese{kJapaneseLines, kCityOrState, kJapaneseApart};
constexpr Form kGerman{kGermanLines, kCityStateOrZip, kGermanApart};

// The line ends in a field that goes on nowhere would break the line that it shares.
CString FirstLineOf(CString field) {
    CString line;
    GetFirstLine(field, line);
    return line;
}

CString Joined(std::span<const Part> parts, const Fields& fields) {
    CString line;
    for (const Part& part : parts) {
        const CString text = FirstLineOf(fields[part.field]);
        if (text.IsEmpty()) continue;
        if (!line.IsEmpty()) line += part.separator;
        line += text;
    }
    return line;
}

void AddLine(const Line& line, const Fields& fields, CStringArray& lines) {
    const bool isShared = line.parts.size() > 1 || line.tabs == Tabs::BecomeBlanks;
    if (!isShared) return AppendLines(fields[line.parts.front().field], lines);
    CString text = Joined(line.parts, fields);
    if (line.tabs == Tabs::BecomeBlanks) RemoveTabs(text);
    if (!text.IsEmpty()) lines.Add(text);
}

void Lay(const Form& form, const Fields& fields, CStringArray& lines) {
    const bool isApart = std::any_of(form.takesApart.begin(), form.takesApart.end(),
                                     [&](Field field) { return IsMultiline(fields[field]) != 0; });
    if (isApart) {
        for (const Field field : form.apart) AppendLines(fields[field], lines);
        return;
    }
    for (const Line& line : form.lines) AddLine(line, fields, lines);
}

// The languages in which the zip code stands before the city.
constexpr bool HasZipFirst(int languageCode) {
    return languageCode == 0x40 || languageCode == 0x20;
}

const Form& SystemForm(const CString& text) {
    if (HasZipFirst(OrvoShareLanguageCode())) return kGerman;
    return GetACP() == kJapaneseCodePage && is_kanji_or_kana_string(text) ? kJapanese : kEnglish;
}

// Takes the texts out of the arguments.
Fields TakeFields(CString& address, CString& city, CString& state, CString& zipCode,
                  CString& country) {
    return {std::move(address), std::move(city), std::move(state), std::move(zipCode),
            std::move(country)};
}

}  // namespace

void FormatAddress(CStringArray& lines, CString address, CString city, CString state,
                   CString zipCode, CString country) {
    const CString text = address + city + state + zipCode + country;
    if (text.IsEmpty()) return;
    lines.RemoveAll();
    Lay(SystemForm(text), TakeFields(address, city, state, zipCode, country), lines);
}

void FormatAddressEnglish(CStringArray& lines, CString address, CString city, CString state,
                          CString zipCode, CString country) {
    Lay(kEnglish, TakeFields(address, city, state, zipCode, country), lines);
}

void FormatAddressJapanese(CStringArray& lines, CString address, CString city, CString state,
                           CString zipCode, CString country) {
    Lay(kJapanese, TakeFields(address, city, state, zipCode, country), lines);
}

void FormatAddressGerman(CStringArray& lines, CString address, CString city, CString state,
                         CString zipCode, CString country) {
    Lay(kGerman, TakeFields(address, city, state, zipCode, country), lines);
}

}  // namespace orvo
