// A store in a file, and hands that work on forms while they are shown.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QInputMethodEvent>
#include <QMessageBox>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <deque>
#include <functional>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <contracts/RecordStore.h>
#include <libraries/quire/SqliteEngine.h>

namespace orvo::desktop {

// Does one step after the other, each at the modal window that is on top then. A window that is
// still there after the last step fails the test and is closed.
class Hands : public QObject {
public:
    using Step = std::function<void(QDialog&)>;

    explicit Hands(std::deque<Step> steps) : m_steps(std::move(steps)) { Next(); }
    ~Hands() override { EXPECT_TRUE(m_steps.empty()) << m_steps.size() << " steps were left"; }

protected:
    void customEvent(QEvent*) override { Do(); }

private:
    void Next() { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }
    void Do() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        Next();
        if (dialog == nullptr) return;
        if (m_steps.empty()) {
            ADD_FAILURE() << "a window stays open: " << dialog->windowTitle().toStdString();
            dialog->done(QDialog::Rejected);
            return;
        }
        const Step step = std::move(m_steps.front());
        m_steps.pop_front();
        step(*dialog);
    }

    std::deque<Step> m_steps;
};

template <class Widget>
Widget& Field(QDialog& form, const char* name) {
    auto* field = form.findChild<Widget*>(name);
    if (field == nullptr) throw std::runtime_error(std::string("no field ") + name);
    return *field;
}

// Replaces the text of a field, as an input method does it.
inline void Type(QDialog& form, const char* name, const QString& text) {
    auto& field = Field<QWidget>(form, name);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&field, &event);
}

inline void Press(QDialog& dialog, const char* text) {
    for (auto* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->text().remove('&') != text) continue;
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
        return;
    }
    ADD_FAILURE() << "no button " << text;
}

inline void Save(QDialog& dialog) {
    Press(dialog, "Save");
}
inline void Escape(QDialog& dialog) {
    QTest::keyClick(&dialog, Qt::Key_Escape);
}
inline void Discard(QDialog& dialog) {
    Press(dialog, "Discard");
}
inline void Ok(QDialog& dialog) {
    QTest::keyClick(&dialog, Qt::Key_Return);
}

// The store as one program has it open.
struct OpenStore {
    explicit OpenStore(const std::string& path)
        : engine(SqliteEngine::Open(path, error)), addresses(*engine), toDos(*engine) {
        engine->SetBusyTimeout(0);
    }
    std::string error;
    std::unique_ptr<SqliteEngine> engine;
    CAddressTable addresses;
    CToDoTable toDos;
};

class FormStore {
protected:
    QTemporaryDir folder;
    std::string path = folder.filePath("forms.orvo").toStdString();
    OpenStore own{path};
    OpenStore other{path};  // that of another program
};

}  // namespace orvo::desktop
