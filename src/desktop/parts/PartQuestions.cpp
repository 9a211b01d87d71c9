// What is asked where to-dos and their parts change.
// SPDX-License-Identifier: MIT
#include <QMessageBox>
#include <QPushButton>

#include <desktop/parts/PartQuestions.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {

PartsAnswer AskAboutOpenParts(QWidget* parent, int count) {
    QMessageBox box(
        QMessageBox::Question, Text("Complete to-do"),
        CountText("This to-do has %1 part that is still open. Complete that, too?",
                  "This to-do has %1 parts that are still open. Complete these, too?", count),
        QMessageBox::NoButton, parent);
    QPushButton* all = box.addButton(Text("Complete &all"), QMessageBox::AcceptRole);
    const QPushButton* only = box.addButton(Text("&Only this one"), QMessageBox::DestructiveRole);
    QPushButton* cancel = box.addButton(Text("Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(all);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() == all) return PartsAnswer::All;
    return box.clickedButton() == only ? PartsAnswer::OnlyThis : PartsAnswer::Cancel;
}

bool MayReplaceText(QWidget* parent, std::string_view theirs) {
    QMessageBox box(QMessageBox::Question, parent->window()->windowTitle(),
                    Text("Somebody else has changed this text, too: %1").arg(FromUtf8(theirs)),
                    QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    const QPushButton* mine = box.addButton(Text("&Keep mine"), QMessageBox::AcceptRole);
    box.addButton(Text("&Take theirs"), QMessageBox::RejectRole);
    box.exec();
    return box.clickedButton() == mine;
}

}  // namespace orvo::desktop
