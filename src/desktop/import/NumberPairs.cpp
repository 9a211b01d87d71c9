// Which numbers of two addresses go together.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <desktop/import/Duplicates.h>
#include <desktop/import/MergeChoices.h>
#include <desktop/import/NumberPairs.h>

namespace orvo::desktop {
namespace {

std::ptrdiff_t DigitsOf(std::string_view number) {
    return std::count_if(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool IsSame(std::string_view left, std::string_view right) {
    return left == right || IsSameContact(left, right);
}

class Pairing {
public:
    Pairing(const CAddressRecord& first, const CAddressRecord& second)
        : m_first(first), m_second(second) {}

    std::vector<NumberPair> Run() {
        for (long slot = 1; slot <= kPhoneSlots; ++slot) {
            if (Of(m_first, slot).empty()) continue;
            ++m_places;
            const long partner = PartnerOf(slot);
            m_pairs.push_back({slot, partner, partner != 0});
        }
        for (long slot = 1; slot <= kPhoneSlots; ++slot) AddSecond(slot);
        return std::move(m_pairs);
    }

private:
    static std::string_view Of(const CAddressRecord& record, long slot) {
        return record.Utf8(PhoneField(slot));
    }
    bool& IsUsed(long slot) { return m_isUsed.at(static_cast<std::size_t>(slot)); }

    long PartnerOf(long slot) {
        for (long other = 1; other <= kPhoneSlots; ++other) {
            if (IsUsed(other) || !IsSame(Of(m_first, slot), Of(m_second, other))) continue;
            IsUsed(other) = true;
            return other;
        }
        return 0;
    }

    void AddSecond(long slot) {
        if (IsUsed(slot) || Of(m_second, slot).empty()) return;
        // One that is there twice takes no place of its own.
        const bool isThere = std::any_of(m_pairs.begin(), m_pairs.end(), [&](const auto& pair) {
            return (pair.first != 0 && IsSame(Of(m_first, pair.first), Of(m_second, slot))) ||
                   (pair.second != 0 && IsSame(Of(m_second, pair.second), Of(m_second, slot)));
        });
        const auto rival = std::find_if(m_pairs.rbegin(), m_pairs.rend(), [](const auto& pair) {
            return pair.first != 0 && pair.second == 0;
        });
        if (!isThere && m_places >= kPhoneSlots && rival != m_pairs.rend()) {
            rival->second = slot;
            return;
        }
        if (!isThere) ++m_places;
        m_pairs.push_back({0, slot, false});
    }

    const CAddressRecord& m_first;
    const CAddressRecord& m_second;
    std::array<bool, kPhoneSlots + 1> m_isUsed{};
    int m_places = 0;
    std::vector<NumberPair> m_pairs;
};

}  // namespace

std::vector<NumberPair> PairNumbers(const CAddressRecord& first, const CAddressRecord& second) {
    return Pairing(first, second).Run();
}

bool SaysMore(std::string_view text, std::string_view than) {
    return DigitsOf(text) > DigitsOf(than);
}

MergeChoices UsualChoices(const CAddressRecord& first, const CAddressRecord& second) {
    MergeChoices choices;
    for (const NumberPair& pair : PairNumbers(first, second)) {
        if (!pair.isSame) continue;
        const std::string_view text = second.Utf8(PhoneField(pair.second));
        const bool isMail = text.find('@') != std::string_view::npos;
        if (!isMail && SaysMore(text, first.Utf8(PhoneField(pair.first)))) {
            choices.fields.insert(PhoneField(pair.first));
        }
    }
    return choices;
}

}  // namespace orvo::desktop
