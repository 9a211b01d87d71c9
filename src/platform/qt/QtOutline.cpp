// Small pictures of lines, painted with Qt.
// SPDX-License-Identifier: MIT
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <charconv>

#include <platform/qt/QtOutline.h>
#include <platform/window/pictures/Outline.h>

namespace orvo {

namespace {

constexpr qreal kLineWidth = 1.5;

class OutlineReader {
public:
    explicit OutlineReader(std::string_view text) : m_rest(text) {}

    QPainterPath Read() {
        QPainterPath path;
        while (!m_rest.empty()) {
            const char command = m_rest.front();
            m_rest.remove_prefix(1);
            Add(path, command);
        }
        return path;
    }

private:
    void Add(QPainterPath& path, char command) {
        switch (command) {
            case 'M':
                return path.moveTo(Point());
            case 'L':
                return path.lineTo(Point());
            case 'H':
                return path.lineTo(Number(), path.currentPosition().y());
            case 'V':
                return path.lineTo(path.currentPosition().x(), Number());
            case 'Z':
                return path.closeSubpath();
            case 'C': {
                const QPointF first = Point();
                const QPointF second = Point();
                return path.cubicTo(first, second, Point());
            }
            case 'O': {
                const QPointF middle = Point();
                const qreal radius = Number();
                return path.addEllipse(middle, radius, radius);
            }
            default:
                return;
        }
    }

    QPointF Point() {
        const qreal x = Number();
        return {x, Number()};
    }

    qreal Number() {
        m_rest.remove_prefix(std::min(m_rest.find_first_not_of(' '), m_rest.size()));
        qreal number = 0;
        const char* end = m_rest.data() + m_rest.size();
        const char* read = std::from_chars(m_rest.data(), end, number).ptr;
        m_rest.remove_prefix(static_cast<std::size_t>(read - m_rest.data()));
        return number;
    }

    std::string_view m_rest;
};

}  // namespace

void PaintOutline(QPainter& painter, const QRectF& place, std::string_view outline,
                  const QColor& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.topLeft());
    painter.scale(place.width() / kOutlineField, place.height() / kOutlineField);
    painter.setPen(QPen(colour, kLineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(OutlineReader(outline).Read());
    painter.restore();
}

}  // namespace orvo
