// Data that is dragged over a window of the screen, and the drop target registered for it.
// SPDX-License-Identifier: MIT
#include <QChildEvent>
#include <QMimeData>
#include <QUrl>
#include <memory>
#include <utility>

#include <platform/qt/QtConvert.h>
#include <platform/qt/QtDrop.h>
#include <platform/qt/QtKeys.h>

namespace orvo {
namespace {

constexpr const char* kOwnDrop = "orvoDrop";  // a property of widgets that have a QtDrop

struct EffectRow {
    DROPEFFECT effect;
    Qt::DropAction action;
};
constexpr EffectRow kEffects[] = {
    {DROPEFFECT_COPY, Qt::CopyAction},
    {DROPEFFECT_MOVE, Qt::MoveAction},
    {DROPEFFECT_LINK, Qt::LinkAction},
};

DROPEFFECT EffectsOf(Qt::DropActions actions) {
    DROPEFFECT effects = DROPEFFECT_NONE;
    for (const EffectRow& row : kEffects) {
        if (actions.testFlag(row.action)) effects |= row.effect;
    }
    return effects;
}

Qt::DropAction ActionOf(DROPEFFECT effects) {
    for (const EffectRow& row : kEffects) {
        if ((effects & row.effect) != 0) return row.action;
    }
    return Qt::IgnoreAction;
}

// The files of this machine among what is dragged; null where there are none.
HDROP FilesOf(const QMimeData& data) {
    DropList files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) files.push_back(FromQt(url.toLocalFile()));
    }
    return files.empty() ? nullptr : std::make_shared<const DropList>(std::move(files));
}

}  // namespace

QtDrop::QtDrop(HWND window, QWidget& client)
    : m_window(window), m_client(&client), m_tookDrops(client.acceptDrops()) {
    client.setProperty(kOwnDrop, true);
    client.setAcceptDrops(true);
    Watch(client);
}

QtDrop::~QtDrop() {
    if (!m_client) return;
    m_client->setProperty(kOwnDrop, QVariant());
    m_client->setAcceptDrops(m_tookDrops);
}

void QtDrop::Watch(QWidget& widget) {
    widget.installEventFilter(this);
    for (QObject* child : widget.children()) {
        auto* inside = qobject_cast<QWidget*>(child);
        if (inside && !inside->isWindow()) Watch(*inside);
    }
}

bool QtDrop::IsAnothers(const QWidget& widget) const {
    for (const QWidget* each = &widget; each && each != m_client; each = each->parentWidget()) {
        if (each->isWindow() || each->property(kOwnDrop).isValid()) return true;
    }
    return false;
}

bool QtDrop::FilesDragged(const QWidget& widget, QDropEvent& event) {
    // A program that ended in the middle of its drag has reported that to nobody: what is dropped
    // may be another's.
    if (event.type() != QEvent::DragMove) m_files = FilesOf(*event.mimeData());
    COleDropTarget* target = COleDropTarget::FromWindow(m_window);
    if (!m_files || !target) return false;
    event.setDropAction(Qt::IgnoreAction);
    event.ignore();
    // Qt then offers what is dragged to the widget around this one, and in the end to the client.
    if (&widget != m_client) return true;

    COleDataObject data;
    data.Add(CF_HDROP, m_files);
    const DROPEFFECT allowed = EffectsOf(event.possibleActions());
    const UINT keyState = FlagsOf(event.modifiers(), event.buttons());
    const CPoint point = FromQt(event.position().toPoint());
    DROPEFFECT effect = DROPEFFECT_NONE;
    if (event.type() == QEvent::DragEnter) {
        effect = target->DoDragEnter(data, keyState, allowed, point);
    } else if (event.type() == QEvent::DragMove) {
        effect = target->DoDragOver(data, keyState, allowed, point);
    } else {
        // The host may take the window away, and this object with it.
        m_files.reset();
        effect = target->DoDrop(data, keyState, allowed, point);
    }
    event.setDropAction(ActionOf(effect));
    event.setAccepted(effect != DROPEFFECT_NONE);
    return true;
}

bool QtDrop::DragLeft() {
    COleDropTarget* target = COleDropTarget::FromWindow(m_window);
    const HDROP files = std::exchange(m_files, nullptr);
    if (!files || !target) return false;
    target->OnDragLeave(CWnd::FromHandle(m_window));
    return true;
}

bool QtDrop::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || IsAnothers(*widget)) return false;
    switch (event->type()) {
        case QEvent::ChildAdded: {
            QObject* child = static_cast<QChildEvent*>(event)->child();
            if (child->isWidgetType()) Watch(*static_cast<QWidget*>(child));
            return false;
        }
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            return FilesDragged(*widget, *static_cast<QDropEvent*>(event));
        case QEvent::DragLeave:
            return widget == m_client && DragLeft();
        default:
            return false;
    }
}

}  // namespace orvo
