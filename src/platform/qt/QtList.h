// A list as Qt's model, its views and assistive technology see it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

#include <platform/qt/QtPeer.h>
#include <platform/window/list/RowListPeer.h>

class QAbstractItemView;

namespace orvo {

class QtList : public QtPeer<RowListPeer> {
public:
    using QtPeer<RowListPeer>::QtPeer;

    virtual int RowHeight() const = 0;
    virtual CString ShownTip(CPoint point) const = 0;
    virtual CString CutText(CPoint point) const = 0;  // of a cell whose end isn't seen
    virtual CRect PlaceInView(int row) const = 0;  // in coordinates of the view's ground, as below
    virtual int RowInView(CPoint point) const = 0;
    using RowListPeer::LastLine;
    using RowListPeer::LinesPerPage;

    // What is seen in a row or a cell, in which a picture has its column's name, and whether the
    // cell is a box that is checked.
    virtual QString SpokenRow(int row) const = 0;
    virtual QString SpokenCell(int row, int column) const = 0;
    virtual QString SpokenColumn(int column) const = 0;
    virtual std::optional<bool> CellCheck(int row, int column) const = 0;

    virtual QAbstractItemView* ShownView() const = 0;  // null once the widget is gone
};

}  // namespace orvo
