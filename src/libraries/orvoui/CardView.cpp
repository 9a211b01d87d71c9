// The card widget: its cards, their order and their selection.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <contracts/CardWidget.h>
#include <platform/window/base/WindowSystem.h>
#include <platform/window/list/ListSort.h>

namespace orvo {

namespace {

constexpr CSize kSmallestCard{80, 40};
constexpr CSize kLargestCard{2000, 2000};

// A position is the card's index and 1, so that none is null.
POSITION PositionOf(int card) {
    return PointerOf<PositionMark>(card + 1);
}

int CardOf(POSITION position) {
    return static_cast<int>(LParamOf(position)) - 1;
}

}  // namespace

COrvoUICardView::COrvoUICardView() = default;

COrvoUICardView::~COrvoUICardView() {
    DestroyWindow();
}

std::unique_ptr<WindowPeer> COrvoUICardView::MakePeer(WindowSystem& system,
                                                      const PeerPlace& place) {
    return system.MakeListPeer(place);
}

bool COrvoUICardView::TakePeer(WindowPeer& peer) {
    m_cards = dynamic_cast<ListPeer*>(&peer);
    if (!m_cards) return false;
    m_cards->SetMode(ListMode::Card);
    m_cards->SetCardFlow(m_flow);
    m_cards->SetClient(this);
    return true;
}

void COrvoUICardView::LosePeer() {
    if (m_cards) m_cards->SetClient(nullptr);
    m_cards = nullptr;
}

void COrvoUICardView::InsertCard(int index, void* data, int) {
    ListRow card;
    card.data = reinterpret_cast<DWORD>(data);
    if (m_cards) m_cards->InsertRow(index, std::move(card));
}

void COrvoUICardView::DeleteCard(int index, int) {
    if (m_cards) m_cards->DeleteRow(index);
}

void COrvoUICardView::DeleteAllCards(int) {
    if (m_cards) m_cards->DeleteAllRows();
}

int COrvoUICardView::GetCardCount() const {
    return m_cards ? m_cards->RowCount() : 0;
}

void* COrvoUICardView::GetCardData(int index) const {
    return m_cards ? reinterpret_cast<void*>(m_cards->Data(index)) : nullptr;
}

int COrvoUICardView::FindCardIndexByData(void* data) const {
    return m_cards ? m_cards->FindData(reinterpret_cast<DWORD>(data), -1) : -1;
}

void COrvoUICardView::SelectCard(int index, int select, int) {
    if (index < 0 || index >= GetCardCount()) return;
    if (select != 0) {
        m_cards->SetAnchor(index);
        m_cards->SetFocusRow(index);
    }
    m_cards->Select(index, index, select != 0);
}

void COrvoUICardView::SelectAllCards(int select, int) {
    if (m_cards) m_cards->Select(0, m_cards->RowCount() - 1, select != 0);
}

// Each step is reported, and whoever hears of it may destroy the window.
void COrvoUICardView::SelectAndScrollCard(int index, int flag) {
    if (index < 0 || index >= GetCardCount()) return;
    m_cards->Select(0, index - 1, false);
    if (m_cards) m_cards->Select(index + 1, m_cards->RowCount() - 1, false);
    SelectCard(index, 1, flag);
    EnsureVisible(index);
}

int COrvoUICardView::IsCardSelected(int index) const {
    return m_cards && m_cards->IsSelected(index) ? 1 : 0;
}

int COrvoUICardView::GetFirstSelectedCardIndex() const {
    return m_cards ? m_cards->NextSelected(-1) : -1;
}

POSITION COrvoUICardView::GetFirstSelectedCardPosition() const {
    return PositionOf(GetFirstSelectedCardIndex());
}

int COrvoUICardView::GetNextSelectedCardIndex(POSITION& position) const {
    const int card = CardOf(position);
    if (card >= 0) position = PositionOf(m_cards ? m_cards->NextSelected(card) : -1);
    return card;
}

int COrvoUICardView::GetSelectedCount() const {
    return m_cards ? m_cards->SelectedCount() : 0;
}

int COrvoUICardView::GetFocusCardIndex() const {
    return m_cards ? m_cards->FocusRow() : -1;
}

int COrvoUICardView::EnsureVisible(int index) {
    return m_cards && m_cards->EnsureVisible(index, false) ? 1 : 0;
}

void COrvoUICardView::Update(int index) {
    if (m_cards) m_cards->InvalidateRows(index, index);
}

int COrvoUICardView::SortItems(PFNLVCOMPARE compare, unsigned long argument) {
    if (!m_cards || !compare) return 0;
    m_cards->Reorder(SortedRows(*m_cards, compare, static_cast<LPARAM>(argument)));
    return 1;
}

void COrvoUICardView::SetCardSize(int width, int height, int) {
    if (!m_cards) return;
    m_cards->SetCardSize({std::clamp(width, kSmallestCard.cx, kLargestCard.cx),
                          std::clamp(height, kSmallestCard.cy, kLargestCard.cy)});
}

void COrvoUICardView::GetCardSize(int* width, int* height) const {
    const CSize size = m_cards ? m_cards->CardSize() : CSize();
    *width = size.cx;
    *height = size.cy;
}

void COrvoUICardView::SetCardFlow(CardFlow flow) {
    m_flow = flow;
    if (m_cards) m_cards->SetCardFlow(flow);
}

void COrvoUICardView::SetTabStop(int position) {
    m_tabStop = std::clamp(position, 0, kLargestCard.cx);
    Invalidate();
}

void COrvoUICardView::GetCardDescription(int, CCardDesc&) {}
void COrvoUICardView::OnCardLButtonDblClk(int, CPoint) {}
void COrvoUICardView::OnCardOnRButtonDown(int, CPoint) {}
void COrvoUICardView::OnCardSelected(int, int) {}
void COrvoUICardView::OnCardChecked(int, int) {}
void COrvoUICardView::OnCardReturnKey() {}

}  // namespace orvo
