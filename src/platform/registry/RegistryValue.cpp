// How a typed value of the registry is written as one text.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <charconv>

#include <fmt/format.h>

#include <platform/registry/RegistryTypes.h>
#include <platform/registry/RegistryValue.h>

namespace orvo {
namespace {

constexpr std::size_t kNumberSize = 4;

using OptionalText = std::optional<std::string>;

OptionalText PrintString(std::string_view data) {
    if (data.ends_with('\0')) data.remove_suffix(1);
    return std::string(data);
}

OptionalText ReadString(std::string_view text) {
    return std::string(text) + '\0';
}

OptionalText PrintNumber(std::string_view data) {
    if (data.size() != kNumberSize) return std::nullopt;
    std::uint32_t number = 0;
    for (std::size_t i = kNumberSize; i-- > 0;) {
        number = number << 8U | static_cast<unsigned char>(data[i]);
    }
    return std::to_string(number);
}

OptionalText ReadNumber(std::string_view text) {
    std::uint32_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    if (fault != std::errc() || stop != end) return std::nullopt;
    std::string data;
    for (std::size_t i = 0; i < kNumberSize; ++i) {
        data += static_cast<char>(number >> (8U * i) & 0xFFU);
    }
    return data;
}

OptionalText PrintBytes(std::string_view data) {
    std::string text;
    for (const char byte : data) {
        fmt::format_to(std::back_inserter(text), "{:02X}", static_cast<unsigned char>(byte));
    }
    return text;
}

OptionalText ReadBytes(std::string_view text) {
    std::string data;
    for (; text.size() >= 2; text.remove_prefix(2)) {
        unsigned char byte = 0;
        if (std::from_chars(text.data(), text.data() + 2, byte, 16).ptr != text.data() + 2) break;
        data += static_cast<char>(byte);
    }
    return text.empty() ? OptionalText(data) : std::nullopt;
}

struct TypeRule {
    std::uint32_t type;
    std::string_view name;
    OptionalText (*print)(std::string_view data);
    OptionalText (*read)(std::string_view text);
};
constexpr std::array<TypeRule, 5> kTypes{{
    {REG_SZ, "text", PrintString, ReadString},
    {REG_EXPAND_SZ, "expand", PrintString, ReadString},
    {REG_BINARY, "bytes", PrintBytes, ReadBytes},
    {REG_DWORD, "number", PrintNumber, ReadNumber},
    {REG_MULTI_SZ, "texts", PrintString, ReadString},
}};

}  // namespace

std::optional<std::string> TextOfValue(std::uint32_t type, std::string_view data) {
    const auto rule = std::find_if(kTypes.begin(), kTypes.end(),
                                   [&](const TypeRule& row) { return row.type == type; });
    const OptionalText text = rule == kTypes.end() ? std::nullopt : rule->print(data);
    if (!text) return std::nullopt;
    return fmt::format("{}:{}", rule->name, *text);
}

std::optional<RegistryValue> ValueOfText(std::string_view text) {
    const std::size_t colon = std::min(text.find(':'), text.size());
    const auto rule = std::find_if(kTypes.begin(), kTypes.end(), [&](const TypeRule& row) {
        return row.name == text.substr(0, colon);
    });
    if (rule == kTypes.end() || colon == text.size()) return std::nullopt;
    OptionalText data = rule->read(text.substr(colon + 1));
    if (!data) return std::nullopt;
    return RegistryValue{rule->type, std::move(*data)};
}

}  // namespace orvo
