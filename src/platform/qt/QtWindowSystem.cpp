// The window system of the desktop, over Qt.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QClipboard>
#include <QColor>
#include <QCursor>
#include <QPalette>
#include <QTimer>
#include <QToolTip>
#include <cmath>

#include <platform/qt/QtCanvas.h>
#include <platform/qt/QtDialogs.h>
#include <platform/qt/QtEditPeer.h>
#include <platform/qt/QtFileDialog.h>
#include <platform/qt/QtKeys.h>
#include <platform/qt/QtListAccess.h>
#include <platform/qt/QtListPeer.h>
#include <platform/qt/QtSound.h>
#include <platform/qt/QtTimers.h>
#include <platform/qt/QtWindowLink.h>
#include <platform/qt/QtWindowPeer.h>
#include <platform/qt/QtWindowSystem.h>
#include <platform/window/base/CWnd.h>
#include <platform/window/base/WindowInput.h>
#include <platform/window/pictures/Contrast.h>

namespace orvo {

namespace {

struct ColourRow {
    int id;
    QPalette::ColorRole role;
    QPalette::ColorGroup group = QPalette::Active;
};
constexpr ColourRow kColours[] = {
    {COLOR_WINDOW, QPalette::Base},
    {COLOR_WINDOWTEXT, QPalette::Text},
    {COLOR_HIGHLIGHT, QPalette::Highlight},
    {COLOR_HIGHLIGHTTEXT, QPalette::HighlightedText},
    {COLOR_BTNFACE, QPalette::Button},
    {COLOR_BTNSHADOW, QPalette::Dark},
    {COLOR_GRAYTEXT, QPalette::Text, QPalette::Disabled},
    {COLOR_BTNTEXT, QPalette::ButtonText},
    {COLOR_INFOTEXT, QPalette::ToolTipText},
    {COLOR_INFOBK, QPalette::ToolTipBase},
    {COLOR_ALTERNATE, QPalette::AlternateBase},
    {COLOR_PLACEHOLDERTEXT, QPalette::PlaceholderText},
};

struct ShapeRow {
    int standard;
    Qt::CursorShape shape;
};
constexpr ShapeRow kShapes[] = {
    {IDC_ARROW, Qt::ArrowCursor},    {IDC_IBEAM, Qt::IBeamCursor},       {IDC_WAIT, Qt::WaitCursor},
    {IDC_SIZEWE, Qt::SizeHorCursor}, {IDC_HAND, Qt::PointingHandCursor},
};

QCursor ToQt(const Cursor& cursor) {
    for (const ShapeRow& row : kShapes) {
        if (row.standard == cursor.standard) return row.shape;
    }
    return QCursor(QPixmap::fromImage(ToQt(cursor.picture, cursor.clear)), cursor.hotSpot.x,
                   cursor.hotSpot.y);
}

// A window that is closed already counts as active for a while, and would take the new one along.
QWidget* ActiveWindow() {
    QWidget* active = QApplication::activeWindow();
    return active && active->isVisible() ? active : nullptr;
}

QWidget* OwnerWidget(const CWnd* owner) {
    QWidget* widget = QtWindowSystem::WidgetOf(owner);
    return widget ? widget : ActiveWindow();
}

}  // namespace

struct QtWindowSystem::State {
    QtInputState input;
    QtTimers timers;
    QtSound sound;
    QTimer wakeUp;  // runs while posted messages wait for the event loop
    bool showsWaiting = false;
};

QtWindowSystem::QtWindowSystem() : m_state(std::make_unique<State>()) {
    TellOfLists();
    m_state->wakeUp.setSingleShot(true);
    QObject::connect(&m_state->wakeUp, &QTimer::timeout, &m_state->wakeUp, [] { PumpMessages(); });
}

// Widgets that wait for their end have links to this system.
QtWindowSystem::~QtWindowSystem() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QWidget* QtWindowSystem::WidgetOf(const CWnd* window) {
    const auto* peer = window ? dynamic_cast<QtWidgetState*>(window->GetPeer()) : nullptr;
    return peer ? peer->Widget() : nullptr;
}

void QtWindowSystem::NameList(const CWnd& list, const QString& name, const QString& bareRow,
                              const QString& overdue) {
    if (auto* peer = dynamic_cast<QtListPeer*>(list.GetPeer())) {
        peer->SetSpokenNames(name, bareRow, overdue);
    }
}

std::unique_ptr<WindowPeer> QtWindowSystem::MakeWindowPeer(const PeerPlace& place) {
    return std::make_unique<QtWindowPeer>(m_state->input, place);
}

std::unique_ptr<ListPeer> QtWindowSystem::MakeListPeer(const PeerPlace& place) {
    return std::make_unique<QtListPeer>(m_state->input, place);
}

std::unique_ptr<EditPeer> QtWindowSystem::MakeEditPeer(const PeerPlace& place) {
    return std::make_unique<QtEditPeer>(m_state->input, place);
}

std::unique_ptr<Canvas> QtWindowSystem::MakeMeasuringCanvas() {
    return std::make_unique<QtCanvas>(nullptr);
}

std::unique_ptr<FileDialogPeer> QtWindowSystem::MakeFileDialogPeer(const PeerPlace& place,
                                                                   const FileDialogSetup& setup) {
    QWidget* parent = QtWidgetState::ParentWidget(place);
    return std::make_unique<QtFileDialogPeer>(m_state->input, parent ? parent : ActiveWindow(),
                                              setup);
}

void QtWindowSystem::WakeUp() {
    if (!m_state->wakeUp.isActive()) m_state->wakeUp.start();
}

void QtWindowSystem::StartTimer(HWND window, UINT_PTR id, UINT milliseconds) {
    m_state->timers.Start(window, id, milliseconds);
}

bool QtWindowSystem::StopTimer(HWND window, UINT_PTR id) {
    return m_state->timers.Stop(window, id);
}

UINT QtWindowSystem::TrackPopupMenu(CMenu& menu, UINT flags, CPoint point, CWnd* owner) {
    return ShowPopupMenu(menu, flags, point, OwnerWidget(owner));
}

int QtWindowSystem::ShowMessageBox(CWnd* owner, const CString& text, UINT type) {
    return AskInMessageBox(text, type, OwnerWidget(owner));
}

bool QtWindowSystem::PickDay(CWnd* owner, CTime& day) {
    return AskForDay(day, OwnerWidget(owner));
}

void QtWindowSystem::Beep(UINT) {
    QApplication::beep();
}

bool QtWindowSystem::PlaySoundFile(const CString& path) {
    return m_state->sound.Play(ToQt(path.View()));
}

void QtWindowSystem::StopSound() {
    m_state->sound.Stop();
}

// A shape belongs to the window under the pointer, but the waiting shape to all windows.
void QtWindowSystem::ShowCursor(HCURSOR cursor) {
    const bool waits = cursor && cursor->standard == IDC_WAIT;
    if (waits && !m_state->showsWaiting) QApplication::setOverrideCursor(Qt::WaitCursor);
    if (!waits && m_state->showsWaiting) QApplication::restoreOverrideCursor();
    m_state->showsWaiting = waits;
    if (waits || !m_state->input.underPointer) return;
    if (cursor) {
        m_state->input.underPointer->setCursor(ToQt(*cursor));
    } else {
        m_state->input.underPointer->unsetCursor();
    }
}

CPoint QtWindowSystem::PointerPosition() const {
    return FromQt(QCursor::pos());
}

bool QtWindowSystem::IsKeyDown(UINT key) const {
    const Qt::KeyboardModifier modifier = ModifierOf(key);
    if (modifier == Qt::NoModifier) return m_state->input.keysDown.count(key) != 0;
    return m_state->input.modifiers.testFlag(modifier) ||
           QGuiApplication::keyboardModifiers().testFlag(modifier);
}

// A colour that lets the ground shine through, as it looks on that of a window; it can be read.
COLORREF QtWindowSystem::OnWindow(const QColor& colour) const {
    const COLORREF ground = Colour(COLOR_WINDOW);
    constexpr double whole = 8;
    const auto eighths = static_cast<int>(std::lround(colour.alphaF() * whole));
    return Readable(MixColours(ground, ColourFromQt(colour), eighths), Colour(COLOR_WINDOWTEXT),
                    ground, kTextContrast);
}

COLORREF QtWindowSystem::Colour(int id) const {
    for (const ColourRow& row : kColours) {
        if (row.id != id) continue;
        const bool isTip = row.role == QPalette::ToolTipText || row.role == QPalette::ToolTipBase;
        const QPalette palette = isTip ? QToolTip::palette() : QApplication::palette();
        const QColor exact = palette.color(row.group, row.role);
        const COLORREF colour = ColourFromQt(exact);
        if (id == COLOR_PLACEHOLDERTEXT) return OnWindow(exact);
        if (id != COLOR_HIGHLIGHT) return colour;
        // Not each style's highlight is far enough from its text.
        const COLORREF text = Colour(COLOR_HIGHLIGHTTEXT);
        return Readable(colour, Opposite(text), text, kTextContrast);
    }
    return RGB(0, 0, 0);
}

CString QtWindowSystem::ClipboardText() const {
    return FromQt(QGuiApplication::clipboard()->text());
}

void QtWindowSystem::SetClipboardText(const CString& text) {
    QGuiApplication::clipboard()->setText(ToQt(text.View()));
}

}  // namespace orvo
