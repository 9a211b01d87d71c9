// What all forms do: scroll, save, and ask before something typed would be lost.
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QVBoxLayout>

#include <desktop/forms/RecordSaver.h>

namespace orvo::desktop {

class FormDialog : public QDialog {
public:
    // The saver outlives the dialog.
    FormDialog(QWidget* parent, const QString& title, FormSaver& saver);

    // Where the fields go; its widget is `Page`.
    QVBoxLayout& Column() { return *m_column; }

    // Shows the form until the user is done with it.
    // Gives:  true after it was saved.
    bool Run();

    // Escape, Cancel and the window's own button end here.
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Save();
    bool AskToSaveAsNew();
    void TellFailure(const SaveResult& result);
    void AddButtons();
    void FitScreen();

    FormSaver& m_saver;
    QWidget* m_page;        // Qt's
    QVBoxLayout* m_column;  // the page's
};

// Tells why an entry can't be shown in a form.
void TellUnreadable(QWidget* parent, const QString& title, const SaveResult& result);

}  // namespace orvo::desktop
