// The pictures of the buttons that choose a view.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <span>

#include <desktop/views/ViewIcons.h>

namespace orvo::desktop {
namespace {

// A picture is made of bars on a field of 16 by 16.
constexpr int kField = 16;

constexpr QRect kListBars[] = {{1, 3, 2, 2},  {5, 3, 10, 2}, {1, 7, 2, 2},
                               {5, 7, 10, 2}, {1, 11, 2, 2}, {5, 11, 10, 2}};
constexpr QRect kLargeBars[] = {{2, 2, 5, 5}, {9, 2, 5, 5}, {2, 9, 5, 5}, {9, 9, 5, 5}};
constexpr QRect kSmallBars[] = {{1, 2, 3, 3},  {5, 3, 3, 1},  {9, 2, 3, 3},  {13, 3, 2, 1},
                                {1, 7, 3, 3},  {5, 8, 3, 1},  {9, 7, 3, 3},  {13, 8, 2, 1},
                                {1, 12, 3, 3}, {5, 13, 3, 1}, {9, 12, 3, 3}, {13, 13, 2, 1}};
constexpr QRect kCardBars[] = {{1, 3, 14, 3},  {1, 6, 1, 7}, {14, 6, 1, 7},
                               {1, 12, 14, 1}, {4, 8, 8, 1}, {4, 10, 5, 1}};
constexpr QRect kToDoBars[] = {{1, 2, 5, 1}, {1, 6, 5, 1},  {1, 2, 1, 5},  {5, 2, 1, 5},
                               {8, 4, 7, 1}, {1, 9, 5, 1},  {1, 13, 5, 1}, {1, 9, 1, 5},
                               {5, 9, 1, 5}, {8, 11, 7, 1}, {3, 4, 1, 1}};
constexpr QRect kBirthdayBars[] = {{8, 1, 1, 2},  {7, 4, 3, 3},   {2, 8, 13, 1}, {2, 9, 1, 6},
                                   {14, 9, 1, 6}, {2, 14, 13, 1}, {4, 11, 9, 1}};

struct BarsOfView {
    ViewKind kind;
    std::span<const QRect> bars;
};
const BarsOfView kBars[] = {
    {ViewKind::List, kListBars},        {ViewKind::LargeIcons, kLargeBars},
    {ViewKind::SmallIcons, kSmallBars}, {ViewKind::Cards, kCardBars},
    {ViewKind::ToDos, kToDoBars},       {ViewKind::Birthdays, kBirthdayBars}};

class BarsEngine : public QIconEngine {
public:
    explicit BarsEngine(std::span<const QRect> bars) : m_bars(bars) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor colour = QApplication::palette().color(group, QPalette::ButtonText);
        for (const QRect& bar : m_bars) painter->fillRect(ScaledTo(place, bar), colour);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new BarsEngine(*this); }

private:
    // Edges come to lie on whole pixels.
    static QRect ScaledTo(const QRect& place, const QRect& bar) {
        const auto scaled = [](int at, int whole) { return at * whole / kField; };
        const int left = scaled(bar.left(), place.width());
        const int top = scaled(bar.top(), place.height());
        const int right = scaled(bar.left() + bar.width(), place.width());
        const int bottom = scaled(bar.top() + bar.height(), place.height());
        return {place.left() + left, place.top() + top, right - left, bottom - top};
    }

    std::span<const QRect> m_bars;
};

}  // namespace

QIcon IconOf(ViewKind kind) {
    for (const BarsOfView& row : kBars) {
        if (row.kind == kind) return QIcon(new BarsEngine(row.bars));
    }
    return {};
}

}  // namespace orvo::desktop
