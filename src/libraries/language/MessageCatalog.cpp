// The texts of a language module, which is a file in gettext's binary message form.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

#include <fmt/format.h>

#include <libraries/language/MessageCatalog.h>
#include <platform/text/Charset.h>

namespace orvo {
namespace {

// The file's head is seven words: the magic number, the revision, the number of messages, where the
// two tables stand (of keys, and of texts), and two on a hash table that isn't needed. A row of a
// table is a length and a position; a zero byte follows each text.
constexpr std::uint32_t kMagic = 0x950412de;
constexpr std::uint32_t kMagicOfOtherOrder = 0xde120495;
constexpr std::uint64_t kWord = 4;
enum Head : std::uint64_t { kRevision = 1, kCount, kKeyTable, kTextTable };

constexpr char kContextEnd = '\x04';
constexpr std::string_view kLanguageCodeField = "X-Orvo-Language-Code:";

class CatalogBytes {
public:
    explicit CatalogBytes(std::string_view bytes) : m_bytes(bytes) {
        const std::uint32_t magic = Word(0);
        m_bigEndian = magic == kMagicOfOtherOrder;
        if (!m_bigEndian && magic != kMagic) throw CatalogError("it has another magic number");
        const std::uint32_t revision = HeadWord(kRevision);
        if (revision >> 16 > 1) {
            throw CatalogError(fmt::format("its revision {} is unknown", revision >> 16));
        }
    }

    std::uint32_t HeadWord(Head place) const { return Word(place * kWord); }

    // The text of a table's row.
    std::string_view Text(Head table, std::uint64_t row) {
        const std::uint64_t entry = HeadWord(table) + row * 2 * kWord;
        const std::uint64_t length = Word(entry);
        const std::uint64_t position = Word(entry + kWord);
        if (position + length >= m_bytes.size() || m_bytes[position + length] != '\0') {
            throw CatalogError(fmt::format("the text at byte {} has no end", position));
        }
        // Else a small file could ask for the same long text again and again.
        m_total += length;
        if (m_total > m_bytes.size()) throw CatalogError("its texts overlap");
        const std::string_view text = m_bytes.substr(position, length);
        if (!IsValidUtf8(text)) {
            throw CatalogError(fmt::format("the text at byte {} isn't UTF-8", position));
        }
        return text.substr(0, text.find('\0'));  // the singular, where there are plural forms
    }

private:
    std::uint32_t Word(std::uint64_t position) const {
        if (position + kWord > m_bytes.size()) {
            throw CatalogError(fmt::format("it ends at byte {}", m_bytes.size()));
        }
        std::uint32_t word = 0;
        for (std::uint64_t i = 0; i < kWord; ++i) {
            const std::uint64_t place = m_bigEndian ? i : kWord - 1 - i;
            word = word << 8 | static_cast<unsigned char>(m_bytes[position + place]);
        }
        return word;
    }

    std::string_view m_bytes;
    bool m_bigEndian = false;
    std::uint64_t m_total = 0;
};

// The number that makes up the whole of `text`.
template <class Number>
std::optional<Number> WholeNumber(std::string_view text, int base) {
    Number number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

// The header is a text of lines "name: value".
int LanguageCodeOf(std::string_view header) {
    while (!header.empty()) {
        std::string_view line = header.substr(0, header.find('\n'));
        header.remove_prefix(std::min(line.size() + 1, header.size()));
        if (!line.starts_with(kLanguageCodeField)) continue;
        line.remove_prefix(kLanguageCodeField.size());
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        const bool hexadecimal = line.starts_with("0x");
        if (hexadecimal) line.remove_prefix(2);
        return WholeNumber<int>(line, hexadecimal ? 16 : 10).value_or(0);
    }
    return 0;
}

}  // namespace

MessageCatalog ReadMessageCatalog(std::string_view bytes) {
    CatalogBytes file(bytes);
    MessageCatalog catalog;
    const std::uint64_t count = file.HeadWord(kCount);
    for (std::uint64_t row = 0; row < count; ++row) {
        const std::string_view key = file.Text(kKeyTable, row);
        const std::string_view text = file.Text(kTextTable, row);
        if (key.empty()) catalog.languageCode = LanguageCodeOf(text);
        const std::size_t contextEnd = key.find(kContextEnd);
        if (contextEnd == std::string_view::npos) continue;
        if (const auto number = WholeNumber<unsigned>(key.substr(0, contextEnd), 10)) {
            catalog.texts.emplace(*number, text);
        }
    }
    return catalog;
}

}  // namespace orvo
