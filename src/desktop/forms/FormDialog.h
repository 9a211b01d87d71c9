// What all forms do: scroll, save, and ask before something typed would be lost.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QVBoxLayout>
#include <functional>
#include <utility>

#include <desktop/forms/ForeignNotice.h>
#include <desktop/forms/FormKeeper.h>
#include <desktop/forms/FormSaver.h>

namespace orvo::desktop {

class FormDialog : public QDialog {
public:
    // The saver outlives the dialog.
    FormDialog(QWidget* parent, const QString& title, FormSaver& saver);

    // Where the fields go; its widget is `Page`.
    QVBoxLayout& Column() { return *m_column; }

    // Adds two columns, which stand side by side where the form has room for that.
    // Owner:    the form's, from then on.
    void AddColumns(QLayout* left, QLayout* right);

    // Where the program ends before the user has saved the form or given it up, what he has changed
    // is kept there. Null keeps nothing. `form` says what the form is about.
    void KeepIn(FormKeeper* keeper, const KeptForm& form);

    // Asked before each save; false goes back to the form.
    void SetQuestion(std::function<bool()> question) { m_maySave = std::move(question); }

    // Shows the form until the user is done with it.
    // Returns:  true after it was saved.
    bool Run();

    // Makes it as large as its fields have become, as far as the screen has room.
    void Grow();

    // Somebody else may have changed the record: the form shows it and says so.
    void TakeForeign();

    // Escape, Cancel and the window's own button end here.
    void reject() override;
    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Save();
    void Keep();
    enum class AboutGone { Nothing, BringBack, SaveAsNew };
    AboutGone AskAboutGone(bool isInTrash);
    void Compare();
    SaveResult SaveDecided();
    void TellFailure(const SaveResult& result);
    void AddButtons();
    QSize WantedSize() const;
    void ArrangeColumns();

    FormSaver& m_saver;
    FormKeeper* m_keeper = nullptr;
    KeptForm m_kept;      // all but its fields
    QJsonObject m_given;  // what the fields showed first
    bool m_isKept = false;
    bool m_isDone = false;
    std::function<bool()> m_maySave;
    ForeignNotice* m_notice;  // Qt's, as are those below
    QWidget* m_page;
    QVBoxLayout* m_column;
    QBoxLayout* m_columns = nullptr;
    int m_gap = 0;  // between them, in pixels
};

// Says why an entry can't be shown in a form.
void TellUnreadable(QWidget* parent, const QString& title, const SaveResult& result);

}  // namespace orvo::desktop
