// The kana index beside the address views.
// SPDX-License-Identifier: MIT
#include <QHBoxLayout>

#include <desktop/window/KanaPane.h>

namespace orvo::desktop {

// What was central until now is taken into the one that is from now on.
void KanaPane::PutInto(QMainWindow& window) {
    auto* both = new QWidget;
    auto* line = new QHBoxLayout(both);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(0);
    m_index = new KanaIndex;
    m_index->SetChooseListener(
        [this](KanaRow row) { GoToKanaRow(m_frame.Addresses().View(), row); });
    line->addWidget(window.takeCentralWidget(), 1);
    line->addWidget(m_index);
    window.setCentralWidget(both);
}

void KanaPane::Show() {
    if (!m_index) return;
    m_index->setVisible(m_frame.IsShowingAddresses());
    const std::pair rows(m_frame.Addresses().FillCount(), m_frame.Addresses().RowCount());
    if (!m_frame.IsShowingAddresses() || m_rows == rows) return;
    m_rows = rows;
    m_index->ShowEntries(FirstKanaEntries(m_frame.Addresses().View()));
}

}  // namespace orvo::desktop
