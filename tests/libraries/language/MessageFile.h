// Language modules made for tests.
// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace orvo {

using Messages = std::vector<std::pair<std::string, std::string>>;  // keys and texts

inline std::string Key(unsigned number, const std::string& english) {
    return std::to_string(number) + '\x04' + english;
}

// A word at the end of `bytes`.
inline void AppendWord(std::string& bytes, std::size_t word, std::endian order) {
    for (int i = 0; i < 4; ++i) {
        const int shift = 8 * (order == std::endian::big ? 3 - i : i);
        bytes += static_cast<char>(word >> shift & 0xFF);
    }
}

// The bytes of the binary message form: head, both tables, texts.
inline std::string MessageBytes(const Messages& messages, std::endian order = std::endian::little) {
    const std::size_t keyTable = 7 * 4;
    const std::size_t textTable = keyTable + messages.size() * 8;
    std::string head;
    for (const std::size_t word : {std::size_t{0x950412de}, std::size_t{0}, messages.size(),
                                   keyTable, textTable, std::size_t{0}, std::size_t{0}}) {
        AppendWord(head, word, order);
    }
    const std::size_t firstText = textTable + messages.size() * 8;
    std::string tables[2];
    std::string texts;
    for (int side = 0; side < 2; ++side) {
        for (const auto& [key, text] : messages) {
            const std::string& bytes = side == 0 ? key : text;
            AppendWord(tables[side], bytes.size(), order);
            AppendWord(tables[side], firstText + texts.size(), order);
            texts += bytes + '\0';
        }
    }
    return head + tables[0] + tables[1] + texts;
}

inline const Messages kGerman{
    {"", "Content-Type: text/plain; charset=UTF-8\nX-Orvo-Language-Code: 0x40\n"},
    {Key(9189, "-Unnamed-"), "-Unbenannt-"},
    {Key(32804, "(Private)"), "(Privat)"},
};

}  // namespace orvo
