// The weights of the ASCII characters under one collator.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <unicode/ucoleitr.h>

#include <platform/text/AsciiCollation.h>

namespace orvo {

namespace {

constexpr std::size_t kAsciiEnd = 128;
constexpr char kEndOfLevel = 1;

// Sort keys of single characters, without the byte that ends them; empty for one that is ignored or
// has no weight of its own.
using Keys = std::array<std::string, kAsciiEnd>;

std::string KeyOf(const UCollator& collator, char16_t character) {
    std::array<std::uint8_t, 64> bytes{};
    const int32_t length =
        ucol_getSortKey(&collator, &character, 1, bytes.data(), static_cast<int32_t>(bytes.size()));
    if (length < 1 || bytes[0] == kEndOfLevel) return {};
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(length - 1)};
}

using Elements = std::vector<int32_t>;

// The collation elements of one or two characters.
class ElementReader {
public:
    explicit ElementReader(const UCollator& collator)
        : m_iterator(ucol_openElements(&collator, nullptr, 0, &m_status), &ucol_closeElements) {}

    Elements Read(std::u16string_view text) {
        Elements elements;
        ucol_setText(m_iterator.get(), text.data(), static_cast<int32_t>(text.size()), &m_status);
        if (U_FAILURE(m_status)) return elements;
        while (elements.size() < kMost) {
            const int32_t element = ucol_next(m_iterator.get(), &m_status);
            if (element == UCOL_NULLORDER) break;
            elements.push_back(element);
        }
        return elements;
    }

private:
    static constexpr std::size_t kMost = 16;

    UErrorCode m_status = U_ZERO_ERROR;
    std::unique_ptr<UCollationElements, decltype(&ucol_closeElements)> m_iterator;
};

// Takes the weights from characters that are read as several, and from any two that aren't read
// one after the other: the letters of a digraph, the digits of a number. No collation of CLDR joins
// more ASCII characters than two without two of them doing so by themselves.
void ForgetContexts(const UCollator& collator, Keys& keys) {
    ElementReader reader(collator);
    std::array<Elements, kAsciiEnd> elements;
    for (std::size_t i = 0; i < kAsciiEnd; ++i) {
        const auto character = static_cast<char16_t>(i);
        elements[i] = reader.Read({&character, 1});
        if (elements[i].size() != 1) keys[i].clear();
    }
    const Keys all = keys;
    for (std::size_t i = 0; i < kAsciiEnd; ++i) {
        for (std::size_t j = 0; j < kAsciiEnd; ++j) {
            if (all[i].empty() || all[j].empty()) continue;
            const char16_t pair[] = {static_cast<char16_t>(i), static_cast<char16_t>(j)};
            if (reader.Read({pair, 2}) == Elements{elements[i].front(), elements[j].front()}) {
                continue;
            }
            keys[i].clear();
            keys[j].clear();
        }
    }
}

std::string_view PrimaryOf(std::string_view key) {
    return key.substr(0, key.find(kEndOfLevel));
}

// Letters that only a later level tells apart don't compare one by one.
void ForgetNearTwins(Keys& keys) {
    const Keys all = keys;
    for (std::size_t i = 0; i < kAsciiEnd; ++i) {
        const bool hasTwin = std::any_of(all.begin(), all.end(), [&](const std::string& other) {
            return other != all[i] && PrimaryOf(other) == PrimaryOf(all[i]);
        });
        if (hasTwin) keys[i].clear();
    }
}

}  // namespace

std::array<std::uint8_t, kAsciiEnd> MakeAsciiWeights(const UCollator& collator) {
    Keys keys;
    for (std::size_t i = 0; i < kAsciiEnd; ++i) {
        keys[i] = KeyOf(collator, static_cast<char16_t>(i));
    }
    std::array<std::uint8_t, kAsciiEnd> weights{};
    UErrorCode status = U_ZERO_ERROR;
    if (ucol_getAttribute(&collator, UCOL_CASE_LEVEL, &status) != UCOL_OFF) return weights;
    ForgetContexts(collator, keys);
    ForgetNearTwins(keys);

    std::vector<std::string> order(keys.begin(), keys.end());
    order.emplace_back();  // so that only the empty key has the number 0
    std::sort(order.begin(), order.end());
    order.erase(std::unique(order.begin(), order.end()), order.end());
    std::transform(keys.begin(), keys.end(), weights.begin(), [&](const std::string& key) {
        return static_cast<std::uint8_t>(std::lower_bound(order.begin(), order.end(), key) -
                                         order.begin());
    });
    return weights;
}

}  // namespace orvo
