// The bytes by which another process reaches an interface: a reference on the session bus.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include <platform/com/ReferencePacket.h>

namespace orvo {
namespace {

constexpr std::array<char, 4> kMagic{'O', 'r', 'v', 'I'};
constexpr std::uint16_t kVersion = 1;
constexpr std::size_t kTextLimit = 255;

// What stands before the two texts.
struct Header {
    std::array<char, 4> magic;
    std::uint16_t version;
    std::uint8_t busNameLength;
    std::uint8_t objectPathLength;
    IID interfaceId;
    std::uint64_t key;
};
static_assert(sizeof(Header) == 32);
static_assert(sizeof(Header) + 2 * kTextLimit <= kPacketLimit);

bool IsElementCharacter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '_';
}

// Whether the text is elements with the separator between them, none of them empty.
bool IsElements(std::string_view text, char separator, std::string_view others) {
    char before = separator;
    for (const char character : text) {
        if (character == separator && before == separator) return false;
        if (character != separator && !IsElementCharacter(character) &&
            others.find(character) == std::string_view::npos) {
            return false;
        }
        before = character;
    }
    return before != separator;
}

bool IsUniqueName(std::string_view name) {
    return name.size() <= kTextLimit && name.starts_with(':') &&
           name.find('.') != std::string_view::npos && IsElements(name.substr(1), '.', "-");
}

bool IsObjectPath(std::string_view path) {
    return path.size() <= kTextLimit && path.starts_with('/') &&
           IsElements(path.substr(1), '/', "");
}

HRESULT ReadAll(IStream& stream, void* bytes, std::size_t count) {
    const HRESULT result = stream.Read(bytes, static_cast<ULONG>(count), nullptr);
    return result == S_FALSE ? STG_E_READFAULT : result;
}

}  // namespace

HRESULT WritePacket(IStream& stream, const InterfaceReference& reference) {
    if (!IsUniqueName(reference.busName) || !IsObjectPath(reference.objectPath)) {
        return E_INVALIDARG;
    }
    const Header header{kMagic,
                        kVersion,
                        static_cast<std::uint8_t>(reference.busName.size()),
                        static_cast<std::uint8_t>(reference.objectPath.size()),
                        reference.interfaceId,
                        reference.key};
    std::string bytes(sizeof header, '\0');
    std::memcpy(bytes.data(), &header, sizeof header);
    bytes += reference.busName;
    bytes += reference.objectPath;
    return stream.Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
}

HRESULT ReadPacket(IStream& stream, InterfaceReference& reference) {
    Header header{};
    HRESULT result = ReadAll(stream, &header, sizeof header);
    if (result != S_OK) return result;
    if (header.magic != kMagic || header.version != kVersion) return E_INVALIDARG;
    InterfaceReference read{header.interfaceId, header.key, std::string(header.busNameLength, '\0'),
                            std::string(header.objectPathLength, '\0')};
    result = ReadAll(stream, read.busName.data(), read.busName.size());
    if (result == S_OK) result = ReadAll(stream, read.objectPath.data(), read.objectPath.size());
    if (result != S_OK) return result;
    if (!IsUniqueName(read.busName) || !IsObjectPath(read.objectPath)) return E_INVALIDARG;
    reference = std::move(read);
    return S_OK;
}

}  // namespace orvo
