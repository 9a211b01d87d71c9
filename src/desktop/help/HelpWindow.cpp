// A window with a page of help, beside the main window.
// SPDX-License-Identifier: MIT
#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include <desktop/help/HelpWindow.h>

namespace orvo::desktop {
namespace {

constexpr int kMargin = 12;  // pixels around a page
constexpr int kPageWidth = 480;

}  // namespace

HelpWindow::HelpWindow(QWidget& parent, const QString& title, QTextBrowser& browser)
    : QDialog(&parent), m_browser(browser) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(title);
    m_browser.setAccessibleName(title);
    m_browser.setOpenExternalLinks(true);
    m_browser.setFrameShape(QFrame::NoFrame);
    m_browser.document()->setDocumentMargin(kMargin);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    // Return is for what has the keys.
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    auto* line = new QHBoxLayout;
    line->addWidget(&m_browser, 1);
    layout->addLayout(line);
    layout->addWidget(buttons);
    m_browser.setFocus();
}

void HelpWindow::PutBeside(QWidget& widget) {
    auto* line = qobject_cast<QBoxLayout*>(layout()->itemAt(0)->layout());
    line->insertWidget(0, &widget);
}

HelpWindow* NewHelpWindow(QWidget& parent, const QString& title, const QString& html) {
    auto* window = new HelpWindow(parent, title, *new QTextBrowser);
    QTextBrowser& browser = window->Browser();
    browser.setHtml(html);
    browser.document()->setTextWidth(kPageWidth);
    const int height = static_cast<int>(browser.document()->size().height());
    const int chrome = window->sizeHint().height() - browser.sizeHint().height();
    const int room = parent.screen()->availableSize().height() * 3 / 4;
    window->resize(kPageWidth + 4 * kMargin, std::min(height + chrome + kMargin, room));
    return window;
}

}  // namespace orvo::desktop
