// The small pictures of buttons, menus and marks: outlines in the colour of the text beside them.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <iterator>

#include <desktop/symbols/Symbol.h>
#include <platform/qt/QtOutline.h>
#include <platform/window/pictures/Outline.h>

namespace orvo::desktop {
namespace {

struct SymbolRow {
    Symbol symbol;
    const char* themeName;
    const char* outline;
};
constexpr SymbolRow kSymbols[] = {
    {Symbol::List, "view-list-symbolic",
     "M2 4H2.5 M5.75 4H14 M2 8H2.5 M5.75 8H14 M2 12H2.5 M5.75 12H14"},
    {Symbol::LargeIcons, "view-grid-symbolic",
     "M2.5 2.5H6.5V6.5H2.5Z M9.5 2.5H13.5V6.5H9.5Z M2.5 9.5H6.5V13.5H2.5Z M9.5 9.5H13.5V13.5H9.5Z"},
    {Symbol::SmallIcons, "view-compact-symbolic",
     "O2.75 3.5 0.75 M5.5 3.5H7.25 O10.25 3.5 0.75 M13 3.5H14.5 O2.75 8 0.75 M5.5 8H7.25 "
     "O10.25 8 0.75 M13 8H14.5 O2.75 12.5 0.75 M5.5 12.5H7.25 O10.25 12.5 0.75 M13 12.5H14.5"},
    {Symbol::Cards, "x-office-address-book-symbolic",
     "M1.75 3.25H14.25V12.75H1.75Z M1.75 6.25H14.25 M4.5 9.5H9"},
    {Symbol::ToDos, "view-task-symbolic",
     "M2 2.75H6V6.75H2Z M8.75 4.75H14.25 M1.75 11.25L3.5 13L6.25 9.75 M8.75 11.25H14.25"},
    {Symbol::Birthdays, "",
     "M2.25 13.75V8.25H13.75V13.75 M1 13.75H15 M2.25 11C4 12.5 6 9.5 8 11C10 12.5 12 9.5 13.75 11 "
     "M8 8V5 M8 2.25V2.75"},
    {Symbol::Person, "avatar-default-symbolic",
     "O8 5 2.75 M2.75 14C2.75 10.75 5 9.75 8 9.75C11 9.75 13.25 10.75 13.25 14"},
    {Symbol::Building, "",
     "M3.25 13.75V2.75H9.75V13.75 M9.75 6.25H12.75V13.75 M1.75 13.75H14.25 M6 5.5H7 M6 8.25H7 "
     "M6 11H7"},
    {Symbol::Padlock, "changes-prevent-symbolic", kPadlockOutline},
    {Symbol::Note, "text-x-generic-symbolic", kNoteOutline},
    {Symbol::Find, "edit-find-symbolic", "O6.75 6.75 4.25 M10 10L14 14"},
    {Symbol::Close, "window-close-symbolic", "M4 4L12 12 M12 4L4 12"},
    {Symbol::NewAddress, "contact-new-symbolic",
     "O6.5 5 2.75 M1.25 14C1.25 10.75 3.5 9.75 6.5 9.75C8 9.75 9.25 10 10.25 10.75 M13 2.5V7.5 "
     "M10.5 5H15.5"},
    {Symbol::NewToDo, "appointment-new-symbolic",
     "M2.25 2.75H9 M2.25 2.75V13.75H13.25V8.5 M5 8.25L7.25 10.5L10 7 M13 1.5V6.5 M10.5 4H15.5"},
    {Symbol::Import, "document-open-symbolic",
     "M8 1.75V9.5 M4.75 6.5L8 9.75L11.25 6.5 M2.25 10.5V13.75H13.75V10.5"},
    {Symbol::Export, "document-save-as-symbolic",
     "M8 9.75V2 M4.75 5L8 1.75L11.25 5 M2.25 10.5V13.75H13.75V10.5"},
    {Symbol::Print, "document-print-symbolic",
     "M4.25 6V2.25H11.75V6 M4.25 11.5H1.75V6H14.25V11.5H11.75 M4.25 9.5H11.75V13.75H4.25Z"},
    {Symbol::Options, "preferences-system-symbolic",
     "M1.75 4.5H8.5 M12.5 4.5H14.25 O10.5 4.5 1.75 M1.75 11.5H3.5 M7.5 11.5H14.25 O5.5 11.5 1.75"},
    {Symbol::Quit, "application-exit-symbolic",
     "M9.25 2.25H2.75V13.75H9.25 M6.5 8H14 M11 5L14 8L11 11"},
    {Symbol::Undo, "edit-undo-symbolic",
     "M5.5 2.5L2.25 5.75L5.5 9 M2.5 5.75H9.75C12.25 5.75 13.75 7.5 13.75 9.5C13.75 11.5 12.25 "
     "13.25 "
     "9.75 13.25H6"},
    {Symbol::Redo, "edit-redo-symbolic",
     "M10.5 2.5L13.75 5.75L10.5 9 M13.5 5.75H6.25C3.75 5.75 2.25 7.5 2.25 9.5C2.25 11.5 3.75 13.25 "
     "6.25 13.25H10"},
    {Symbol::Open, "document-edit-symbolic",
     "M2.5 13.5L3.25 10.25L11 2.5L13.5 5L5.75 12.75Z M9.25 4.25L11.75 6.75"},
    {Symbol::Copy, "edit-copy-symbolic",
     "M5.75 5.75H13.75V13.75H5.75Z M3.5 10.25H2.25V2.25H10.25V3.5"},
    {Symbol::Delete, "user-trash-symbolic",
     "M2.25 4.25H13.75 M6 4V2.25H10V4 M3.75 4.5L4.5 13.75H11.5L12.25 4.5 M6.75 7V11 M9.25 7V11"},
    {Symbol::Mail, "mail-unread-symbolic", "M1.75 3.25H14.25V12.75H1.75Z M2 4L8 8.75L14 4"},
    {Symbol::Details, "view-dual-symbolic",
     "M1.75 2.75H14.25V13.25H1.75Z M9.25 2.75V13.25 M11.5 5.5H12 M11.5 8H12"},
};

const SymbolRow& RowOf(Symbol symbol) {
    return kSymbols[static_cast<std::size_t>(symbol)];
}

constexpr bool EachStandsAtItsNumber() {
    for (std::size_t i = 0; i < std::size(kSymbols); ++i) {
        if (static_cast<std::size_t>(kSymbols[i].symbol) != i) return false;
    }
    return true;
}
static_assert(EachStandsAtItsNumber());

// Looked for anew each time: the user may choose another theme.
QIcon ThemeIcon(Symbol symbol) {
    const char* name = RowOf(symbol).themeName;
    return *name == '\0' ? QIcon() : QIcon::fromTheme(QLatin1String(name));
}

class SymbolEngine : public QIconEngine {
public:
    SymbolEngine(Symbol symbol, QIcon::Mode onHighlight)
        : m_symbol(symbol), m_onHighlight(onHighlight) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
        const qreal scale = painter->device()->devicePixelRatioF();
        const QPixmap themed = Themed(place.size() * scale, mode);
        if (themed.isNull()) return PaintSymbol(*painter, place, m_symbol, ColourOf(mode));
        painter->drawPixmap(place, themed);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new SymbolEngine(*this); }

private:
    QColor ColourOf(QIcon::Mode mode) const {
        const QPalette palette = QApplication::palette();
        if (mode == m_onHighlight) return palette.color(QPalette::HighlightedText);
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        return palette.color(group, QPalette::ButtonText);
    }

    // Of a symbolic icon only the shape counts. A theme may name a file that can't be read.
    QPixmap Themed(const QSize& size, QIcon::Mode mode) const {
        QPixmap picture = ThemeIcon(m_symbol).pixmap(size, 1.0);
        if (picture.isNull()) return picture;
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), ColourOf(mode));
        return picture;
    }

    Symbol m_symbol;
    QIcon::Mode m_onHighlight;
};

}  // namespace

void PaintSymbol(QPainter& painter, const QRectF& place, Symbol symbol, const QColor& colour) {
    PaintOutline(painter, place, RowOf(symbol).outline, colour);
}

QIcon IconOf(Symbol symbol) {
    return QIcon(new SymbolEngine(symbol, QIcon::Selected));
}

QIcon MenuIconOf(Symbol symbol) {
    return QIcon(new SymbolEngine(symbol, QIcon::Active));
}

}  // namespace orvo::desktop
