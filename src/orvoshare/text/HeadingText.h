// The heading of a list as one line of numbers.
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <platform/Export.h>
#include <platform/text/CString.h>

namespace orvo {

struct HeadingColumn {
    int id = 0;
    int width = 0;  // pixels

    friend bool operator==(const HeadingColumn&, const HeadingColumn&) = default;
};

struct Heading {
    std::vector<HeadingColumn> shown;  // from left to right
    std::vector<HeadingColumn> hidden;

    friend bool operator==(const Heading&, const Heading&) = default;
};

// The number of columns shown, their ids and widths, then the same of the hidden ones:
// "(2) 0 180 3 110 (1) 1 90".
ORVO_API CString FormatHeading(const Heading& heading);

// Reads what FormatHeading wrote. Any bytes will do: signs and blanks are passed by their places,
// one byte before each number and one more before the second count, and never compared. What is no
// number reads as 0, and one that no int holds as the nearest int. A text that ends early gives the
// pairs that it holds whole.
// Returns:  the heading; an empty one where the text begins with no number above 0.
ORVO_API Heading ParseHeading(const CString& text);

}  // namespace orvo
