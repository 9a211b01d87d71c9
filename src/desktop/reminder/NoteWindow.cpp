// A note in a window of its own, where no service shows notifications.
// SPDX-License-Identifier: MIT
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <desktop/reminder/NoteWindow.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr int kTextWidth = 48;  // characters

class NoteWindow : public QDialog {
public:
    NoteWindow(QWidget* parent, const Note& note,
               const std::function<void(const std::string&)>& answered)
        : QDialog(parent) {
        setAttribute(Qt::WA_DeleteOnClose);
        setAttribute(Qt::WA_ShowWithoutActivating);
        setWindowTitle(note.title);
        auto* text = new QLabel(note.body);
        text->setTextFormat(Qt::PlainText);
        text->setTextInteractionFlags(Qt::TextSelectableByMouse);
        text->setWordWrap(true);
        text->setMinimumWidth(kTextWidth * fontMetrics().averageCharWidth());
        auto* column = new QVBoxLayout(this);
        column->addWidget(text);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
        buttons->button(QDialogButtonBox::Close)->setText(Text("&Close"));
        for (const Note::Button& each : note.buttons) {
            QPushButton* button = buttons->addButton(each.label, QDialogButtonBox::ActionRole);
            connect(button, &QPushButton::clicked, this, [this, answered, answer = each.answer] {
                done(QDialog::Accepted);
                answered(answer);
            });
        }
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        connect(this, &QDialog::rejected, this, [answered, answer = note.closed] {
            if (!answer.empty()) answered(answer);
        });
        column->addWidget(buttons);
        // Later, as the parent may not be shown yet.
        m_show.setSingleShot(true);
        connect(&m_show, &QTimer::timeout, this, &QWidget::show);
        m_show.start(0);
    }

private:
    QTimer m_show;
};

}  // namespace

void ShowNote(QWidget* parent, const Note& note,
              const std::function<void(const std::string& answer)>& answered) {
    new NoteWindow(parent, note, answered);  // its own, or the parent's
}

}  // namespace orvo::desktop
