// The bar in which the user types what he looks for in the view.
// SPDX-License-Identifier: MIT
#include <QKeyEvent>
#include <QLabel>
#include <QStyle>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include <desktop/symbols/Symbol.h>
#include <desktop/texts/Texts.h>
#include <desktop/window/FindBar.h>

namespace orvo::desktop {
namespace {

constexpr int kLineWidth = 320;
constexpr int kLeastLineWidth = 120;
constexpr int kRoomBeside = 110;  // for label and button
constexpr int kLabelGap = 8;
// Milliseconds until it is looked again whether rows may change.
constexpr int kPatience = 200;

}  // namespace

FindBar::FindBar(const CommandContext& context, std::function<bool()> mayChange)
    : m_context(context), m_mayChange(std::move(mayChange)), m_action(Text("&Find...")) {
    m_action.setShortcut(QKeySequence("Ctrl+F"));
    connect(&m_action, &QAction::triggered, this, [this] { Open(); });
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (!m_mayChange()) return m_timer.start(kPatience);
        m_context.Frame().Entries().ReadOn();
        ReadOn();
    });
}

void FindBar::PutInto(QMainWindow& window) {
    window.addToolBarBreak();
    m_bar = window.addToolBar(Text("Find"));
    m_bar->setObjectName("find");
    m_bar->setMovable(false);
    const int side = m_bar->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, m_bar);
    m_bar->setIconSize({side, side});
    m_bar->setContextMenuPolicy(Qt::PreventContextMenu);
    m_line = new QLineEdit;
    m_line->setClearButtonEnabled(true);
    // Qt gives it no name.
    if (auto* clear = m_line->findChild<QToolButton*>()) clear->setAccessibleName(Text("Clear"));
    m_line->setAccessibleName(Text("Find"));
    m_line->setPlaceholderText(Text("Any part of any text"));
    m_line->installEventFilter(this);
    connect(m_line, &QLineEdit::textChanged, this, [this](const QString& typed) {
        m_context.Frame().SetFind(FindQuery(typed.toStdString()));
    });
    auto* label = new QLabel(Text("Find:"));
    label->setBuddy(m_line);
    label->setContentsMargins(kLabelGap, 0, kLabelGap, 0);
    m_bar->addWidget(label);
    m_bar->addWidget(m_line);
    auto* space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_bar->addWidget(space);
    auto* close = new QToolButton;
    close->setIcon(IconOf(Symbol::Close));
    close->setAutoRaise(true);
    close->setFocusPolicy(Qt::NoFocus);
    close->setAccessibleName(Text("Show all again"));
    close->setToolTip(Text("Show all again"));
    connect(close, &QToolButton::clicked, this, [this] { Close(); });
    m_bar->addWidget(close);
    m_bar->hide();
}

void FindBar::FitInto(int width) {
    m_line->setFixedWidth(std::clamp(width - kRoomBeside, kLeastLineWidth, kLineWidth));
}

void FindBar::ReadOn() {
    if (!m_context.Frame().Entries().IsWhole()) m_timer.start(0);
}

void FindBar::Open() {
    m_bar->show();
    m_line->setFocus(Qt::ShortcutFocusReason);
    m_line->selectAll();
}

void FindBar::Close() {
    m_line->clear();
    m_bar->hide();
    m_context.Frame().Entries().Window().SetFocus();
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Escape:
            Close();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Down:
            m_context.Frame().Entries().GoToFirst();
            return true;
        default:
            return QObject::eventFilter(watched, event);
    }
}

}  // namespace orvo::desktop
