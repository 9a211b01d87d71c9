// The small pictures of buttons, menus and marks: outlines in the colour of the text beside them.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>
#include <cstdint>

class QPainter;

namespace orvo::desktop {

enum class Symbol : std::uint8_t {
    List,
    LargeIcons,
    SmallIcons,
    Cards,
    ToDos,
    Birthdays,
    Person,
    Building,
    Padlock,
    Note,
    Find,
    Close,
    NewAddress,
    NewToDo,
    Import,
    Export,
    Print,
    Options,
    Quit,
    Undo,
    Redo,
    Open,
    Copy,
    Delete,
    Mail,
    Details,
};

// The outline, drawn on a field of 16 by 16 with lines 1.5 wide, as large as the place.
void PaintSymbol(QPainter& painter, const QRectF& place, Symbol symbol, const QColor& colour);

// The symbolic icon of the desktop's theme, or where it has none, the outline. Either has the
// colour of the texts of buttons when it is drawn, and is sharp at every scale.
QIcon IconOf(Symbol symbol);

// The same for a command of a menu, where it lies on the highlight while it is chosen.
QIcon MenuIconOf(Symbol symbol);

}  // namespace orvo::desktop
