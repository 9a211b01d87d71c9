// What is measured of a window, in the order of measuring.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace orvo::bench {

enum class Figure {
    Start,
    ResidentAtStart,
    KeyMedian,
    KeyMaximum,
    FrameMedian,
    FrameMaximum,
    ToLargeIcons,
    LargeIconsFrame,
    ToSmallIcons,
    SmallIconsFrame,
    ToCards,
    CardsFrame,
    ToReport,
    Resident,
    Peak,
    DetailsPhotoMedian,
    DetailsMedian,
    FindMedian,
    FindMaximum,
    ForeignEdit,
    ForeignEditThread,
    ForeignMove,
    ForeignThousand
};

constexpr std::size_t IndexOf(Figure figure) {
    return static_cast<std::size_t>(figure);
}
constexpr std::size_t kFigureCount = IndexOf(Figure::ForeignThousand) + 1;

// A figure that was not measured is empty.
using Figures = std::array<std::optional<double>, kFigureCount>;

// The middle value, of an even number the upper one.
// Requires: at least one value.
double Median(std::vector<double> values);

}  // namespace orvo::bench
