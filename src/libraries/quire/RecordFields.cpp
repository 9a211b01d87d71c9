// The packed form of a record's fields.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

#include <contracts/RecordFields.h>

namespace orvo {

namespace {

constexpr std::size_t kLongestHead = 1 + 10;  // the number, and 64 bits in groups of 7

struct Field {
    std::uint8_t number;
    std::string_view bytes;
};

// The length with which `packed` begins, which is taken off it; nothing where there is none or
// where it could be written shorter.
std::optional<std::uint64_t> TakeLength(std::string_view& packed) {
    std::uint64_t length = 0;
    for (std::size_t i = 0; i < packed.size() && i < 9; ++i) {
        const auto byte = static_cast<std::uint8_t>(packed[i]);
        length |= std::uint64_t{byte & 0x7Fu} << (7 * i);
        if (byte >= 0x80) {
            continue;
        }
        if (byte == 0 && i > 0) {
            return std::nullopt;
        }
        packed.remove_prefix(i + 1);
        return length;
    }
    return std::nullopt;
}

// The field with which `packed` begins, which is taken off it.
std::optional<Field> TakeField(std::string_view& packed) {
    if (packed.empty()) {
        return std::nullopt;
    }
    const auto number = static_cast<std::uint8_t>(packed.front());
    packed.remove_prefix(1);
    const std::optional<std::uint64_t> length = TakeLength(packed);
    if (!length || *length == 0 || *length > packed.size()) {
        return std::nullopt;
    }
    const Field field{number, packed.substr(0, *length)};
    packed.remove_prefix(*length);
    return field;
}

// Where a field of that number begins in a good buffer, or would begin.
std::string_view::const_iterator FieldStart(std::string_view packed, std::uint8_t number) {
    while (!packed.empty() && static_cast<std::uint8_t>(packed.front()) < number) {
        TakeField(packed);
    }
    return packed.begin();
}

std::size_t WriteHead(std::uint8_t number, std::uint64_t length, char* head) {
    std::size_t size = 0;
    head[size++] = static_cast<char>(number);
    for (; length >= 0x80; length >>= 7) {
        head[size++] = static_cast<char>(0x80 | (length & 0x7F));
    }
    head[size++] = static_cast<char>(length);
    return size;
}

}  // namespace

std::string_view PackedFields::GoodStart(std::string_view packed) {
    std::string_view rest = packed;
    std::size_t good = 0;
    int last = 0;
    while (!rest.empty()) {
        const std::optional<Field> field = TakeField(rest);
        if (!field || field->number <= last) {
            break;
        }
        last = field->number;
        good = packed.size() - rest.size();
    }
    return packed.substr(0, good);
}

bool PackedFields::Assign(std::string_view packed) {
    if (GoodStart(packed).size() != packed.size()) {
        return false;
    }
    if (packed.size() != m_size) {
        std::unique_ptr<char[]> bytes(packed.empty() ? nullptr : new char[packed.size()]);
        m_bytes.swap(bytes);
        m_size = packed.size();
    }
    std::copy(packed.begin(), packed.end(), m_bytes.get());
    return true;
}

std::string_view PackedFields::Get(std::uint8_t number) const {
    std::string_view rest = Bytes();
    while (!rest.empty()) {
        const std::optional<Field> field = TakeField(rest);
        if (field->number >= number) {
            return field->number == number ? field->bytes : std::string_view();
        }
    }
    return {};
}

void PackedFields::Set(std::uint8_t number, std::string_view bytes) {
    const std::string_view packed = Bytes();
    const auto start = FieldStart(packed, number);
    const std::string_view before(packed.begin(), start);
    std::string_view after = packed.substr(before.size());
    if (!after.empty() && static_cast<std::uint8_t>(after.front()) == number) {
        TakeField(after);
    }
    std::array<char, kLongestHead> head;
    const std::size_t headSize = bytes.empty() ? 0 : WriteHead(number, bytes.size(), head.data());
    const std::size_t size = before.size() + headSize + bytes.size() + after.size();

    std::unique_ptr<char[]> changed(size == 0 ? nullptr : new char[size]);
    char* end = std::copy(before.begin(), before.end(), changed.get());
    end = std::copy_n(head.data(), headSize, end);
    end = std::copy(bytes.begin(), bytes.end(), end);
    std::copy(after.begin(), after.end(), end);
    m_bytes.swap(changed);
    m_size = size;
}

}  // namespace orvo
