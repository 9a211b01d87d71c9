// Address cards, in as many columns as the page has room for.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <vector>

#include <desktop/printing/PrintedItems.h>
#include <desktop/printing/PrintedText.h>

namespace orvo::desktop {

struct PrintedCardLine {
    enum class Kind { Text, Value, Rule, Space };

    Kind kind = Kind::Text;
    QString label;  // of a value; may be empty
    QString text;
};

struct PrintedCard {
    bool isMasked = false;  // a bar stands in place of all else
    QString title;
    std::vector<PrintedCardLine> lines;
    QString category;
    bool isPrivate = false;
    bool hasNote = false;
};

// A card is as high as what it says, all of which is printed.
class PrintedCards : public PrintedItems {
public:
    // The card is asked for each time when it is laid out. Values begin so many characters from
    // the left, but at the middle at the latest; with 0 at a third of the width.
    PrintedCards(int cardCount, int tabStop, std::function<PrintedCard(int card)> card);

    void SetPaper(const Paper& paper) override;
    int Count() const override { return m_cardCount; }
    std::unique_ptr<PrintedItem> LayOut(int index) const override;
    int ColumnCount() const override;
    qreal Gap() const override;

private:
    class Card;

    qreal ColumnWidth() const;
    qreal ValueStart(qreal width) const;

    int m_cardCount;
    int m_tabStop;
    std::function<PrintedCard(int)> m_card;
    Paper m_paper;
    std::unique_ptr<PrintedFont> m_titleFont;
    std::unique_ptr<PrintedFont> m_font;
    std::unique_ptr<PrintedFont> m_smallFont;
};

}  // namespace orvo::desktop
