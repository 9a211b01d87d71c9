// The dialog of all options.
// SPDX-License-Identifier: MIT
#include <QDialog>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <desktop/options/OptionsDialog.h>
#include <desktop/options/OptionsPages.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

class OptionsDialog : public QDialog {
public:
    OptionsDialog(QWidget* parent, COrvoDesktopOptions& options, const std::string& store)
        : QDialog(parent), m_options(options), m_pages(MakeOptionsPages(options, store)) {
        setWindowTitle(Text("Options"));
        m_tabs = new QTabWidget;
        for (const PageRow& row : m_pages) m_tabs->addTab(row.page, row.title);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        buttons->button(QDialogButtonBox::Ok)->setText(Text("OK"));
        buttons->button(QDialogButtonBox::Cancel)->setText(Text("Cancel"));
        connect(buttons, &QDialogButtonBox::accepted, this, [this] { Agree(); });
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        auto* column = new QVBoxLayout(this);
        column->addWidget(m_tabs);
        column->addWidget(buttons);
    }

private:
    void Agree() {
        for (const PageRow& row : m_pages) {
            if (row.page->Confirm()) continue;
            m_tabs->setCurrentWidget(row.page);
            return;
        }
        bool isKept = true;
        for (const PageRow& row : m_pages) isKept = row.page->Save(m_options) && isKept;
        if (isKept) return accept();
        QMessageBox::warning(this, windowTitle(),
                             Text("The settings file can't be written. Remove the cause, then try "
                                  "again."));
    }

    COrvoDesktopOptions& m_options;
    std::vector<PageRow> m_pages;
    QTabWidget* m_tabs = nullptr;  // Qt's
};

}  // namespace

bool EditOptions(QWidget* parent, COrvoDesktopOptions& options, const std::string& store) {
    COrvoDesktopOptions chosen = options;
    OptionsDialog dialog(parent, chosen, store);
    if (dialog.exec() != QDialog::Accepted) return false;
    options = chosen;
    return true;
}

}  // namespace orvo::desktop
