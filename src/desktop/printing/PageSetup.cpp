// Paper, orientation and margins of what is printed, as the user set them last.
// SPDX-License-Identifier: MIT
#include <QLocale>
#include <QMarginsF>
#include <QRectF>
#include <QSizeF>
#include <QStringList>

#include <desktop/printing/PageSetup.h>
#include <host/SettingText.h>

namespace orvo::desktop {
namespace {

constexpr const char* kSection = "Printing";
constexpr const char* kPaperKey = "Paper";
constexpr const char* kOrientationKey = "Orientation";
constexpr const char* kMarginsKey = "Margins";
constexpr const char* kPortrait = "portrait";
constexpr const char* kLandscape = "landscape";

// Millimetres.
constexpr qreal kUsualMargin = 15;
constexpr qreal kLeastPaper = 50;
constexpr qreal kMostPaper = 2000;
constexpr qreal kLeastArea = 40;

QString Read(const char* key) {
    return QString::fromStdString(SettingText(kSection, key));
}

bool Write(const char* key, const QString& text) {
    return SetSettingText(kSection, key, text.toStdString());
}

// Fails:    with an empty list.
QList<qreal> ReadNumbers(const QString& text, QChar separator, int count) {
    QList<qreal> numbers;
    for (const QString& word : text.split(separator)) {
        bool isNumber = false;
        numbers.append(word.toDouble(&isNumber));
        if (!isNumber) return {};
    }
    return numbers.size() == count ? numbers : QList<qreal>{};
}

QPageSize UsualPaper() {
    const bool usesLetter = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(usesLetter ? QPageSize::Letter : QPageSize::A4);
}

// The name of a standard size, such as A4, or width and height in millimetres, such as 100x150.
QPageSize PaperOf(const QString& text) {
    for (int id = 0; id <= QPageSize::LastPageSize; ++id) {
        const auto size = static_cast<QPageSize::PageSizeId>(id);
        if (id != QPageSize::Custom && QPageSize::key(size) == text) return QPageSize(size);
    }
    const QList<qreal> sides = ReadNumbers(text, 'x', 2);
    const auto fits = [](qreal side) { return side >= kLeastPaper && side <= kMostPaper; };
    if (sides.isEmpty() || !fits(sides[0]) || !fits(sides[1])) return UsualPaper();
    return QPageSize(QSizeF(sides[0], sides[1]), QPageSize::Millimeter);
}

QString NameOf(const QPageSize& paper) {
    if (paper.id() != QPageSize::Custom) return paper.key();
    const QSizeF size = paper.size(QPageSize::Millimeter);
    return QString("%1x%2").arg(size.width()).arg(size.height());
}

QMarginsF UsualMargins() {
    return {kUsualMargin, kUsualMargin, kUsualMargin, kUsualMargin};
}

bool LeavesRoom(const QPageLayout& layout) {
    const QSizeF area = layout.paintRect(QPageLayout::Millimeter).size();
    return area.width() >= kLeastArea && area.height() >= kLeastArea;
}

}  // namespace

QPageLayout LoadPageLayout() {
    const QPageSize paper = PaperOf(Read(kPaperKey));
    const auto orientation =
        Read(kOrientationKey) == kLandscape ? QPageLayout::Landscape : QPageLayout::Portrait;
    const QPageLayout usual(paper, orientation, UsualMargins(), QPageLayout::Millimeter);
    const QList<qreal> sides = ReadNumbers(Read(kMarginsKey), ' ', 4);
    if (sides.isEmpty()) return usual;
    QPageLayout layout = usual;
    const bool isSet = layout.setMargins({sides[0], sides[1], sides[2], sides[3]});
    return isSet && LeavesRoom(layout) ? layout : usual;
}

bool SavePageLayout(const QPageLayout& layout) {
    const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
    QStringList sides;
    for (const qreal side : {margins.left(), margins.top(), margins.right(), margins.bottom()}) {
        sides.append(QString::number(side));
    }
    const bool isLandscape = layout.orientation() == QPageLayout::Landscape;
    return Write(kPaperKey, NameOf(layout.pageSize())) &&
           Write(kOrientationKey, isLandscape ? kLandscape : kPortrait) &&
           Write(kMarginsKey, sides.join(' '));
}

}  // namespace orvo::desktop
