// Where each row of the kana table begins in an address view.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include <desktop/kana/KanaRow.h>
#include <orvoshare/addressviews/DetailViewAddrInf.h>

namespace orvo::desktop {

// By KanaRow; -1 for a row of which there is no entry.
using KanaEntries = std::array<int, kKanaRowCount>;

// The first item of each row, by the reading of the field that leads in the view's listing order,
// or by the field itself where it has no reading. An item without any name is of the row Other.
KanaEntries FirstKanaEntries(CDetailViewAddrInf& view);

}  // namespace orvo::desktop
