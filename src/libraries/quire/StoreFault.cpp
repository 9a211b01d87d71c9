// What stands in the way of a store, in words.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <libraries/quire/StoreFault.h>

namespace orvo {
namespace {

constexpr std::array kTexts{
    "the store is damaged",
    "it isn't an Orvo store",
    "it was made by a newer version of this program",
    "its folder isn't there",
    "it may not be read or written",
    "the disk is full",
    "another program is writing to this store",
    "another program has this store open; try again later",
    "another program has removed or replaced this file while it was open",
    "it isn't there any more",
    "HOME is not set",
    "there isn't enough memory",
    "it can't be read or written",
};
static_assert(kTexts.size() == static_cast<std::size_t>(StoreFault::Unreadable) + 1);

}  // namespace

const char* FaultText(StoreFault fault) {
    return kTexts[static_cast<std::size_t>(fault)];
}

std::optional<StoreFault> FaultOfLine(std::string_view line) {
    const auto* const text = std::find_if(
        kTexts.begin(), kTexts.end(), [line](const char* each) { return line.ends_with(each); });
    if (text == kTexts.end()) return std::nullopt;
    return static_cast<StoreFault>(text - kTexts.begin());
}

}  // namespace orvo
