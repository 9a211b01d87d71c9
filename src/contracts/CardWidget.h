// What the card view asks of the card widget: cards of one size, their selection and their
// painting. Fulfilled by libraries/orvoui.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <platform/Export.h>
#include <platform/text/Arrays.h>
#include <platform/text/CString.h>
#include <platform/window/base/CWnd.h>
#include <platform/window/list/ListPeer.h>
#include <platform/window/pictures/RowPictures.h>

namespace orvo {

class CDC;

// What one card shows. The body's lines end with a line feed; a tab separates a label from its
// value, and a line that begins with a tab goes on with the value of the line before it. An empty
// line is space. The line "<L>" stands for a rule below the head of the body.
class ORVO_API CCardDesc {
public:
    CString strTitle;
    CString strBody;
    CString strCategory;
    int bPrivate = 0;
    int bMasked = 0;  // the content is withheld
    int bHasNote = 0;
};

// The mark line between head and body.
constexpr const char* kCardRule = "<L>";

// Cards flow down columns from left to right, and the view scrolls by whole columns; or along lines
// from the top, which they fill, and it scrolls by whole lines. A card is a pointer that the view
// hands back and never reads. What a card says is asked for each time it is painted, and not
// otherwise. Cards are counted from 0 in display order; one outside is harmless: getters return -1,
// 0 or null, setters do nothing. The argument `flag` is 1 at every call.
class ORVO_API COrvoUICardView : public CWnd, private ListPeerClient {
public:
    COrvoUICardView();
    ~COrvoUICardView() override;

    // Inserts a card before the one at the index; beyond the end, at the end.
    // Owner:    the caller keeps what the pointer leads to.
    // Fails:    below 0, or without a window, where the count of cards stays as it was.
    void InsertCard(int index, void* data, int flag);
    void DeleteCard(int index, int flag);
    void DeleteAllCards(int flag);
    int GetCardCount() const;
    void* GetCardData(int index) const;
    int FindCardIndexByData(void* data) const;

    // A card that is selected gets the focus too, so that arrow keys go on from there.
    void SelectCard(int index, int select, int flag);
    void SelectAllCards(int select, int flag);
    // Makes the card the only selected one, gives it the focus and brings it into view.
    void SelectAndScrollCard(int index, int flag);
    int IsCardSelected(int index) const;
    int GetFirstSelectedCardIndex() const;
    POSITION GetFirstSelectedCardPosition() const;
    int GetNextSelectedCardIndex(POSITION& position) const;
    int GetSelectedCount() const;
    int GetFocusCardIndex() const;

    // Returns:  non-zero where the card is in view now.
    int EnsureVisible(int index);
    // Paints the card anew.
    void Update(int index);

    // As LVM_SORTITEMS, by registered sort keys too. Selection and focus stay with their cards.
    // Returns:  non-zero on success.
    int SortItems(PFNLVCOMPARE compare, unsigned long argument);

    // Pixels; a size is held between 80 by 40 and 2000 by 2000.
    void SetCardSize(int width, int height, int flag);
    void GetCardSize(int* width, int* height) const;

    void SetCardFlow(CardFlow flow);
    CardFlow GetCardFlow() const { return m_flow; }

    // Where values begin in the body: so many characters of average width from its left edge, but
    // at the middle at the latest. With 0, as at the start, they begin at a third of the width.
    void SetTabStop(int position);
    int GetTabStop() const { return m_tabStop; }

    // Paints a picture before each title, which is no image of a list where the card isn't masked;
    // null for none.
    // They outlive the view, or are taken back.
    void SetCardPictures(RowPictures* pictures) { m_pictures = pictures; }

    // Takes the Return key before a window above gives it to its default button.
    BOOL PreTranslateMessage(MSG* message) override;

    static const MessageMap& ThisMap();
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

protected:
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnLButtonDown(UINT flags, CPoint point);

    // Asked for each card that is painted; the description comes empty.
    virtual void GetCardDescription(int index, CCardDesc& description);

    // What the user did. The index is -1 beside all cards.
    virtual void OnCardLButtonDblClk(int index, CPoint point);
    virtual void OnCardOnRButtonDown(int index, CPoint point);
    // Also where the program selects. With index -1 several cards changed.
    virtual void OnCardSelected(int index, int selected);
    virtual void OnCardChecked(int index, int checked);
    virtual void OnCardReturnKey();

    // Paints the body of the card that is being painted.
    virtual void DrawCardBody(CDC* dc, int index, RECT* body);

    std::unique_ptr<WindowPeer> MakePeer(WindowSystem& system, const PeerPlace& place) override;
    bool TakePeer(WindowPeer& peer) override;
    void LosePeer() override;

private:
    CString CellText(int, int) override { return {}; }
    int RowImage(int) override { return -1; }
    CString InfoTip(int) override { return {}; }
    void DrawRow(CDC& dc, int card, const CRect& bounds) override;
    void StateChanged(int card, UINT oldState, UINT newState) override;
    void HeadingClicked(int) override {}

    int CardAt(CPoint point) const;
    void OnLButtonUp(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnRButtonDown(UINT flags, CPoint point);
    void OnFocusChange(CWnd* other);
    void OnColourChange() { Invalidate(); }
    void OnSize(UINT kind, int width, int height);
    LRESULT OnPaint(WPARAM wParam, LPARAM lParam);

    ListPeer* m_cards = nullptr;
    RowPictures* m_pictures = nullptr;
    const CCardDesc* m_painted = nullptr;  // while a card is being painted
    CardFlow m_flow = CardFlow::Columns;
    int m_tabStop = 0;
    bool m_narrowsOnRelease = false;  // the pressed card was one of several that are selected
};

}  // namespace orvo
