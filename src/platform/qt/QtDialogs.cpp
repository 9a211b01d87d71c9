// Menus and questions on the screen: each waits until the user has answered.
// SPDX-License-Identifier: MIT
#include <QAction>
#include <QCalendarWidget>
#include <QDate>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QVBoxLayout>

#include <platform/qt/QtConvert.h>
#include <platform/qt/QtDialogs.h>

namespace orvo {

namespace {

struct NumberRow {
    UINT ours;
    int qt;
};
constexpr NumberRow kMessageButtons[] = {
    {MB_OK, QMessageBox::Ok},
    {MB_OKCANCEL, QMessageBox::Ok | QMessageBox::Cancel},
    {MB_YESNO, QMessageBox::Yes | QMessageBox::No},
    {MB_YESNOCANCEL, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel},
};
constexpr NumberRow kIcons[] = {
    {MB_ICONSTOP, QMessageBox::Critical},
    {MB_ICONQUESTION, QMessageBox::Question},
    {MB_ICONEXCLAMATION, QMessageBox::Warning},
    {MB_ICONINFORMATION, QMessageBox::Information},
};
constexpr NumberRow kAnswers[] = {
    {IDOK, QMessageBox::Ok}, {IDYES, QMessageBox::Yes}, {IDNO, QMessageBox::No}};

template <std::size_t Count>
int Find(const NumberRow (&rows)[Count], UINT number, int other) {
    for (const NumberRow& row : rows) {
        if (row.ours == number) return row.qt;
    }
    return other;
}

void Fill(QMenu& shown, const CMenu& menu) {
    for (int position = 0; position < menu.GetMenuItemCount(); ++position) {
        const auto item = static_cast<UINT>(position);
        CString text;
        menu.GetMenuString(item, text, MF_BYPOSITION);
        if (const CMenu* submenu = menu.GetSubMenu(position)) {
            Fill(*shown.addMenu(ToQt(text.View())), *submenu);
            continue;
        }
        const UINT state = menu.GetMenuState(item, MF_BYPOSITION);
        if ((state & MF_SEPARATOR) != 0) {
            shown.addSeparator();
            continue;
        }
        QAction& action = *shown.addAction(ToQt(text.View()));
        action.setData(menu.GetMenuItemID(position));
        action.setEnabled((state & (MF_GRAYED | MF_DISABLED)) == 0);
        action.setCheckable((state & MF_CHECKED) != 0);
        action.setChecked((state & MF_CHECKED) != 0);
    }
}

QPoint Aligned(CPoint point, UINT flags, QSize size) {
    if ((flags & TPM_CENTERALIGN) != 0) point.x -= size.width() / 2;
    if ((flags & TPM_RIGHTALIGN) != 0) point.x -= size.width();
    if ((flags & TPM_VCENTERALIGN) != 0) point.y -= size.height() / 2;
    if ((flags & TPM_BOTTOMALIGN) != 0) point.y -= size.height();
    return ToQt(point);
}

}  // namespace

// While a menu or box is shown its owner may go, and take it along: hence the guarded pointers.
UINT ShowPopupMenu(const CMenu& menu, UINT flags, CPoint point, QWidget* owner) {
    const QPointer<QMenu> shown = new QMenu(owner);
    Fill(*shown, menu);
    const QAction* chosen = shown->exec(Aligned(point, flags, shown->sizeHint()));
    const UINT command = shown && chosen ? chosen->data().toUInt() : 0;
    delete shown.data();
    return command;
}

int AskInMessageBox(const CString& text, UINT type, QWidget* owner) {
    constexpr UINT kButtonMask = 0x0F;
    constexpr UINT kIconMask = 0xF0;
    const QPointer<QMessageBox> box = new QMessageBox(owner);
    box->setWindowTitle(QGuiApplication::applicationDisplayName());
    box->setTextFormat(Qt::PlainText);
    box->setText(ToQt(text.View()));
    box->setIcon(
        static_cast<QMessageBox::Icon>(Find(kIcons, type & kIconMask, QMessageBox::NoIcon)));
    box->setStandardButtons(
        QMessageBox::StandardButtons(Find(kMessageButtons, type & kButtonMask, QMessageBox::Ok)));
    const int chosen = box->exec();
    delete box.data();
    for (const NumberRow& row : kAnswers) {
        if (row.qt == chosen) return static_cast<int>(row.ours);
    }
    return IDCANCEL;
}

bool AskForDay(CTime& day, QWidget* owner) {
    const QPointer<QDialog> dialog = new QDialog(owner);
    dialog->setWindowTitle(QGuiApplication::applicationDisplayName());
    auto* calendar = new QCalendarWidget;
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* column = new QVBoxLayout(dialog);
    column->addWidget(calendar);
    column->addWidget(buttons);
    const QDate start(day.GetYear(), day.GetMonth(), day.GetDay());
    if (start.isValid()) calendar->setSelectedDate(start);
    QObject::connect(calendar, &QCalendarWidget::activated, dialog.data(), &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog.data(), &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog.data(), &QDialog::reject);
    const bool isChosen = dialog->exec() == QDialog::Accepted && dialog;
    if (isChosen) {
        const QDate chosen = calendar->selectedDate();
        day = CTime(chosen.year(), chosen.month(), chosen.day(), 0, 0, 0);
    }
    delete dialog.data();
    return isChosen;
}

}  // namespace orvo
