// Makes files of the shell link format byte by byte.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvo {

inline std::string LittleEndian(std::uint32_t number, int size) {
    std::string bytes;
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(number >> 8 * i & 0xFF);
    return bytes;
}

// Of ASCII and of UTF-16 text alike, each unit becomes two bytes.
inline std::string Wide(std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text) bytes += LittleEndian(unit, 2);
    return bytes;
}

// The parts of a link; an absent one has no flag.
struct ShellLinkBytes {
    std::string targetIds;
    std::string info;
    std::string texts;            // counted, in their order
    std::uint32_t textFlags = 0;  // which texts there are, and whether they are Unicode

    static constexpr std::uint32_t kName = 0x04;
    static constexpr std::uint32_t kRelativePath = 0x08;
    static constexpr std::uint32_t kUnicode = 0x80;

    ShellLinkBytes& WithTargetIds(const std::string& ids) {
        targetIds = LittleEndian(static_cast<std::uint32_t>(ids.size()), 2) + ids;
        return *this;
    }
    ShellLinkBytes& WithText(std::uint32_t flag, const std::string& text) {
        textFlags |= flag;
        texts += LittleEndian(static_cast<std::uint32_t>(text.size()), 2) + text;
        return *this;
    }
    ShellLinkBytes& WithUnicodeText(std::uint32_t flag, std::u16string_view text) {
        textFlags |= flag | kUnicode;
        texts += LittleEndian(static_cast<std::uint32_t>(text.size()), 2) + Wide(text);
        return *this;
    }

    // The place on a drive: a volume without a name, then the path in two parts.
    ShellLinkBytes& WithPlace(const std::string& base, const std::string& suffix) {
        const std::string volume = LittleEndian(17, 4) + std::string(13, '\0');
        const auto baseOffset = static_cast<std::uint32_t>(0x1C + volume.size());
        const auto suffixOffset = static_cast<std::uint32_t>(baseOffset + base.size() + 1);
        return Info(0x1C, baseOffset, suffixOffset, "", volume + base + '\0' + suffix + '\0');
    }

    // The same with both forms of each part, of which the bytes are useless.
    ShellLinkBytes& WithUnicodePlace(std::u16string_view base, std::u16string_view suffix) {
        const std::string bytes("?\0", 2);
        const std::string wideBase = Wide(base) + std::string(2, '\0');
        const std::uint32_t start = 0x24 + 2;
        const auto wideSuffix = static_cast<std::uint32_t>(start + wideBase.size());
        return Info(0x24, 0x24, 0x24, LittleEndian(start, 4) + LittleEndian(wideSuffix, 4),
                    bytes + wideBase + Wide(suffix) + std::string(2, '\0'));
    }

    std::string Bytes() const {
        using namespace std::string_literals;
        const std::uint32_t flags =
            textFlags | (targetIds.empty() ? 0U : 1U) | (info.empty() ? 0U : 2U);
        return LittleEndian(0x4C, 4) +
               "\x01\x14\x02\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x46"s +
               LittleEndian(flags, 4) + std::string(0x4C - 24, '\0') + targetIds + info + texts +
               std::string(4, '\0');
    }

private:
    ShellLinkBytes& Info(std::uint32_t headerSize, std::uint32_t base, std::uint32_t suffix,
                         const std::string& unicodeOffsets, const std::string& rest) {
        const auto size = static_cast<std::uint32_t>(headerSize + rest.size());
        info = LittleEndian(size, 4) + LittleEndian(headerSize, 4) + LittleEndian(1, 4) +
               LittleEndian(headerSize, 4) + LittleEndian(base, 4) + LittleEndian(0, 4) +
               LittleEndian(suffix, 4) + unicodeOffsets + rest;
        return *this;
    }
};

}  // namespace orvo
