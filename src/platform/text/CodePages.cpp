// The code pages that there are, and UTF-8 as one of them.
// SPDX-License-Identifier: MIT
#include <map>
#include <mutex>

#include <platform/text/Charset.h>
#include <platform/text/CodePage.h>
#include <platform/text/CodePage932.h>
#include <platform/text/SingleBytePage.h>
#include <platform/text/Utf8.h>

namespace orvo {

namespace {

constexpr unsigned char kFirstUtf8Lead = 0xC2;
constexpr unsigned char kLastUtf8Lead = 0xF4;

// The text with each byte of a broken sequence replaced by U+FFFD.
void CopyUtf8(std::string_view text, std::string& utf8) {
    if (IsValidUtf8(text)) {
        utf8 = text;
        return;
    }
    std::string mended;
    while (!text.empty()) {
        const CodePoint first = FirstCodePoint(text);
        AppendCodePoint(first.value, mended);
        text.remove_prefix(first.length);
    }
    utf8 = std::move(mended);
}

class Utf8Page : public CodePage {
public:
    Utf8Page() : CodePage(kUtf8CodePage) {}

    bool IsLeadByte(unsigned char byte) const override {
        return byte >= kFirstUtf8Lead && byte <= kLastUtf8Lead;
    }
    std::size_t CharacterLength(std::string_view text) const override {
        return FirstCodePoint(text).length;
    }
    bool IsLossless() const override { return true; }
    void ToUtf16(std::string_view text, std::u16string& utf16) const override {
        Utf8ToUtf16(text, utf16);
    }
    void FromUtf16(std::u16string_view utf16, std::string& text) const override {
        Utf16ToUtf8(utf16, text);
    }
    void ToUtf8(std::string_view text, std::string& utf8) const override { CopyUtf8(text, utf8); }
    void FromUtf8(std::string_view utf8, std::string& text) const override { CopyUtf8(utf8, text); }
};

std::unique_ptr<CodePage> MakePage(unsigned number) {
    if (number == kUtf8CodePage) return std::make_unique<Utf8Page>();
    if (number == kJapaneseCodePage) return std::make_unique<CodePage932>();
    return SingleBytePage::Make(number);
}

}  // namespace

const CodePage* CodePage::Find(unsigned number) {
    static std::mutex mutex;
    static std::map<unsigned, std::unique_ptr<CodePage>> pages;
    const std::scoped_lock lock(mutex);
    const auto found = pages.find(number);
    if (found != pages.end()) return found->second.get();
    std::unique_ptr<CodePage> page = MakePage(number);
    return page ? (pages[number] = std::move(page)).get() : nullptr;
}

}  // namespace orvo
