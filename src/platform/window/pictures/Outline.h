// Small pictures of lines, sharp at every size and in the colour of what is beside them.
// SPDX-License-Identifier: MIT
#pragma once

namespace orvo {

// An outline is a text of commands on a field of 16 by 16, on which lines are 1.5 wide: M, L, H, V,
// C and Z with absolute places, as in the paths of SVG, and O for a circle, with its middle and its
// radius.
constexpr int kOutlineField = 16;

constexpr const char* kPadlockOutline =
    "M3.5 7.25H12.5V13.75H3.5Z M5.25 7.25V5C5.25 3.25 6.5 2.25 8 2.25C9.5 2.25 10.75 3.25 10.75 "
    "5V7.25";
constexpr const char* kNoteOutline =
    "M3.25 2.25H9.75L12.75 5.25V13.75H3.25Z M5.75 7.75H10.25 M5.75 10.5H10.25";

}  // namespace orvo
