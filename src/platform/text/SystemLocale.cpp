// The locale of the system: language, country and code page.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <optional>

#include <unicode/ucal.h>
#include <unicode/uloc.h>

#include <platform/text/CodePage.h>
#include <platform/text/SystemLocale.h>

namespace orvo {

namespace {

struct Locale {
    std::string tag;
    std::string icuName;
    std::string language;
    const CodePage* page;
};

constexpr std::string_view kFallbackTag = "en-US";

std::optional<Locale> MakeLocale(std::string_view tag, unsigned codePage) {
    const std::string whole(tag);
    std::array<char, 512> icuName{};
    int32_t parsed = 0;
    UErrorCode status = U_ZERO_ERROR;
    uloc_forLanguageTag(whole.c_str(), icuName.data(), icuName.size(), &parsed, &status);
    if (U_FAILURE(status) || status == U_STRING_NOT_TERMINATED_WARNING) return std::nullopt;
    if (static_cast<std::size_t>(parsed) != whole.size()) return std::nullopt;

    std::array<char, ULOC_LANG_CAPACITY> language{};
    uloc_getLanguage(icuName.data(), language.data(), language.size(), &status);
    if (U_FAILURE(status) || language[0] == '\0') return std::nullopt;

    const bool japanese = std::string_view(language.data()) == "ja";
    const unsigned own = japanese ? kJapaneseCodePage : kUtf8CodePage;
    const CodePage* page = CodePage::Find(codePage == 0 ? own : codePage);
    if (!page) return std::nullopt;
    return Locale{whole, icuName.data(), language.data(), page};
}

// The environment writes "language_COUNTRY.charset@modifier".
std::string TagOfEnvironment() {
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(name);
        if (!value || *value == '\0') continue;
        std::string tag = std::string(value).substr(0, std::strcspn(value, ".@"));
        std::replace(tag.begin(), tag.end(), '_', '-');
        return tag == "C" || tag == "POSIX" ? std::string(kFallbackTag) : tag;
    }
    return std::string(kFallbackTag);
}

Locale LocaleOfEnvironment() {
    if (const auto locale = MakeLocale(TagOfEnvironment(), 0)) return *locale;
    return *MakeLocale(kFallbackTag, 0);
}

struct State {
    Locale locale = LocaleOfEnvironment();
    unsigned generation = 0;
};

State& Current() {
    static State state;
    return state;
}

void Change(Locale locale) {
    Current().locale = std::move(locale);
    ++Current().generation;
}

struct CalendarNumber {
    std::string_view calendar;  // ICU's name, or its start where a calendar has variants
    std::string_view number;
};
constexpr CalendarNumber kCalendars[] = {
    {"japanese", "3"}, {"roc", "4"},      {"dangi", "5"},
    {"islamic", "6"},  {"buddhist", "7"}, {"hebrew", "8"},
};
constexpr std::string_view kGregorian = "1";

std::string_view CalendarNumberOf(const std::string& icuName) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUCalendarPointer calendar(
        ucal_open(nullptr, 0, icuName.c_str(), UCAL_DEFAULT, &status));
    const char* type = ucal_getType(calendar.getAlias(), &status);
    if (U_FAILURE(status)) return kGregorian;
    for (const CalendarNumber& row : kCalendars)
        if (std::string_view(type).starts_with(row.calendar)) return row.number;
    return kGregorian;
}

}  // namespace

const std::string& SystemLocale::Tag() {
    return Current().locale.tag;
}

const std::string& SystemLocale::Language() {
    return Current().locale.language;
}

bool SystemLocale::Set(std::string_view tag, unsigned codePage) {
    auto locale = MakeLocale(tag, codePage);
    if (!locale) return false;
    Change(*std::move(locale));
    return true;
}

void SystemLocale::Reset() {
    Change(LocaleOfEnvironment());
}

unsigned SystemLocale::Generation() {
    return Current().generation;
}

unsigned GetACP() {
    return Current().locale.page->Number();
}

// It stands here because the page in force is a part of the locale in force.
const CodePage& CodePage::System() {
    return *Current().locale.page;
}

int GetLocaleInfoA(unsigned locale, unsigned kind, char* buffer, int size) {
    const bool known = locale == LOCALE_USER_DEFAULT || locale == LOCALE_SYSTEM_DEFAULT;
    if (!known || kind != LOCALE_ICALENDARTYPE) return 0;
    const std::string_view text = CalendarNumberOf(Current().locale.icuName);
    const int needed = static_cast<int>(text.size()) + 1;
    if (size == 0) return needed;
    if (!buffer || size < needed) return 0;
    *std::copy(text.begin(), text.end(), buffer) = '\0';
    return needed;
}

}  // namespace orvo
