// Which numbers of two addresses go together.
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include <contracts/RecordStore.h>

namespace orvo::desktop {

// Two slots, 1 to 5; 0 where there is no number.
struct NumberPair {
    long first = 0;
    long second = 0;
    bool isSame = false;  // the same number, however it is written
};

// Each number of both once, in the order of the first address, then of the second one. Where both
// have more than there are slots, the last numbers that only the first one has stand beside those
// of the second one that would find none: only one of each two can stay.
std::vector<NumberPair> PairNumbers(const CAddressRecord& first, const CAddressRecord& second);

// True where `text` says more of a number than `than`, such as its country.
bool SaysMore(std::string_view text, std::string_view than);

}  // namespace orvo::desktop
