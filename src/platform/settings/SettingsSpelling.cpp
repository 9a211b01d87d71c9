// How names and texts are spelled in the settings file.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <charconv>

#include <fmt/format.h>

#include <platform/settings/SettingsSpelling.h>
#include <platform/text/CodePage.h>

namespace orvo {

namespace {

constexpr std::string_view kNameSigns = "[]=;#";

struct Escape {
    char character;
    char letter;
};
constexpr std::array<Escape, 4> kEscapes{{{'\\', '\\'}, {'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}}};

constexpr std::size_t kByteEscapeLength = 4;  // "\xHH"

bool IsControl(char character) {
    return static_cast<unsigned char>(character) < ' ' || character == '\x7F';
}

void AppendBytes(std::string_view bytes, std::string& spelling) {
    for (const char byte : bytes) {
        fmt::format_to(std::back_inserter(spelling), "\\x{:02X}", static_cast<unsigned char>(byte));
    }
}

void AppendAscii(char character, bool isBare, std::string& spelling) {
    const auto escape = std::find_if(kEscapes.begin(), kEscapes.end(),
                                     [&](const Escape& row) { return row.character == character; });
    if (escape != kEscapes.end()) {
        spelling += {'\\', escape->letter};
    } else if (isBare && !IsControl(character)) {
        spelling += character;
    } else {
        AppendBytes({&character, 1}, spelling);
    }
}

void AppendOther(const CodePage& page, std::string_view character, std::string& spelling) {
    std::string utf8;
    std::string back;
    page.ToUtf8(character, utf8);
    page.FromUtf8(utf8, back);
    if (back == character) {
        spelling += utf8;
    } else {
        AppendBytes(character, spelling);
    }
}

std::string Spell(std::string_view text, std::string_view escapedSigns) {
    const CodePage& page = CodePage::System();
    std::string spelling;
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view character = rest.substr(0, page.CharacterLength(rest));
        if (const char first = character.front(); static_cast<unsigned char>(first) < 0x80) {
            const bool isAtEnd = rest.size() == text.size() || rest.size() == 1;
            const bool isSign = escapedSigns.find(first) != std::string_view::npos;
            AppendAscii(first, !isSign && !(isAtEnd && first == ' '), spelling);
        } else {
            AppendOther(page, character, spelling);
        }
        rest.remove_prefix(character.size());
    }
    return spelling;
}

// Reads the escape with which `rest` begins into `text`; its length, or 0 where there is none.
std::size_t ReadEscape(std::string_view rest, std::string& text) {
    if (rest.size() < 2 || rest[0] != '\\') return 0;
    const auto escape = std::find_if(kEscapes.begin(), kEscapes.end(),
                                     [&](const Escape& row) { return row.letter == rest[1]; });
    if (escape != kEscapes.end()) {
        text += escape->character;
        return 2;
    }
    if (rest[1] != 'x' || rest.size() < kByteEscapeLength) return 0;
    unsigned char byte = 0;
    const char* end = rest.data() + kByteEscapeLength;
    if (std::from_chars(rest.data() + 2, end, byte, 16).ptr != end) return 0;
    text += static_cast<char>(byte);
    return kByteEscapeLength;
}

}  // namespace

std::string SpellName(std::string_view text) {
    return Spell(text, kNameSigns);
}

std::string SpellText(std::string_view text) {
    return Spell(text, {});
}

CString ReadSpelling(std::string_view spelling) {
    CString text;
    std::string plain;
    while (!spelling.empty()) {
        std::size_t length = ReadEscape(spelling, text.Bytes());
        if (length == 0) {
            length = std::min(spelling.find('\\', 1), spelling.size());
            CodePage::System().FromUtf8(spelling.substr(0, length), plain);
            text.Bytes() += plain;
        }
        spelling.remove_prefix(length);
    }
    return text;
}

}  // namespace orvo
