// The question before a to-do that repeats is completed.
// SPDX-License-Identifier: MIT
#include <QMessageBox>
#include <QPushButton>

#include <desktop/forms/EndOfSeries.h>
#include <desktop/forms/FormDialog.h>
#include <desktop/texts/Texts.h>
#include <exchange/calendar/ToDoSeries.h>

namespace orvo::desktop {

bool MayComplete(QWidget* parent, const CToDoRecord& record) {
    const QString title = Text("Complete to-do");
    bool isRepeating = false;
    if (const long status = ReadIsRepeating(record, isRepeating); status != 0) {
        TellUnreadable(parent, title,
                       {static_cast<StoreStatus>(status), record.GetTable().LastError()});
        return false;
    }
    if (!isRepeating) return true;
    QMessageBox box(QMessageBox::Question, title,
                    Text("This to-do repeats. Completing it ends the whole series."),
                    QMessageBox::NoButton, parent);
    const QPushButton* complete = box.addButton(Text("&Complete"), QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(Text("Cancel"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == complete;
}

}  // namespace orvo::desktop
