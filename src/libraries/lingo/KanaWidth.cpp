// Folding width and kana to one form for comparison.
// SPDX-License-Identifier: MIT
#include <string>
#include <string_view>

#include <contracts/TextServices.h>
#include <platform/text/CodePage.h>
#include <platform/text/Utf8.h>

namespace orvo {

namespace {

// What stands for U+FF61 to U+FF9F.
constexpr char16_t kFirstHalfwidth = 0xFF61;
constexpr std::u16string_view kHalfwidthForms =
    u"。「」、・をぁぃぅぇぉゃゅょっーあいうえおかきくけこさしすせそたちつてと"
    u"なにぬねのはひふへほまみむめもやゆよらりるれろわん゛゜";
static_assert(kHalfwidthForms.size() == 63);

constexpr char16_t kVoicedMark = 0xFF9E;
constexpr char16_t kSemiVoicedMark = 0xFF9F;
constexpr std::u16string_view kVoiced = u"かきくけこさしすせそたちつてとはひふへほ";
constexpr std::u16string_view kSemiVoiced = u"はひふへほ";

bool IsHalfwidthKana(char16_t unit) {
    return unit >= kFirstHalfwidth && unit < kFirstHalfwidth + kHalfwidthForms.size();
}

bool Holds(std::u16string_view set, char16_t unit) {
    return set.find(unit) != set.npos;
}

// The hiragana composed with the sound mark that follows, or 0 where there is none. Unicode writes
// the voiced form behind the plain one, and the semi-voiced form behind that.
char16_t Compose(char16_t plain, char16_t mark) {
    if (mark == kVoicedMark && plain == u'う') return u'ゔ';
    if (mark == kVoicedMark && Holds(kVoiced, plain)) return static_cast<char16_t>(plain + 1);
    if (mark == kSemiVoicedMark && Holds(kSemiVoiced, plain))
        return static_cast<char16_t>(plain + 2);
    return 0;
}

struct FoldRange {
    char16_t first;
    char16_t last;
    int distance;
};
constexpr FoldRange kFoldRanges[] = {
    {0x3000, 0x3000, 0x2FE0},  // the wide blank
    {0x30A1, 0x30F6, 0x0060},  // katakana with a hiragana
    {0x30FD, 0x30FE, 0x0060},  // iteration marks
    {0xFF01, 0xFF5E, 0xFEE0},  // wide ASCII
};

char16_t FoldUnit(char16_t unit) {
    if (IsHalfwidthKana(unit)) return kHalfwidthForms[unit - kFirstHalfwidth];
    for (const FoldRange& range : kFoldRanges)
        if (unit >= range.first && unit <= range.last)
            return static_cast<char16_t>(unit - range.distance);
    return unit;
}

// False where folding changes nothing.
bool Fold(std::u16string& text) {
    bool changed = false;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        char16_t folded = FoldUnit(unit);
        changed = changed || folded != unit;
        if (IsHalfwidthKana(unit) && i + 1 < text.size()) {
            if (const char16_t composed = Compose(folded, text[i + 1])) {
                folded = composed;
                ++i;
            }
        }
        text[kept++] = folded;
    }
    text.resize(kept);
    return changed;
}

}  // namespace

void ToFullwidthAndHira(CString& text) {
    if (AsciiLength(text.View()) == text.View().size()) return;
    const CodePage& page = CodePage::System();
    thread_local std::u16string utf16;
    page.ToUtf16(text.View(), utf16);
    if (Fold(utf16)) page.FromUtf16(utf16, text.Bytes());
}

}  // namespace orvo
