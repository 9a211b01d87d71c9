// What commands work with, and how they say what became of them.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QMessageBox>
#include <QStatusBar>

#include <desktop/commands/CommandContext.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/EntryTexts.h>

namespace orvo::desktop {
namespace {

// Milliseconds for which the status bar shows a message.
constexpr int kMessageTime = 20000;

}  // namespace

void CommandContext::Refuse(const QString& refusal) const {
    if (!refusal.isEmpty()) QMessageBox::warning(&m_window, m_window.windowTitle(), refusal);
}

void CommandContext::Say(const QString& line) const {
    m_window.statusBar()->showMessage(line, kMessageTime);
}

void CommandContext::SayLeftOut(int count) const {
    if (count != 0) Say(LeftOutText(count));
}

void CommandContext::SayMasked() const {
    if (m_frame.Entries().SelectedCount() == 0) return;
    Say(Text("This is private and masked. To open or copy it, choose View, Show private entries."));
}

void CommandContext::ReportProblem(const std::string& problem) const {
    PrintProblem(problem);
    // A picture shows the counts.
    if (m_window.isVisible()) Say(ProblemText(problem));
}

bool CommandContext::IsFound(long status) const {
    if (status != 0) Refuse(Text("Another program has removed this entry."));
    return status == 0;
}

void CommandContext::ComeToFront(const std::string& token) const {
    // The platform takes it from there when the window asks to come to the front.
    if (!token.empty()) qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token));
    if (m_window.isMinimized()) m_window.showNormal();
    QWidget* asking = QApplication::activeModalWidget();
    QWidget& front = asking == nullptr ? m_window : *asking;
    front.raise();
    front.activateWindow();
}

void CommandContext::Refresh() const {
    m_services.fillCategories();
    m_frame.Entries().Refill();
}

}  // namespace orvo::desktop
