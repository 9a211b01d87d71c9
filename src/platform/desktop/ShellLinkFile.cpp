// Files of the published shell link format: where the shortcut says its target lies.
// SPDX-License-Identifier: MIT
#include <cstdint>

#include <fmt/format.h>

#include <platform/desktop/ShellLinkFile.h>
#include <platform/text/CodePage.h>

namespace orvo {
namespace {

using namespace std::string_view_literals;

// The header: its size, the class that reads it, the flags that say which parts follow.
constexpr std::size_t kHeaderSize = 0x4C;
constexpr std::size_t kClassOffset = 4;
constexpr std::string_view kClass =
    "\x01\x14\x02\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x46"sv;
constexpr std::size_t kFlagsOffset = 20;
constexpr std::uint32_t kHasTargetIdList = 0x01;
constexpr std::uint32_t kHasLinkInfo = 0x02;
constexpr std::uint32_t kHasName = 0x04;
constexpr std::uint32_t kHasRelativePath = 0x08;
constexpr std::uint32_t kIsUnicode = 0x80;

// The part on the target's place. A header of the greater size has the Unicode offsets, too.
constexpr std::size_t kInfoHeaderSize = 0x1C;
constexpr std::size_t kUnicodeInfoHeaderSize = 0x24;
constexpr std::size_t kInfoFlagsOffset = 8;
constexpr std::uint32_t kHasLocalBasePath = 0x01;

// Where an offset to a text stands: of bytes, and of UTF-16.
struct InfoText {
    std::size_t offset;
    std::size_t unicodeOffset;
    const char* name;
};
constexpr InfoText kLocalBasePath = {16, 28, "base path"};
constexpr InfoText kCommonPathSuffix = {24, 32, "path suffix"};

constexpr std::size_t kLongestPath = 1024;  // far above those of the systems that write links

// Bytes of which a part must be there to be read.
class Bytes {
public:
    explicit Bytes(std::string_view bytes) : m_bytes(bytes) {}

    std::string_view Part(std::size_t offset, std::size_t size, const char* what) const {
        if (offset > m_bytes.size() || size > m_bytes.size() - offset) {
            throw ShellLinkError(fmt::format("the {} goes beyond the end", what));
        }
        return m_bytes.substr(offset, size);
    }
    std::uint32_t Number(std::size_t offset, std::size_t size, const char* what) const {
        const std::string_view part = Part(offset, size, what);
        std::uint32_t number = 0;
        for (std::size_t i = size; i-- > 0;) {
            number = number << 8 | static_cast<unsigned char>(part[i]);
        }
        return number;
    }
    std::uint32_t Number16(std::size_t offset, const char* what) const {
        return Number(offset, 2, what);
    }
    std::uint32_t Number32(std::size_t offset, const char* what) const {
        return Number(offset, 4, what);
    }

private:
    std::string_view m_bytes;
};

std::string Utf8OfBytes(std::string_view bytes) {
    std::string utf8;
    CodePage::System().ToUtf8(bytes, utf8);
    return utf8;
}

std::string Utf8OfUtf16(std::string_view bytes) {
    std::u16string utf16;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        utf16 += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                       static_cast<unsigned char>(bytes[i + 1]) << 8);
    }
    const CodePage& page = *CodePage::Find(kUtf8CodePage);
    std::string utf8;
    page.FromUtf16(utf16, utf8);
    return utf8;
}

// The text of whole units from `offset` up to a zero unit, without it.
std::string_view ZeroEnded(std::string_view info, std::size_t offset, std::size_t unit,
                           const char* what) {
    for (std::size_t end = offset; end + unit <= info.size(); end += unit) {
        if (info.substr(end, unit) == "\0\0"sv.substr(0, unit)) {
            return info.substr(offset, end - offset);
        }
    }
    throw ShellLinkError(fmt::format("the {} has no end", what));
}

std::string TextOf(std::string_view info, std::size_t headerSize, const InfoText& text) {
    const Bytes bytes(info);
    if (headerSize >= kUnicodeInfoHeaderSize) {
        const std::size_t offset = bytes.Number32(text.unicodeOffset, text.name);
        if (offset != 0) return Utf8OfUtf16(ZeroEnded(info, offset, 2, text.name));
    }
    const std::size_t offset = bytes.Number32(text.offset, text.name);
    return offset == 0 ? std::string() : Utf8OfBytes(ZeroEnded(info, offset, 1, text.name));
}

std::string ReadBasePath(std::string_view info) {
    const Bytes bytes(info);
    const std::size_t headerSize = bytes.Number32(4, "place's header");
    if (headerSize < kInfoHeaderSize || headerSize > info.size()) {
        throw ShellLinkError(fmt::format("the place's header has {} bytes", headerSize));
    }
    const bool isLocal = (bytes.Number32(kInfoFlagsOffset, "place") & kHasLocalBasePath) != 0;
    std::string path = isLocal ? TextOf(info, headerSize, kLocalBasePath) : std::string();
    path += TextOf(info, headerSize, kCommonPathSuffix);
    if (path.size() > kLongestPath) {
        throw ShellLinkError(fmt::format("the path has {} bytes", path.size()));
    }
    return path;
}

}  // namespace

ShellLinkFile ReadShellLink(std::string_view file) {
    const Bytes bytes(file);
    if (bytes.Number32(0, "header") != kHeaderSize ||
        bytes.Part(kClassOffset, kClass.size(), "header") != kClass) {
        throw ShellLinkError("it isn't a shell link");
    }
    bytes.Part(0, kHeaderSize, "header");
    const std::uint32_t flags = bytes.Number32(kFlagsOffset, "header");
    std::size_t offset = kHeaderSize;
    ShellLinkFile link;
    if ((flags & kHasTargetIdList) != 0) offset += 2 + bytes.Number16(offset, "target list");
    if ((flags & kHasLinkInfo) != 0) {
        const std::size_t size = bytes.Number32(offset, "place");
        link.basePath = ReadBasePath(bytes.Part(offset, size, "place"));
        offset += size;
    }
    const std::size_t unit = (flags & kIsUnicode) != 0 ? 2 : 1;
    const auto readText = [&](const char* what) {
        const std::size_t size = unit * bytes.Number16(offset, what);
        const std::string_view text = bytes.Part(offset + 2, size, what);
        offset += 2 + size;
        return unit == 2 ? Utf8OfUtf16(text) : Utf8OfBytes(text);
    };
    if ((flags & kHasName) != 0) readText("description");
    if ((flags & kHasRelativePath) != 0) {
        const std::string path = readText("relative path");
        link.relativePath = path.substr(0, path.find('\0'));
    }
    return link;
}

}  // namespace orvo
