// A user who does something at random, with windows that ask him answered at random, too.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <array>
#include <random>
#include <string>

#include <desktop/window/DesktopWindow.h>
#include <platform/qt/QtWindowSystem.h>

namespace orvo::desktop {

// The menu entries that stay within the window; the more often one stands here, the more often it
// is chosen.
constexpr const char* kCommandNames =
    "New address...|New to-do...|Undo|Undo|Redo|Redo|Open...|Set category...|Delete|Delete|Delete|"
    "Select all|Trash...|Show private entries|Mask private entries|Hide private entries|By name|"
    "By company|By priority, then due date|By due date, then priority|By category, then due date|"
    "By category, then priority|Show completed|List|Large icons|Cards|To Do";
inline const QStringList kCommands = QString(kCommandNames).split('|');
constexpr std::array kViewKeys{Qt::Key_Up,   Qt::Key_Down,   Qt::Key_Home,  Qt::Key_End,
                               Qt::Key_Left, Qt::Key_Right,  Qt::Key_Space, Qt::Key_Return,
                               Qt::Key_A,    Qt::Key_Escape, Qt::Key_F2,    Qt::Key_PageDown};
constexpr std::array kAnswerKeys{Qt::Key_Tab, Qt::Key_Return, Qt::Key_Down, Qt::Key_Escape};
// A window that still asks then is left.
constexpr int kMostAnswers = 12;

inline QString Plain(QString text) {
    return text.remove('&').section(": ", 0, 0);
}

inline std::vector<QAction*> CommandsOf(const QMenuBar& bar) {
    std::vector<QAction*> found;
    for (const QAction* top : bar.actions()) {
        for (QAction* action : top->menu()->actions()) {
            const auto count = kCommands.count(Plain(action->text()));
            if (action->isEnabled())
                found.insert(found.end(), static_cast<std::size_t>(count), action);
        }
    }
    return found;
}

class RandomUser {
public:
    RandomUser(DesktopWindow& window, unsigned seed) : m_window(window), m_random(seed) {
        QObject::connect(&m_answers, &QTimer::timeout, [this] { Answer(); });
        m_answers.start(0);
    }

    // From 0 to `count` - 1.
    int Roll(int count) { return std::uniform_int_distribution(0, count - 1)(m_random); }

    // Does one thing; no menu, no question and no form is open afterwards.
    // Gives:  what it was, for the reader of a failed test.
    std::string Act() {
        // How often of twenty times.
        constexpr struct {
            int count;
            std::string (RandomUser::*act)();
        } kActions[] = {{8, &RandomUser::TriggerCommand},
                        {6, &RandomUser::PressKey},
                        {4, &RandomUser::ClickView},
                        {1, &RandomUser::ChooseCategory},
                        {1, &RandomUser::DropFile}};
        // Without a window manager no window has the keys after a question.
        m_window.activateWindow();
        if (!QApplication::focusWidget()) m_window.Frame().Entries().Window().SetFocus();
        int roll = Roll(20);
        const auto* chosen = kActions;
        for (; roll >= chosen->count; ++chosen) roll -= chosen->count;
        const std::string what = (this->*chosen->act)();
        while (QApplication::activePopupWidget() || QApplication::activeModalWidget()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        QCoreApplication::processEvents();
        return what;
    }

private:
    // One of them.
    template <class List>
    auto& OneOf(List& list) {
        return list[static_cast<std::size_t>(Roll(static_cast<int>(std::size(list))))];
    }

    std::string TriggerCommand() {
        const std::vector<QAction*> commands = CommandsOf(*m_window.menuBar());
        QAction* command = OneOf(commands);
        std::string what = command->text().toStdString();
        command->trigger();
        return what;
    }

    std::string PressKey() {
        const Qt::Key key = OneOf(kViewKeys);
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : &m_window, key,
                        Roll(4) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
        return QKeySequence(key).toString().toStdString();
    }

    std::string ClickView() {
        QWidget* view = QtWindowSystem::WidgetOf(&m_window.Frame().Entries().Window());
        if (auto* area = view->findChild<QAbstractScrollArea*>()) view = area->viewport();
        if (auto* area = dynamic_cast<QAbstractScrollArea*>(view)) view = area->viewport();
        const QPoint place(Roll(view->width()), Roll(view->height() / 2));
        const bool isDouble = Roll(5) == 0;
        if (isDouble) {
            QTest::mouseDClick(view, Qt::LeftButton, {}, place);
        } else {
            QTest::mouseClick(view, Qt::LeftButton,
                              Roll(3) == 0 ? Qt::ControlModifier : Qt::NoModifier, place);
        }
        return std::string(isDouble ? "double click at " : "click at ") +
               std::to_string(place.x()) + ", " + std::to_string(place.y());
    }

    std::string ChooseCategory() {
        auto* box = m_window.findChild<QComboBox*>();
        const int index = Roll(box->count());
        box->setCurrentIndex(index);
        emit box->activated(index);
        return "category box " + std::to_string(index);
    }

    std::string DropFile() {
        static const std::array<const char*, 3> kFiles{"friends.vcf", "duties.ics", "world.vcf"};
        const std::string file = OneOf(kFiles);
        m_window.Import({std::string(ORVO_SAMPLES) + "/" + file});
        return "import " + file;
    }

    void Press(QWidget& window, int key, const QString& text = {}) {
        QWidget* target = window.focusWidget() ? window.focusWidget() : &window;
        // Posted, so that a window which opens at the key is answered in its turn.
        QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, key, {}, text));
        QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyRelease, key, {}, text));
    }

    void Answer() {
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* asking = popup ? popup : QApplication::activeModalWidget();
        if (asking != m_asking) m_answersToOne = 0;
        m_asking = asking;
        if (!asking) return;
        const bool isLast = ++m_answersToOne > kMostAnswers;
        if (auto* box = qobject_cast<QMessageBox*>(asking)) {
            // What was typed is given up where the window is to be left.
            const QList<QAbstractButton*> buttons = box->buttons();
            QAbstractButton* discard = box->button(QMessageBox::Discard);
            QAbstractButton* chosen = discard ? discard : OneOf(buttons);
            QMetaObject::invokeMethod(chosen, "click", Qt::QueuedConnection);
        } else if (isLast) {
            Press(*asking, Qt::Key_Escape);
        } else if (Roll(2) == 0) {
            const QChar letter(u'a' + Roll(26));
            Press(*asking, Qt::Key_A + letter.unicode() - u'a', letter);
        } else {
            Press(*asking, OneOf(kAnswerKeys));
        }
    }

    DesktopWindow& m_window;
    std::mt19937 m_random;
    QTimer m_answers;
    int m_answersToOne = 0;  // since the window that asks came up
    QWidget* m_asking = nullptr;
};

}  // namespace orvo::desktop
