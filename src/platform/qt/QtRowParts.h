// What a row shows, found out by drawing it: only the window knows.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <vector>

#include <platform/window/list/ListPeer.h>

namespace orvo {

// A text, or a picture, which has none.
struct ShownPart {
    CRect place;  // in client coordinates
    QString text;
};
// In the order in which they are drawn.
using RowParts = std::vector<ShownPart>;

RowParts PartsOfRow(ListPeerClient& client, int row, const CRect& bounds);

// The text at the point that is drawn with an ellipsis in place of its end; empty for none.
CString CutTextAt(ListPeerClient& client, int row, const CRect& bounds, CPoint point);

// The texts as they are read: from the top, and of one line from the left.
QString TextInReadingOrder(RowParts parts);

}  // namespace orvo
