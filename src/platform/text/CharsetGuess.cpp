// Text of files without a named character set: byte order marks, and the guess of a legacy set.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <memory>
#include <optional>

#include <unicode/ucsdet.h>
#include <unicode/uloc.h>

#include <platform/text/Charset.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemLocale.h>
#include <platform/text/Utf8.h>

namespace orvo {

namespace {

struct LegacySet {
    std::string_view name;
    unsigned codePage;  // of the same meaning; 0 for a set of more bytes
};
constexpr LegacySet kJapanese{"Shift_JIS", 0};
constexpr LegacySet kEscapedJapanese{"ISO-2022-JP", 0};
constexpr LegacySet kWestern{"windows-1252", 1252};
constexpr LegacySet kCentral{"windows-1250", 1250};
constexpr LegacySet kCyrillic{"windows-1251", 1251};
constexpr LegacySet kBaltic{"windows-1257", 1257};
constexpr LegacySet kKorean{"windows-949", 0};
constexpr LegacySet kSimplifiedChinese{"gb18030", 0};
constexpr LegacySet kTraditionalChinese{"big5", 0};

struct LanguageSet {
    std::string_view language;
    LegacySet set;
};
constexpr LanguageSet kSetsOfLanguages[] = {
    {"ru", kCyrillic},
    {"uk", kCyrillic},
    {"bg", kCyrillic},
    {"be", kCyrillic},
    {"sr", kCyrillic},
    {"pl", kCentral},
    {"cs", kCentral},
    {"sk", kCentral},
    {"hu", kCentral},
    {"hr", kCentral},
    {"sl", kCentral},
    {"ro", kCentral},
    {"lt", kBaltic},
    {"lv", kBaltic},
    {"et", kBaltic},
    {"el", {"windows-1253", 1253}},
    {"tr", {"windows-1254", 1254}},
    {"he", {"windows-1255", 1255}},
    {"ar", {"windows-1256", 1256}},
    {"vi", {"windows-1258", 1258}},
    {"th", {"windows-874", 874}},
    {"ko", kKorean},
    {"zh", kSimplifiedChinese},
};

bool Decodes(const LegacySet& set, std::string_view bytes) {
    std::string utf8;
    return DecodeCharset(set.name, bytes, utf8);
}

bool IsAsciiLetter(char byte) {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

// The pairs of bytes at the start of the text, read as page 932 does.
std::size_t PairRunLength(const CodePage& japanese, std::string_view text) {
    std::size_t length = 0;
    while (japanese.CharacterLength(text.substr(length)) == 2) length += 2;
    return length;
}

// In Western text the curly quotes and dashes (81 to 9F there) also read as the first byte of a
// pair, as in "it's"; so a pair counts only beside another pair, or where it stands apart from
// letters and its second byte is no letter either.
bool LooksJapanese(std::string_view bytes) {
    const CodePage& japanese = *CodePage::Find(kJapaneseCodePage);
    for (std::size_t position = 0; position < bytes.size();) {
        const std::string_view rest = bytes.substr(position);
        const std::size_t run = PairRunLength(japanese, rest);
        if (run == 0) {
            ++position;
            continue;
        }
        bool common = false;
        for (std::size_t i = 0; i < run; i += 2)
            common = common || static_cast<unsigned char>(rest[i]) <= 0x9F;
        const bool letterBefore = position > 0 && IsAsciiLetter(bytes[position - 1]);
        const bool letterBehind = run < rest.size() && IsAsciiLetter(rest[run]);
        const bool apart = !letterBefore && !letterBehind && (rest[1] & 0x80) != 0;
        if (common && (run > 2 || apart)) return true;
        position += run;
    }
    return false;
}

bool IsTraditionalChinese() {
    UErrorCode status = U_ZERO_ERROR;
    std::array<char, 512> name{};
    std::array<char, 512> whole{};
    std::array<char, ULOC_SCRIPT_CAPACITY> script{};
    uloc_forLanguageTag(SystemLocale::Tag().c_str(), name.data(), name.size(), nullptr, &status);
    uloc_addLikelySubtags(name.data(), whole.data(), whole.size(), &status);
    uloc_getScript(whole.data(), script.data(), script.size(), &status);
    return U_SUCCESS(status) && std::string_view(script.data()) == "Hant";
}

struct DetectedSet {
    std::string_view detected;  // as the detector names it
    LegacySet set;
    int leastConfidence;
};
// The detector is sure of sets of several bytes, and never quite of one byte for each letter.
constexpr DetectedSet kDetectedSets[] = {
    {"EUC-JP", {"EUC-JP", 0}, 70},       {"EUC-KR", kKorean, 70},
    {"GB18030", kSimplifiedChinese, 70}, {"KOI8-R", {"KOI8-R", 0}, 40},
    {"windows-1251", kCyrillic, 40},
};

struct CloseDetector {
    void operator()(UCharsetDetector* detector) const { ucsdet_close(detector); }
};

// The set that the bytes themselves point to; nothing where they are too few or point to several.
std::optional<LegacySet> DetectSet(std::string_view bytes) {
    constexpr std::size_t kLongest = 1u << 16;
    constexpr std::ptrdiff_t kFewestHighBytes = 20;
    const std::string_view sample = bytes.substr(0, kLongest);
    const auto high =
        std::count_if(sample.begin(), sample.end(), [](char byte) { return (byte & 0x80) != 0; });
    if (high < kFewestHighBytes) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCharsetDetector, CloseDetector> detector(ucsdet_open(&status));
    ucsdet_setText(detector.get(), sample.data(), static_cast<std::int32_t>(sample.size()),
                   &status);
    std::int32_t count = 0;
    const UCharsetMatch** const matches = ucsdet_detectAll(detector.get(), &count, &status);
    if (U_FAILURE(status) || count == 0) return std::nullopt;
    const std::int32_t confidence = ucsdet_getConfidence(matches[0], &status);
    const std::int32_t next = count > 1 ? ucsdet_getConfidence(matches[1], &status) : 0;
    const std::string_view name = ucsdet_getName(matches[0], &status);
    const auto* const row =
        std::find_if(std::begin(kDetectedSets), std::end(kDetectedSets),
                     [&](const DetectedSet& each) { return each.detected == name; });
    const bool isSure = U_SUCCESS(status) && row != std::end(kDetectedSets) &&
                        confidence >= row->leastConfidence && confidence * 2 >= next * 3;
    if (!isSure || (row->set.codePage == 0 && !Decodes(row->set, bytes))) return std::nullopt;
    return row->set;
}

bool HasEscape(std::string_view bytes) {
    return bytes.find("\x1B$") != std::string_view::npos;
}

const LegacySet* FindCodePageSet(std::string_view name) {
    if (name == kWestern.name) return &kWestern;
    const auto* const row =
        std::find_if(std::begin(kSetsOfLanguages), std::end(kSetsOfLanguages),
                     [&](const LanguageSet& each) { return each.set.name == name; });
    return row == std::end(kSetsOfLanguages) || row->set.codePage == 0 ? nullptr : &row->set;
}

LegacySet GuessSet(std::string_view bytes) {
    if (HasEscape(bytes) && Decodes(kEscapedJapanese, bytes)) return kEscapedJapanese;
    if (const auto detected = DetectSet(bytes)) return *detected;
    const std::string& language = SystemLocale::Language();
    if (Decodes(kJapanese, bytes) && (language == "ja" || LooksJapanese(bytes))) return kJapanese;
    const auto row = std::find_if(std::begin(kSetsOfLanguages), std::end(kSetsOfLanguages),
                                  [&](const auto& each) { return each.language == language; });
    if (row == std::end(kSetsOfLanguages)) return kWestern;
    const LegacySet set =
        language == "zh" && IsTraditionalChinese() ? kTraditionalChinese : row->set;
    return set.codePage != 0 || Decodes(set, bytes) ? set : kWestern;
}

struct ByteOrder {
    std::string_view mark;
    std::size_t unitSize;
    bool bigEndian;
};
// The longer marks first: one of them begins with a shorter one.
constexpr ByteOrder kByteOrders[] = {
    {{"\xFF\xFE\0\0", 4}, 4, false}, {{"\0\0\xFE\xFF", 4}, 4, true}, {"\xEF\xBB\xBF", 1, false},
    {"\xFF\xFE", 2, false},          {"\xFE\xFF", 2, true},
};

// UTF-16 without a mark: one half of nearly every unit of the first ones is zero, as in all text
// with ASCII names or markup, and the other half hardly ever.
const ByteOrder* FindUnmarkedOrder(std::string_view bytes) {
    static constexpr ByteOrder kLittle{"", 2, false};
    static constexpr ByteOrder kBig{"", 2, true};
    constexpr std::size_t kExaminedUnits = 200;
    constexpr std::size_t kFewestUnits = 2;
    const std::size_t units = std::min(bytes.size() / 2, kExaminedUnits);
    std::size_t evenZeros = 0;
    std::size_t oddZeros = 0;
    for (std::size_t unit = 0; unit < units; ++unit) {
        evenZeros += bytes[unit * 2] == '\0';
        oddZeros += bytes[unit * 2 + 1] == '\0';
    }
    if (units < kFewestUnits) return nullptr;
    if (oddZeros * 2 > units && evenZeros * 10 <= units) return &kLittle;
    if (evenZeros * 2 > units && oddZeros * 10 <= units) return &kBig;
    return nullptr;
}

const ByteOrder* FindByteOrder(std::string_view bytes) {
    const auto marked =
        std::find_if(std::begin(kByteOrders), std::end(kByteOrders),
                     [&](const ByteOrder& order) { return bytes.starts_with(order.mark); });
    return marked != std::end(kByteOrders) ? marked : FindUnmarkedOrder(bytes);
}

char32_t UnitAt(std::string_view bytes, const ByteOrder& order) {
    char32_t unit = 0;
    for (std::size_t i = 0; i < order.unitSize; ++i) {
        const std::size_t place = order.bigEndian ? i : order.unitSize - 1 - i;
        unit = unit << 8 | static_cast<unsigned char>(bytes[place]);
    }
    return unit;
}

// Units of two or four bytes as UTF-8; a unit cut short by the end becomes U+FFFD.
std::string DecodeUnits(std::string_view bytes, const ByteOrder& order) {
    constexpr char32_t kReplacement = 0xFFFD;
    std::u16string utf16;
    std::string utf8;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(order.unitSize, bytes.size()))) {
        const char32_t unit = bytes.size() < order.unitSize ? kReplacement : UnitAt(bytes, order);
        if (order.unitSize == 2)
            utf16 += static_cast<char16_t>(unit);
        else
            AppendCodePoint(unit, utf8);
    }
    return order.unitSize == 2 ? Utf16ToUtf8(utf16) : utf8;
}

}  // namespace

std::string_view GuessLegacyCharset(std::string_view bytes) {
    return GuessSet(bytes).name;
}

bool IsLegacyText(std::string_view bytes) {
    return !IsValidUtf8(bytes) || (HasEscape(bytes) && Decodes(kEscapedJapanese, bytes));
}

std::string DecodeLegacy(std::string_view bytes) {
    return DecodeLegacy(GuessLegacyCharset(bytes), bytes);
}

std::string DecodeLegacy(std::string_view charset, std::string_view bytes) {
    std::string utf8;
    const LegacySet* const set = FindCodePageSet(charset);
    if (!set && DecodeCharset(charset, bytes, utf8)) return utf8;
    CodePage::Find(set ? set->codePage : kWestern.codePage)->ToUtf8(bytes, utf8);
    return utf8;
}

bool DecodeMarked(std::string_view bytes, std::string& utf8) {
    const ByteOrder* order = FindByteOrder(bytes);
    if (!order) return false;
    const std::string_view text = bytes.substr(order->mark.size());
    if (order->unitSize == 1)
        CodePage::Find(kUtf8CodePage)->ToUtf8(text, utf8);
    else
        utf8 = DecodeUnits(text, *order);
    return true;
}

}  // namespace orvo
