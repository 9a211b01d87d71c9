// Address cards, in as many columns as the page has room for.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <desktop/printing/PrintedCards.h>
#include <desktop/printing/PrintedMarks.h>

namespace orvo::desktop {
namespace {

constexpr int kTitlePoints = 12;
constexpr int kPoints = 9;
constexpr int kSmallPoints = 8;
// Millimetres.
constexpr qreal kLeastWidth = 70;
constexpr qreal kGap = 4;
constexpr qreal kMargin = 2;
constexpr qreal kFrame = 0.15;
constexpr qreal kMarkSide = 3.6;
constexpr qreal kMarkGap = 1;
// Of the line, for each line of the title.
constexpr qreal kBandHeight = 1.2;

const QColor kFrameColour(0x99, 0x99, 0x99);
const QColor kBandColour(0xEC, 0xEC, 0xEC);
const QColor kMaskColour(0xC8, 0xC8, 0xC8);

// A text of the card, one of whose lines stands in a part of it.
struct Piece {
    const PrintedText* text;
    qreal left;  // from the left edge inside of the margin
    qreal width;
    QColor colour;
};

// One line of the card, and what stands in it.
struct Part {
    enum class Kind { Band, Body, Rule };

    Kind kind;
    qreal height;
    qreal drop = 0;  // of the line, below the top
    int line = 0;    // of all pieces
    std::vector<Piece> pieces{};
};

}  // namespace

class PrintedCards::Card : public PrintedItem {
public:
    Card(const PrintedCards& cards, PrintedCard card) : m_cards(cards), m_card(std::move(card)) {
        m_margin = kMargin * m_cards.m_paper.millimetre;
        m_width = m_cards.ColumnWidth() - 2 * m_margin;
        AddTitle();
        AddSpace(m_margin / 2);
        if (m_card.isMasked) {
            AddSpace(m_cards.m_font->LineHeight());
        } else {
            for (const PrintedCardLine& line : m_card.lines) AddLine(line);
            AddCategory();
        }
        AddSpace(m_margin / 2);
    }

    int PartCount() const override { return static_cast<int>(m_parts.size()); }
    qreal PartHeight(int part) const override {
        return m_parts.at(static_cast<std::size_t>(part)).height;
    }

    void Paint(QPainter& painter, const QRectF& place, int first, int end) const override {
        QRectF line = place;
        for (int part = first; part < end; ++part) {
            line.setHeight(PartHeight(part));
            PaintPart(painter, m_parts[static_cast<std::size_t>(part)], line);
            line.translate(0, line.height());
        }
        if (first == 0) PaintTitleMarks(painter, place);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(kFrameColour, kFrame * m_cards.m_paper.millimetre));
        painter.drawRect(place);
        painter.setPen(Qt::black);
    }

private:
    const PrintedText& MakeText(const QString& text, const PrintedFont& font, qreal width) {
        return MakeText(text, font, width, m_cards.m_paper.Leading());
    }

    const PrintedText& MakeText(const QString& text, const PrintedFont& font, qreal width,
                                Qt::Alignment alignment) {
        m_texts.push_back(std::make_unique<PrintedText>(text, font, width, alignment));
        return *m_texts.back();
    }

    void AddSpace(qreal height) { m_parts.push_back({Part::Kind::Body, height}); }

    void AddParts(Part::Kind kind, const PrintedFont& font, const std::vector<Piece>& pieces) {
        int count = 0;
        for (const Piece& piece : pieces) count = std::max(count, piece.text->LineCount());
        for (int line = 0; line < count; ++line) {
            const qreal height = font.LineHeight() * (kind == Part::Kind::Band ? kBandHeight : 1);
            m_parts.push_back({kind, height, (height - font.LineHeight()) / 2, line, pieces});
        }
    }

    // Clear of the marks in all of its lines.
    void AddTitle() {
        const PrintedFont& font = *m_cards.m_titleFont;
        const int marks = (m_card.isPrivate ? 1 : 0) + (m_card.hasNote ? 1 : 0);
        const qreal width =
            m_width - (m_card.isMasked ? 0 : marks) * (kMarkSide + kMarkGap) * Millimetre();
        const QString title = m_card.isMasked ? QString() : m_card.title;
        AddParts(Part::Kind::Band, font, {{&MakeText(title, font, width), 0, width, Qt::black}});
    }

    void AddLine(const PrintedCardLine& line) {
        const PrintedFont& font = *m_cards.m_font;
        switch (line.kind) {
            case PrintedCardLine::Kind::Space:
                AddSpace(font.LineHeight() / 2);
                break;
            case PrintedCardLine::Kind::Rule:
                m_parts.push_back({Part::Kind::Rule, font.LineHeight() / 2});
                break;
            case PrintedCardLine::Kind::Text:
                AddParts(Part::Kind::Body, font,
                         {{&MakeText(line.text, font, m_width), 0, m_width, Qt::black}});
                break;
            case PrintedCardLine::Kind::Value:
                AddValue(line);
                break;
        }
    }

    void AddValue(const PrintedCardLine& line) {
        const PrintedFont& font = *m_cards.m_font;
        const qreal start = m_cards.ValueStart(m_width);
        const qreal labelWidth = start - font.AverageWidth();
        const qreal width = m_width - start;
        AddParts(Part::Kind::Body, font,
                 {{&MakeText(line.label, font, labelWidth), 0, labelWidth, kDimText},
                  {&MakeText(line.text, font, width), start, width, Qt::black}});
    }

    void AddCategory() {
        if (m_card.category.isEmpty()) return;
        const PrintedFont& font = *m_cards.m_smallFont;
        const PrintedText& text =
            MakeText(m_card.category, font, m_width, m_cards.m_paper.Trailing());
        AddParts(Part::Kind::Body, font, {{&text, 0, m_width, kDimText}});
    }

    qreal Millimetre() const { return m_cards.m_paper.millimetre; }

    void PaintPart(QPainter& painter, const Part& part, const QRectF& line) const {
        if (part.kind == Part::Kind::Band) painter.fillRect(line, kBandColour);
        const QRectF inside = line.adjusted(m_margin, 0, -m_margin, 0);
        if (part.kind == Part::Kind::Rule) {
            const qreal width = kFrame * Millimetre();
            painter.fillRect(QRectF(inside.left(), inside.center().y(), inside.width(), width),
                             kFrameColour);
        }
        for (const Piece& piece : part.pieces) {
            const QRectF place(inside.left() + piece.left, inside.top() + part.drop, piece.width,
                               inside.height());
            painter.setPen(piece.colour);
            piece.text->PaintLine(painter, part.line,
                                  m_cards.m_paper.Place(place, inside).topLeft());
        }
        painter.setPen(Qt::black);
    }

    // In a masked card a bar of the same size on every card: that something is hidden may be seen,
    // but not how much.
    void PaintTitleMarks(QPainter& painter, const QRectF& place) const {
        const QRectF inside = place.adjusted(m_margin, 0, -m_margin, 0);
        const qreal height = PartHeight(0);
        if (m_card.isMasked) {
            const QRectF bar(inside.left(), inside.top() + height / 3, inside.width() / 2,
                             height / 3);
            painter.fillRect(m_cards.m_paper.Place(bar, inside), kMaskColour);
            return;
        }
        const qreal side = kMarkSide * Millimetre();
        QRectF square(inside.right() - side, inside.top() + (height - side) / 2, side, side);
        const auto paint = [&](PrintedMark mark) {
            PaintMark(painter, mark, m_cards.m_paper.Place(square, inside));
            square.translate(-side - kMarkGap * Millimetre(), 0);
        };
        if (m_card.isPrivate) paint(PrintedMark::Padlock);
        if (m_card.hasNote) paint(PrintedMark::Note);
    }

    const PrintedCards& m_cards;
    PrintedCard m_card;
    qreal m_margin = 0;
    qreal m_width = 0;
    std::vector<std::unique_ptr<PrintedText>> m_texts;
    std::vector<Part> m_parts;
};

PrintedCards::PrintedCards(int cardCount, int tabStop, std::function<PrintedCard(int)> card)
    : m_cardCount(cardCount), m_tabStop(tabStop), m_card(std::move(card)) {}

void PrintedCards::SetPaper(const Paper& paper) {
    m_paper = paper;
    m_titleFont = std::make_unique<PrintedFont>(PaperFont(kTitlePoints, true), *paper.device);
    m_font = std::make_unique<PrintedFont>(PaperFont(kPoints, false), *paper.device);
    m_smallFont = std::make_unique<PrintedFont>(PaperFont(kSmallPoints, false), *paper.device);
}

std::unique_ptr<PrintedItem> PrintedCards::LayOut(int index) const {
    return std::make_unique<Card>(*this, m_card(index));
}

int PrintedCards::ColumnCount() const {
    const qreal least = kLeastWidth * m_paper.millimetre;
    return std::max(1, static_cast<int>((m_paper.area.width() + Gap()) / (least + Gap())));
}

qreal PrintedCards::Gap() const {
    return kGap * m_paper.millimetre;
}

qreal PrintedCards::ColumnWidth() const {
    const int count = ColumnCount();
    return (m_paper.area.width() - (count - 1) * Gap()) / count;
}

qreal PrintedCards::ValueStart(qreal width) const {
    return m_tabStop > 0 ? std::min(m_tabStop * m_font->AverageWidth(), width / 2) : width / 3;
}

}  // namespace orvo::desktop
