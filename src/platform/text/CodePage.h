// Code pages: what the bytes of a text mean.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

constexpr unsigned kUtf8CodePage = 65001;
constexpr unsigned kJapaneseCodePage = 932;

// One code page: 65001 (UTF-8), 932 (Japanese), or a page of single bytes. Pages are made once and
// live as long as the process. May be used from several threads at once.
//
// Page 932 follows the vendor's table (ICU's ibm-943_P15A-2003, with the eight single bytes that it
// moves put right). A character that 932 lacks is given a private double-byte code (lead bytes F0
// to F9) for the life of the process and comes back as itself. Once those 1,880 codes are used up,
// and on any other page, a lacking character becomes '?'.
class ORVO_API CodePage {
public:
    // The page of that number, or null where ICU knows none, or knows it as a double-byte page
    // other than 932, or as a page without ASCII.
    static const CodePage* Find(unsigned number);

    // The page that GetACP returns.
    static const CodePage& System();

    virtual ~CodePage() = default;

    unsigned Number() const { return m_number; }

    // True where the byte begins a character of more than one byte.
    virtual bool IsLeadByte(unsigned char byte) const = 0;

    // The bytes of the character with which `text` begins: 1 for a byte that begins no whole
    // character, 0 only for an empty text.
    virtual std::size_t CharacterLength(std::string_view text) const = 0;

    // True while every character has a code of its own, so that no text loses anything on its way
    // here and back.
    virtual bool IsLossless() const = 0;

    // Each replaces the content of its second argument. A byte sequence that stands for no
    // character becomes U+FFFD, one for each byte; a lone surrogate becomes U+FFFD.
    virtual void ToUtf16(std::string_view text, std::u16string& utf16) const = 0;
    virtual void FromUtf16(std::u16string_view utf16, std::string& text) const = 0;
    virtual void ToUtf8(std::string_view text, std::string& utf8) const;
    virtual void FromUtf8(std::string_view utf8, std::string& text) const;

    CodePage(const CodePage&) = delete;
    CodePage& operator=(const CodePage&) = delete;

protected:
    explicit CodePage(unsigned number) : m_number(number) {}

private:
    unsigned m_number;
};

// The length in bytes of the longest start of `text` that is at most `limit` bytes long and splits
// no character of `page`; with `keepSplit`, a character that the limit would split is kept whole.
ORVO_API std::size_t CutLength(const CodePage& page, std::string_view text, std::size_t limit,
                               bool keepSplit);

}  // namespace orvo
