// How many entries there are and are selected, in the status bar.
// SPDX-License-Identifier: MIT
#include <QLocale>

#include <desktop/texts/Texts.h>
#include <desktop/window/StatusCounts.h>

namespace orvo::desktop {
namespace {

constexpr int kBarWidth = 160;
// Milliseconds until a bar shows: what is done sooner needs none.
constexpr int kBarPatience = 300;

}  // namespace

void StatusCounts::PutInto(QStatusBar& bar) {
    constexpr int kGap = 8;
    m_label.setContentsMargins(kGap, 0, kGap, 0);
    bar.addWidget(&m_label);
    m_read.setAccessibleName(Text("Read so far"));
    m_read.setMaximumWidth(kBarWidth);
    m_read.hide();
    bar.addPermanentWidget(&m_read);
    // Qt hides the counts behind a message only where they show already, and may show them later.
    QObject::connect(&bar, &QStatusBar::messageChanged, &m_label,
                     [this](const QString& message) { m_label.setVisible(message.isEmpty()); });
}

void StatusCounts::ShowReading(std::optional<int> percent) {
    if (!percent) m_reading.invalidate();
    if (percent && !m_reading.isValid()) m_reading.start();
    m_read.setValue(percent.value_or(0));
    m_read.setVisible(percent && m_reading.hasExpired(kBarPatience));
}

void StatusCounts::Show(ShownEntries& entries) {
    ShowReading(entries.PercentRead());
    const int selected = entries.SelectedRowCount();
    QString all = entries.CountedText(entries.CountOfAll());
    if (entries.IsFinding()) {
        const QString found = !entries.IsLooking() ? Text("%1 of %2")
                              : entries.IsWhole()  ? Text("%1 of %2 found")
                                                   : Text("%1 of %2 found, still looking...");
        all = found.arg(QLocale().toString(entries.RowCount()), all);
    }
    m_label.setText(
        selected == 0 ? all : Text("%1 (%2 selected)").arg(all, QLocale().toString(selected)));
}

}  // namespace orvo::desktop
