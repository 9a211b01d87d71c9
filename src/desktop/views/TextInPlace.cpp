// A to-do's text, edited where it stands in the list.
// SPDX-License-Identifier: MIT
#include <QAbstractScrollArea>
#include <QApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

#include <desktop/parts/ShownLine.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/ShownToDos.h>
#include <desktop/views/TextInPlace.h>
#include <platform/qt/QtConvert.h>
#include <platform/qt/QtWindowSystem.h>

namespace orvo::desktop {
namespace {

// Also for what stands in a pop-up of the owner.
bool IsWithin(const QObject* object, const QObject& owner) {
    while (object && object != &owner) object = object->parent();
    return object != nullptr;
}

}  // namespace

TextInPlace::TextInPlace(CTodoListbox& list, Save save)
    : m_list(list), m_widget(*QtWindowSystem::WidgetOf(&list)), m_save(std::move(save)) {
    m_wait.setSingleShot(true);
    connect(&m_wait, &QTimer::timeout, this, [this] {
        if (!QApplication::activeModalWidget() && !QApplication::activePopupWidget()) Begin();
    });
    m_widget.installEventFilter(this);
    for (QAbstractScrollArea* area : m_widget.findChildren<QAbstractScrollArea*>()) {
        area->installEventFilter(this);
        area->viewport()->installEventFilter(this);
    }
}

int TextInPlace::SelectedRow() const {
    if (m_list.GetSelectedCount() != 1) return -1;
    const int row = m_list.GetFirstSelectedItem();
    return m_list.IsRowMasked(m_list.GetItemData(row)) ? -1 : row;
}

bool TextInPlace::IsOnText(QPoint place, int row) const {
    LVHITTESTINFO hit;
    hit.pt = FromQt(place);
    return m_list.SubItemHitTest(&hit) == row &&
           m_list.SubItemFromIndex(hit.iSubItem) == TodoColumn::Description;
}

// Nothing where the column isn't shown.
std::optional<CRect> TextInPlace::TextCell(int row) const {
    const auto columns = static_cast<int>(m_list.GetShownColumns().size());
    for (int column = 0; column < columns; ++column) {
        if (m_list.SubItemFromIndex(column) != TodoColumn::Description) continue;
        CRect cell;
        if (m_list.GetSubItemRect(row, column, LVIR_BOUNDS, &cell) != 0) return cell;
    }
    return std::nullopt;
}

void TextInPlace::Begin() {
    m_wait.stop();
    const int row = SelectedRow();
    if (row < 0 || IsOpen() || m_list.IsWindowVisible() == 0) return;
    m_list.EnsureVisible(row, 0);
    const std::optional<CRect> cell = TextCell(row);
    if (!cell) return;
    const auto& record = *ToDoOf(m_list.GetItemData(row));
    m_id = record.GetId();
    m_whole = record.DescriptionUtf8();
    const std::string line = ShownLine(m_whole).In(m_whole);
    m_field = new QLineEdit(FromUtf8(line), &m_widget);  // Qt's
    m_field->setAccessibleName(ToQt(m_list.GetColumns()[TodoColumn::Description].strName.View()));
    m_field->setGeometry(ToQt(*cell).intersected(m_widget.rect()));
    m_field->installEventFilter(this);
    m_field->selectAll();
    m_field->show();
    m_field->setFocus();
    // Whatever else the user turns to, rows may come and go with it.
    qApp->installEventFilter(this);
}

// The row that is edited is the one that is selected.
void TextInPlace::Follow() {
    const int row = IsOpen() ? SelectedRow() : -1;
    if (row < 0 || ToDoOf(m_list.GetItemData(row))->GetId() != m_id) return;
    m_list.EnsureVisible(row, 0);
    if (const std::optional<CRect> cell = TextCell(row)) {
        m_field->setGeometry(ToQt(*cell).intersected(m_widget.rect()));
    }
}

bool TextInPlace::Finish() {
    if (!IsOpen() || m_isSaving) return true;
    m_isSaving = true;
    QGuiApplication::inputMethod()->commit();
    const std::string text = ShownLine(m_whole).Replaced(m_whole, m_field->text().toStdString());
    const bool isSaved = text == m_whole || m_save(m_id, m_whole, text);
    m_isSaving = false;
    if (isSaved) {
        Close();
    } else if (m_field) {
        m_field->setFocus();
    }
    return isSaved;
}

void TextInPlace::Close() {
    qApp->removeEventFilter(this);
    if (!m_field) return;
    const bool hadFocus = m_field->hasFocus();
    m_field->removeEventFilter(this);
    m_field->deleteLater();
    m_field->hide();
    m_field = nullptr;
    if (hadFocus) m_list.SetFocus();
}

bool TextInPlace::LeadsAway(const QObject& watched, QEvent::Type type) const {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::Wheel:
            return watched.isWidgetType() && !IsWithin(&watched, *m_field);
        case QEvent::Resize:
            return &watched == &m_widget;
        default:
            return type == QEvent::Shortcut;
    }
}

void TextInPlace::ListEvent(const QEvent& event) {
    switch (event.type()) {
        case QEvent::MouseButtonPress: {
            m_wait.stop();
            const auto& press = static_cast<const QMouseEvent&>(event);
            const int row = SelectedRow();
            const QPoint place = m_widget.mapFromGlobal(press.globalPosition().toPoint());
            m_isPressed = press.button() == Qt::LeftButton && row >= 0 && IsOnText(place, row) &&
                          press.modifiers() == Qt::NoModifier;
            break;
        }
        case QEvent::MouseButtonRelease:
            if (m_isPressed) m_wait.start(QApplication::doubleClickInterval());
            m_isPressed = false;
            break;
        case QEvent::MouseButtonDblClick:
        case QEvent::ShortcutOverride:  // comes with each key
        case QEvent::Hide:
            m_wait.stop();
            break;
        default:
            break;
    }
}

bool TextInPlace::FieldEvent(const QEvent& event) {
    if (event.type() == QEvent::FocusOut) {
        const QWidget* popup = QApplication::activePopupWidget();
        if (!IsWithin(popup, *m_field)) Finish();
    }
    if (event.type() != QEvent::KeyPress) return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    if (key == Qt::Key_Escape) {
        Close();
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        Finish();
    } else {
        return false;
    }
    return true;
}

bool TextInPlace::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_field) return FieldEvent(*event);
    // Where the text can't be saved, what would lead away from it isn't done.
    if (IsOpen() && LeadsAway(*watched, event->type()) && !Finish()) return true;
    if (IsWithin(watched, m_widget)) ListEvent(*event);
    return false;
}

}  // namespace orvo::desktop
