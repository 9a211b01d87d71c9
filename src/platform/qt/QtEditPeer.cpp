// An edit control on the screen: Qt's line edit, whose text changes only as it is asked to.
// SPDX-License-Identifier: MIT
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <algorithm>
#include <limits>
#include <set>

#include <platform/qt/QtEditPeer.h>
#include <platform/qt/QtKeys.h>
#include <platform/text/CodePage.h>
#include <platform/window/base/CWnd.h>

namespace orvo {

namespace {

// Qt's own menu would change the text behind the window's back; its texts are translated, though.
struct MenuRow {
    const char* text;
    LPARAM lParam;
    UINT message;
    bool needsSelection;
};
constexpr MenuRow kMenu[] = {{"Cu&t", 0, WM_CUT, true},
                             {"&Copy", 0, WM_COPY, true},
                             {"&Paste", 0, WM_PASTE, false},
                             {"Delete", 0, WM_CLEAR, true},
                             {"Select All", -1, EM_SETSEL, false}};

int BytesBefore(const QString& text, int position) {
    return FromQt(text.left(position)).GetLength();
}

int UnitsBefore(const CString& text, int position) {
    const int inside = std::clamp(position, 0, text.GetLength());
    const std::size_t whole =
        CutLength(CodePage::System(), text.View(), static_cast<std::size_t>(inside), false);
    return static_cast<int>(ToQt(text.View().substr(0, whole)).size());
}

}  // namespace

class QtEditPeer::Line : public QLineEdit {
public:
    Line(QtInputState& input, const PeerPlace& place)
        : QLineEdit(ParentWidget(place)),
          m_link(*new QtWindowLink(*this, input, QtWindowLink::Style::MessagesFirst)) {
        m_link.Watch(*this);
        setMaxLength(std::numeric_limits<int>::max());
        setFrame((place.style & WS_BORDER) != 0);
    }

    QtWindowLink& Link() { return m_link; }

protected:
    // The window has had the key.
    void keyPressEvent(QKeyEvent*) override {}

    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() != Qt::MiddleButton) return QLineEdit::mouseReleaseEvent(event);
        setCursorPosition(cursorPositionAt(event->position().toPoint()));
        EnterWhole(QGuiApplication::clipboard()->text(QClipboard::Selection));
    }

    // What an input method composes is shown by Qt; what it has composed is typed.
    void inputMethodEvent(QInputMethodEvent* event) override {
        QInputMethodEvent composing(event->preeditString(), event->attributes());
        QLineEdit::inputMethodEvent(&composing);
        event->accept();
        Enter(event->commitString());
    }

    void dropEvent(QDropEvent* event) override {
        setCursorPosition(cursorPositionAt(event->position().toPoint()));
        event->acceptProposedAction();
        EnterWhole(event->mimeData()->text());
    }

    void contextMenuEvent(QContextMenuEvent* event) override {
        const QPointer<QMenu> menu = new QMenu(this);
        for (const MenuRow& row : kMenu) {
            QAction* action = menu->addAction(QCoreApplication::translate("QLineEdit", row.text));
            action->setEnabled(hasSelectedText() || !row.needsSelection);
            connect(action, &QAction::triggered, this,
                    [this, row] { SendMessage(m_link.Handle(), row.message, 0, row.lParam); });
        }
        menu->exec(event->globalPos());
        delete menu.data();
    }

private:
    void Enter(const QString& text) { HandleText(m_link.Handle(), text); }

    // For a text that comes as a whole. What the window refuses, as a lookup box does, it isn't
    // given again until it has taken something: so even a long text is over at once.
    void EnterWhole(const QString& whole) {
        std::set<char32_t> refused;
        for (const char32_t character : whole.toStdU32String()) {
            if (refused.count(character) != 0) continue;
            const QString before = text();
            Enter(QString::fromUcs4(&character, 1));
            if (text() == before) {
                refused.insert(character);
            } else {
                refused.clear();
            }
        }
    }

    QtWindowLink& m_link;
};

QtEditPeer::QtEditPeer(QtInputState& input, const PeerPlace& place)
    : QtEditPeer(*new Line(input, place), place) {}

QtEditPeer::QtEditPeer(Line& line, const PeerPlace& place) : QtPeer<EditPeer>(line, &line.Link()) {
    SetUpWidget(*this, place);
}

QtEditPeer::Line* QtEditPeer::TheLine() const {
    return static_cast<Line*>(Widget());
}

CString QtEditPeer::Text() const {
    return TheLine() ? FromQt(TheLine()->text()) : CString();
}

void QtEditPeer::SetText(const CString& text) {
    if (!TheLine()) return;
    TheLine()->setText(ToQt(text.View()));
    TheLine()->setCursorPosition(0);
}

EditSelection QtEditPeer::Selection() const {
    if (!TheLine()) return {};
    const QString text = TheLine()->text();
    const int caret = TheLine()->cursorPosition();
    int anchor = caret;
    if (TheLine()->hasSelectedText()) {
        const int start = TheLine()->selectionStart();
        anchor = caret == start ? TheLine()->selectionEnd() : start;
    }
    return {BytesBefore(text, anchor), BytesBefore(text, caret)};
}

void QtEditPeer::Select(EditSelection selection) {
    if (!TheLine()) return;
    const CString text = Text();
    const int anchor = UnitsBefore(text, selection.anchor);
    const int caret = UnitsBefore(text, selection.caret);
    // An empty selection doesn't move Qt's caret.
    TheLine()->setCursorPosition(caret);
    if (anchor != caret) TheLine()->setSelection(anchor, caret - anchor);
}

void QtEditPeer::ReplaceSelection(std::string_view text) {
    if (TheLine()) TheLine()->insert(ToQt(text));
}

}  // namespace orvo
