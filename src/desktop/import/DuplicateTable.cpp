// Two addresses side by side on the screen, with what is to be chosen of them.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStyle>

#include <desktop/details/PhotoImage.h>
#include <desktop/import/DuplicateTable.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr int kPhotoSide = 96;  // pixels, of a screen without scaling
constexpr int kRoom = 4;        // around a value

// The ground of a value, which is tinted where the two differ. A click on it is one on its button.
class ValueCell : public QWidget {
public:
    ValueCell(bool differs, QRadioButton* radio) : m_differs(differs), m_radio(radio) {}

protected:
    void paintEvent(QPaintEvent*) override {
        if (!m_differs) return;
        // A tint of the colour of a selection, on light and on dark ground alike.
        constexpr int faint = 56;
        QColor colour = palette().color(QPalette::Highlight);
        colour.setAlpha(faint);
        QPainter(this).fillRect(rect(), colour);
    }
    void mousePressEvent(QMouseEvent* event) override {
        if (m_radio == nullptr || event->button() != Qt::LeftButton) return event->ignore();
        m_radio->setFocus(Qt::MouseFocusReason);
        m_radio->setChecked(true);
    }

private:
    bool m_differs;
    QRadioButton* m_radio;  // null where nothing is to be chosen
};

// Words of any length find room.
QString Breakable(QString text) {
    static const QRegularExpression longPart(R"((\S{20})(?=\S))");
    return text.replace(longPart, QString("\\1") + QChar(0x200b));
}

QLabel* MakeText(const QString& text) {
    auto* label = new QLabel(Breakable(text));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    label->setSizePolicy(policy);
    return label;
}

QLabel* MakePhoto(const std::string& bytes, qreal scale) {
    QImage image = PhotoImage(bytes, qRound(kPhotoSide * scale));
    if (image.isNull()) return MakeText(Text("The photo can't be shown."));
    image.setDevicePixelRatio(scale);
    auto* label = new QLabel;
    label->setPixmap(QPixmap::fromImage(image));
    label->setAccessibleName(Text("Photo"));
    return label;
}

void SetQuiet(QLabel& label, bool isQuiet) {
    label.setForegroundRole(isQuiet ? QPalette::PlaceholderText : QPalette::Text);
}

}  // namespace

DuplicateTable::DuplicateTable(const QString& first, const QString& second)
    : m_names{first, second} {
    setWidgetResizable(true);
    setBackgroundRole(QPalette::Base);
    setAccessibleName(Text("Both addresses, field by field"));
    // Qt scrolls only where Tab leads on within the table.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now != nullptr && widget() != nullptr && widget()->isAncestorOf(now)) {
            ensureWidgetVisible(now->parentWidget());
        }
    });
}

void DuplicateTable::Show(std::vector<DuplicateRow> rows) {
    m_rows = std::move(rows);
    m_ofSecond.clear();
    m_groups.clear();
    auto* content = new QWidget;
    auto* grid = new QGridLayout(content);
    grid->setVerticalSpacing(1);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    for (int side = 0; side < 2; ++side) {
        auto* heading = new QLabel("<b>" + m_names.at(side).toHtmlEscaped() + "</b>");
        heading->setContentsMargins(kRoom, kRoom, kRoom, kRoom);
        grid->addWidget(heading, 0, side + 1);
    }
    int line = 0;
    for (const DuplicateRow& row : m_rows) AddRow(*grid, ++line, row);
    grid->setRowStretch(line + 1, 1);
    setWidget(content);
    content->setBackgroundRole(QPalette::Base);
    content->setAutoFillBackground(true);
    verticalScrollBar()->setValue(0);
    // They come before what stands below, though they are newer.
    QWidget* last = this;
    for (auto* radio : content->findChildren<QRadioButton*>()) {
        setTabOrder(last, radio);
        last = radio;
    }
}

void DuplicateTable::AddRow(QGridLayout& grid, int line, const DuplicateRow& row) {
    QLabel* label = new QLabel(row.label);
    label->setTextFormat(Qt::PlainText);
    label->setContentsMargins(0, kRoom, kRoom, kRoom);
    SetQuiet(*label, true);
    grid.addWidget(label, line, 0, Qt::AlignTop | Qt::AlignTrailing);
    std::array<QRadioButton*, 2> radios{};
    if (!row.ofSecond.IsEmpty()) {
        QButtonGroup& group = *m_groups.emplace_back(std::make_unique<QButtonGroup>());
        for (std::size_t side = 0; side < radios.size(); ++side) {
            radios.at(side) = new QRadioButton;
            radios.at(side)->setAccessibleName(
                QString("%1, %2: %3").arg(row.label, m_names.at(side), row.texts.at(side)));
            radios.at(side)->setAccessibleDescription(Text("Differs"));
            group.addButton(radios.at(side));
        }
    }
    for (std::size_t side = 0; side < radios.size(); ++side) {
        grid.addWidget(MakeCell(row, side, radios.at(side)), line, static_cast<int>(side) + 1);
    }
    if (radios[0] != nullptr) radios.at(row.takesSecond ? 1 : 0)->setChecked(true);
    m_ofSecond.push_back(radios[1]);
}

QWidget* DuplicateTable::MakeCell(const DuplicateRow& row, std::size_t side, QRadioButton* radio) {
    auto* cell = new ValueCell(row.differs, radio);
    auto* layout = new QHBoxLayout(cell);
    layout->setContentsMargins(kRoom, kRoom, kRoom, kRoom);
    QLabel* value = row.photos.at(side).empty()
                        ? MakeText(row.texts.at(side))
                        : MakePhoto(row.photos.at(side), devicePixelRatioF());
    if (radio == nullptr) {
        layout->addSpacing(style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth) +
                           layout->spacing());
        SetQuiet(*value, !row.differs);
    } else {
        layout->addWidget(radio, 0, Qt::AlignTop);
        SetQuiet(*value, true);
        radio->setFocusPolicy(Qt::ClickFocus);  // Tab goes to the one that is chosen
        connect(radio, &QRadioButton::toggled, value, [value, radio](bool isChosen) {
            SetQuiet(*value, !isChosen);
            radio->setFocusPolicy(isChosen ? Qt::StrongFocus : Qt::ClickFocus);
        });
    }
    value->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    layout->addWidget(value, 1);
    return cell;
}

MergeChoices DuplicateTable::Choices() const {
    MergeChoices choices;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const bool takesSecond = m_ofSecond[i] != nullptr && m_ofSecond[i]->isChecked();
        if (takesSecond) choices.Add(m_rows[i].ofSecond);
    }
    return choices;
}

}  // namespace orvo::desktop
