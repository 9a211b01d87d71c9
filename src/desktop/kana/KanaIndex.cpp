// A strip with the rows of the kana table, each of which leads to its first entry.
// SPDX-License-Identifier: MIT
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

#include <desktop/kana/KanaIndex.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr int kMargin = 2;
constexpr int kTallestButton = 40;

// Names of kana are the same in every language.
constexpr std::array<const char*, kKanaRowCount> kLabels{"あ", "か", "さ", "た", "な", "は",
                                                         "ま", "や", "ら", "わ", "他"};
constexpr int kOtherRow = static_cast<int>(KanaRow::Other);

QString SpokenName(int row) {
    if (row == kOtherRow) return Text("Other entries");
    const QString label = FromUtf8(kLabels[static_cast<std::size_t>(row)]);
    return Text("Entries of the row %1").arg(label);
}

}  // namespace

KanaIndex::KanaIndex(QWidget* parent) : QWidget(parent) {
    setAccessibleName(Text("Kana index"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(0);
    for (int row = 0; row < kKanaRowCount; ++row) {
        auto* button = new QToolButton;
        button->setText(FromUtf8(kLabels[static_cast<std::size_t>(row)]));
        button->setAutoRaise(true);
        button->setAccessibleName(SpokenName(row));
        button->setToolTip(SpokenName(row));
        button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
        button->setMaximumHeight(std::max(kTallestButton, button->sizeHint().height()));
        button->installEventFilter(this);
        connect(button, &QToolButton::clicked, this, [this, row] {
            m_current = row;
            ChooseTabStop();
            if (m_chosen) m_chosen(static_cast<KanaRow>(row));
        });
        column->addWidget(button);
        m_buttons[static_cast<std::size_t>(row)] = button;
    }
    column->addStretch();
    KanaEntries none;
    none.fill(-1);
    ShowEntries(none);
}

void KanaIndex::ShowEntries(const KanaEntries& entries) {
    for (std::size_t row = 0; row < entries.size(); ++row) {
        m_buttons[row]->setEnabled(entries[row] >= 0);
    }
    ChooseTabStop();
}

// A row that has lost its entries leaves its place to another.
void KanaIndex::ChooseTabStop() {
    const auto isEnabled = [](const QToolButton* button) { return button->isEnabled(); };
    if (!isEnabled(m_buttons[static_cast<std::size_t>(m_current)])) {
        const auto found = std::ranges::find_if(m_buttons, isEnabled);
        m_current = found == m_buttons.end() ? 0 : static_cast<int>(found - m_buttons.begin());
    }
    for (int row = 0; row < kKanaRowCount; ++row) {
        QToolButton* button = m_buttons[static_cast<std::size_t>(row)];
        button->setFocusPolicy(row == m_current ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

void KanaIndex::GoTo(int row, int step) {
    for (; row >= 0 && row < kKanaRowCount; row += step) {
        QToolButton* button = m_buttons[static_cast<std::size_t>(row)];
        if (!button->isEnabled()) continue;
        m_current = row;
        ChooseTabStop();
        button->setFocus(Qt::OtherFocusReason);
        return;
    }
}

bool KanaIndex::KeyPressed(int row, int key) {
    switch (key) {
        case Qt::Key_Up:
            GoTo(row - 1, -1);
            return true;
        case Qt::Key_Down:
            GoTo(row + 1, 1);
            return true;
        case Qt::Key_Home:
            GoTo(0, 1);
            return true;
        case Qt::Key_End:
            GoTo(kOtherRow, -1);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            m_buttons[static_cast<std::size_t>(row)]->click();
            return true;
        default:
            return false;
    }
}

bool KanaIndex::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const auto found = std::ranges::find(m_buttons, watched);
    if (found == m_buttons.end()) return false;
    const auto row = static_cast<int>(found - m_buttons.begin());
    return KeyPressed(row, static_cast<QKeyEvent*>(event)->key());
}

bool GoToKanaRow(CDetailViewAddrInf& view, KanaRow row) {
    const int item = FirstKanaEntries(view)[static_cast<std::size_t>(row)];
    if (item < 0) return false;
    view.DV_SelectAllItems(0);
    view.DV_SelectAndScroll(item);
    return true;
}

}  // namespace orvo::desktop
