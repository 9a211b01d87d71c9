// A store in a file, and hands that work on forms while they are shown.
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <contract/RecordValues.h>
#include <desktop/forms/AddressForm.h>
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

// Types behind the text of a field.
inline void Append(QDialog& form, const char* name, const QString& text) {
    auto& field = Field<QWidget>(form, name);
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClick(&field, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(&field, text);
}

inline QAbstractButton* Button(QDialog& dialog, const std::string& text) {
    for (auto* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->text().remove('&').toStdString() == text) return button;
    }
    ADD_FAILURE() << "no button " << text;
    return nullptr;
}

inline void Press(QDialog& dialog, const char* text) {
    QAbstractButton* button = Button(dialog, text);
    if (button == nullptr) return;
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
}

inline Hands::Step Pressing(const char* text) {
    return [text](QDialog& dialog) { Press(dialog, text); };
}
inline void Save(QDialog& dialog) {
    Press(dialog, "Save");
}
inline void Escape(QDialog& dialog) {
    QTest::keyClick(&dialog, Qt::Key_Escape);
}
inline void Ok(QDialog& dialog) {
    QTest::keyClick(&dialog, Qt::Key_Return);
}

// Types into the fields from top to bottom, and agrees.
inline Hands::Step Typing(const QStringList& texts) {
    return [texts](QDialog& dialog) {
        const auto fields = dialog.findChildren<QLineEdit*>();
        ASSERT_EQ(fields.size(), texts.size());
        for (qsizetype i = 0; i < texts.size(); ++i) QTest::keyClicks(fields[i], texts[i]);
        Ok(dialog);
    };
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

// A record in its form, which `kEdit` shows.
template <class Record, auto kEdit>
class FormHands : protected FormStore {
protected:
    bool Edit(std::deque<Hands::Step> steps) {
        const Hands hands(std::move(steps));
        return kEdit(nullptr, TableOf(own), record, nullptr);
    }
    // Does something in the form, and saves it.
    void Save(const Hands::Step& step) {
        EXPECT_TRUE(Edit({[&](QDialog& form) {
            step(form);
            desktop::Save(form);
        }}));
    }
    // The record as another program reads it.
    std::unique_ptr<Record> Stored() {
        auto present = std::make_unique<Record>(TableOf(other));
        EXPECT_EQ(TableOf(other).Find(record.GetId(), *present), 0);
        return present;
    }

    static auto& TableOf(OpenStore& store) {
        if constexpr (std::is_same_v<Record, CToDoRecord>) {
            return store.toDos;
        } else {
            return store.addresses;
        }
    }

    Record record{TableOf(own)};
};

class AddressFormFixture : public testing::Test, protected FormHands<CAddressRecord, EditAddress> {
protected:
    std::string Stored(AddressField field) { return std::string(FormHands::Stored()->Utf8(field)); }
};

}  // namespace orvo::desktop
