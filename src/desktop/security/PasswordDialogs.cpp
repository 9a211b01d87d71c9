// The dialogs in which the user gives his password, and chooses another one.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>

#include <desktop/security/PasswordDialogs.h>
#include <desktop/texts/Texts.h>
#include <host/Password.h>

namespace orvo::desktop {
namespace {

constexpr int kFieldWidth = 28;  // characters

// Fields that hide what is typed, and a line below that says what is wrong with it.
class PasswordDialog : public QDialog {
public:
    // `check` returns what is wrong; an empty text closes the dialog.
    PasswordDialog(QWidget* parent, const QString& title, const QString& agree,
                   std::function<QString()> check)
        : QDialog(parent), m_check(std::move(check)) {
        setWindowTitle(title);
        auto* column = new QVBoxLayout(this);
        column->addLayout(&m_fields);
        m_problem.setWordWrap(true);
        m_problem.setMinimumHeight(2 * fontMetrics().height());
        column->addWidget(&m_problem);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        buttons->button(QDialogButtonBox::Ok)->setText(agree);
        buttons->button(QDialogButtonBox::Cancel)->setText(Text("Cancel"));
        connect(buttons, &QDialogButtonBox::accepted, this, [this] { Agree(); });
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        m_buttons = buttons;
    }

    QLineEdit& AddField(const QString& label) {
        auto* field = new QLineEdit;
        field->setEchoMode(QLineEdit::Password);
        field->setInputMethodHints(Qt::ImhHiddenText | Qt::ImhSensitiveData);
        field->setMinimumWidth(kFieldWidth * fontMetrics().averageCharWidth());
        m_fields.addRow(label, field);
        return *field;
    }

    bool Run() {
        // Behind the fields in the order of the Tab key.
        layout()->addWidget(m_buttons);
        return exec() == QDialog::Accepted;
    }

private:
    void Agree() {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        const QString problem = m_check();
        QApplication::restoreOverrideCursor();
        if (problem.isEmpty()) return accept();
        m_problem.setText(problem);
        QLineEdit* first = findChild<QLineEdit*>();
        for (QLineEdit* field : findChildren<QLineEdit*>()) field->clear();
        first->setFocus();
    }

    std::function<QString()> m_check;
    QFormLayout m_fields;
    QLabel m_problem;
    QDialogButtonBox* m_buttons = nullptr;  // Qt's
};

TypedPassword TypedIn(const QLineEdit& field) {
    return TypedPassword(field.text().toStdString());
}

QString WrongPassword() {
    return Text("The password is wrong.");
}

}  // namespace

bool AskForPassword(QWidget* parent) {
    if (!IsPasswordSet()) return true;
    QLineEdit* typed = nullptr;
    PasswordDialog dialog(parent, Text("Unlock private entries"), Text("&Unlock"), [&typed] {
        return IsPassword(TypedIn(*typed)) ? QString() : WrongPassword();
    });
    typed = &dialog.AddField(Text("&Password:"));
    return dialog.Run();
}

bool ChoosePassword(QWidget* parent) {
    QLineEdit* old = nullptr;
    QLineEdit* first = nullptr;
    QLineEdit* second = nullptr;
    const auto check = [&]() -> QString {
        if (old && !IsPassword(TypedIn(*old))) return WrongPassword();
        const TypedPassword chosen = TypedIn(*first);
        if (chosen.IsEmpty()) return Text("The new password is empty.");
        if (!(chosen == TypedIn(*second))) {
            return Text("The new password and its repetition differ.");
        }
        return SetPassword(chosen) ? QString()
                                   : Text("The password can't be kept in the settings file.");
    };
    PasswordDialog dialog(parent, Text("Choose a password"), Text("&Set password"), check);
    if (IsPasswordSet()) old = &dialog.AddField(Text("&Old password:"));
    first = &dialog.AddField(Text("&New password:"));
    second = &dialog.AddField(Text("&Repeat it:"));
    return dialog.Run();
}

}  // namespace orvo::desktop
