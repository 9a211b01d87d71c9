// A sheet of paper that keeps the texts and areas that are painted on it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QString>
#include <vector>

namespace orvo::desktop {

struct PaintedText {
    QString text;  // of one line and one font
    QPointF place;
};

struct Painting {
    std::vector<PaintedText> texts;
    std::vector<QRectF> areas;

    // All texts, with a blank between each two.
    QString Words() const {
        QString words;
        for (const PaintedText& painted : texts) words += painted.text.simplified() + ' ';
        return words.trimmed();
    }
};

inline bool GoOn(int, int) {
    return true;
}

// A4 at 300 dots to the inch, without margins.
constexpr int kRecordedWidth = 2480;
constexpr int kRecordedHeight = 3508;

class TextRecorder : public QPaintDevice, private QPaintEngine {
public:
    TextRecorder() : QPaintEngine(QPaintEngine::AllFeatures) {}

    Painting painting;

    QPaintEngine* paintEngine() const override {
        return const_cast<TextRecorder*>(this);  // NOLINT: Qt asks a constant device for it
    }

protected:
    int metric(PaintDeviceMetric metric) const override {
        if (metric == PdmWidth) return kRecordedWidth;
        if (metric == PdmHeight) return kRecordedHeight;
        if (metric == PdmDevicePixelRatio) return 1;
        const bool isDensity = metric == PdmDpiX || metric == PdmDpiY ||
                               metric == PdmPhysicalDpiX || metric == PdmPhysicalDpiY;
        return isDensity ? 300 : QPaintDevice::metric(metric);
    }

private:
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawRects(const QRectF* rects, int count) override {
        painting.areas.insert(painting.areas.end(), rects, rects + count);
    }
    void drawTextItem(const QPointF& place, const QTextItem& item) override {
        painting.texts.push_back({item.text(), place});
    }
    Type type() const override { return User; }
};

}  // namespace orvo::desktop
