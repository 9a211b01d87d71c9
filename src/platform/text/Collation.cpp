// Comparing text and making sort keys with ICU's collators, one of each kind for each thread.
// SPDX-License-Identifier: MIT
#include <array>
#include <cstdint>
#include <memory>

#include <unicode/ucol.h>
#include <unicode/uloc.h>

#include <platform/text/AsciiCollation.h>
#include <platform/text/Charset.h>
#include <platform/text/CodePage.h>
#include <platform/text/Collation.h>
#include <platform/text/SystemLocale.h>
#include <platform/text/Utf8.h>

namespace orvo {

namespace {

struct Strength {
    unsigned flags;
    UColAttributeValue others;
    UColAttributeValue japanese;  // tells hiragana from katakana on the fourth level only
};
constexpr std::array<Strength, 3> kStrengths{{
    {SORT_STRINGSORT, UCOL_TERTIARY, UCOL_QUATERNARY},
    {SORT_STRINGSORT | NORM_IGNORECASE, UCOL_SECONDARY, UCOL_SECONDARY},
    {SORT_STRINGSORT | NORM_IGNORECASE | NORM_IGNORENONSPACE, UCOL_PRIMARY, UCOL_PRIMARY},
}};

icu::LocalUCollatorPointer OpenCollator(const Strength& strength) {
    UErrorCode status = U_ZERO_ERROR;
    std::array<char, 512> icuName{};
    uloc_forLanguageTag(SystemLocale::Tag().c_str(), icuName.data(), icuName.size(), nullptr,
                        &status);
    icu::LocalUCollatorPointer collator(ucol_open(icuName.data(), &status));
    const bool japanese = SystemLocale::Language() == "ja";
    ucol_setAttribute(collator.getAlias(), UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &status);
    ucol_setAttribute(collator.getAlias(), UCOL_STRENGTH,
                      japanese ? strength.japanese : strength.others, &status);
    return U_SUCCESS(status) ? std::move(collator) : icu::LocalUCollatorPointer();
}

struct Slot {
    icu::LocalUCollatorPointer collator;
    std::unique_ptr<AsciiWeights> weights;  // made when they are asked for
    unsigned generation = 0;
};

// What the calling thread has for the locale in force, or null for flags that have no collator.
Slot* SlotFor(unsigned flags) {
    thread_local std::array<Slot, kStrengths.size()> slots;
    for (std::size_t i = 0; i < kStrengths.size(); ++i) {
        if (kStrengths[i].flags != flags) continue;
        Slot& slot = slots[i];
        if (slot.collator.isNull() || slot.generation != SystemLocale::Generation()) {
            slot.collator = OpenCollator(kStrengths[i]);
            slot.weights.reset();
            slot.generation = SystemLocale::Generation();
        }
        return slot.collator.isNull() ? nullptr : &slot;
    }
    return nullptr;
}

const UCollator* CollatorFor(unsigned flags) {
    const Slot* slot = SlotFor(flags);
    return slot ? slot->collator.getAlias() : nullptr;
}

std::string_view ViewOf(const char* text, int length) {
    return length < 0 ? std::string_view(text)
                      : std::string_view(text, static_cast<std::size_t>(length));
}

int32_t IcuLength(std::size_t length) {
    return static_cast<int32_t>(length);
}

// Broken UTF-8 goes through UTF-16 too: ICU would read it in larger pieces than the sort keys do.
UCollationResult Compare(const UCollator* collator, std::string_view left, std::string_view right) {
    const CodePage& page = CodePage::System();
    if (page.Number() == kUtf8CodePage && IsValidUtf8(left) && IsValidUtf8(right)) {
        UErrorCode status = U_ZERO_ERROR;
        return ucol_strcollUTF8(collator, left.data(), IcuLength(left.size()), right.data(),
                                IcuLength(right.size()), &status);
    }
    thread_local std::u16string leftUtf16;
    thread_local std::u16string rightUtf16;
    page.ToUtf16(left, leftUtf16);
    page.ToUtf16(right, rightUtf16);
    return ucol_strcoll(collator, leftUtf16.data(), IcuLength(leftUtf16.size()), rightUtf16.data(),
                        IcuLength(rightUtf16.size()));
}

}  // namespace

int CompareStringA(unsigned locale, unsigned flags, const char* left, int leftLength,
                   const char* right, int rightLength) {
    if (locale != LOCALE_SYSTEM_DEFAULT && locale != LOCALE_USER_DEFAULT) return 0;
    if (!left || !right) return 0;
    const UCollator* collator = CollatorFor(flags);
    if (!collator) return 0;
    switch (Compare(collator, ViewOf(left, leftLength), ViewOf(right, rightLength))) {
        case UCOL_LESS:
            return CSTR_LESS_THAN;
        case UCOL_GREATER:
            return CSTR_GREATER_THAN;
        default:
            return CSTR_EQUAL;
    }
}

const AsciiWeights& AsciiWeightsFor(unsigned flags) {
    static constexpr AsciiWeights kNone{};
    Slot* slot = (flags & NORM_IGNORECASE) != 0 ? SlotFor(flags) : nullptr;
    if (!slot) return kNone;
    if (!slot->weights) {
        slot->weights =
            std::make_unique<AsciiWeights>(MakeAsciiWeights(*slot->collator.getAlias()));
    }
    return *slot->weights;
}

void AppendSortKey(unsigned flags, std::string_view utf8, std::string& key) {
    const UCollator* collator = CollatorFor(flags);
    if (!collator) {
        key += '\0';
        return;
    }
    thread_local std::u16string utf16;
    Utf8ToUtf16(utf8, utf16);

    constexpr int32_t kUsualLength = 256;
    std::uint8_t usual[kUsualLength];
    const int32_t length =
        ucol_getSortKey(collator, utf16.data(), IcuLength(utf16.size()), usual, kUsualLength);
    if (length <= kUsualLength) {
        key.append(reinterpret_cast<const char*>(usual), static_cast<std::size_t>(length));
        return;
    }
    const std::size_t begin = key.size();
    key.resize(begin + static_cast<std::size_t>(length));
    ucol_getSortKey(collator, utf16.data(), IcuLength(utf16.size()),
                    reinterpret_cast<std::uint8_t*>(key.data() + begin), length);
}

namespace {

constexpr std::size_t kRememberedTexts = 8192;
constexpr std::size_t kLongestRemembered = 64;

}  // namespace

SortKeyMaker::SortKeyMaker(unsigned flags) : m_flags(flags), m_memory(kRememberedTexts) {}

void SortKeyMaker::Append(std::string_view utf8, std::string& key) {
    if (utf8.size() > kLongestRemembered) {
        AppendSortKey(m_flags, utf8, key);
        return;
    }
    Memory& memory = m_memory[std::hash<std::string_view>()(utf8) % kRememberedTexts];
    if (memory.key.empty() || memory.text != utf8) {
        memory.text = utf8;
        memory.key.clear();
        AppendSortKey(m_flags, utf8, memory.key);
    }
    key += memory.key;
}

}  // namespace orvo
