// How many entries there are and are selected, in the status bar.
// SPDX-License-Identifier: MIT
#include <QLocale>

#include <desktop/texts/Texts.h>
#include <desktop/window/StatusCounts.h>

namespace orvo::desktop {

void StatusCounts::PutInto(QStatusBar& bar) {
    constexpr int kGap = 8;
    m_label.setContentsMargins(kGap, 0, kGap, 0);
    bar.addWidget(&m_label);
    // Qt hides the counts behind a message only where they show already, and may show them later.
    QObject::connect(&bar, &QStatusBar::messageChanged, &m_label,
                     [this](const QString& message) { m_label.setVisible(message.isEmpty()); });
}

void StatusCounts::Show(ShownEntries& entries) {
    const int selected = entries.SelectedCount();
    QString all = entries.CountedText(entries.Find().CountOfAll());
    if (entries.Find().IsOn()) {
        const QString found = !entries.Find().IsLooking() ? Text("%1 of %2")
                              : entries.Find().IsWhole()  ? Text("%1 of %2 found")
                                                         : Text("%1 of %2 found, still looking...");
        all = found.arg(QLocale().toString(entries.RowCount()), all);
    }
    m_label.setText(
        selected == 0 ? all : Text("%1 (%2 selected)").arg(all, QLocale().toString(selected)));
}

}  // namespace orvo::desktop
