// A card widget that records what it is told and asked.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <contracts/CardWidget.h>
#include <platform/window/WindowFixture.h>
#include <platform/window/memory/MemoryListPeer.h>

namespace orvo {

class RecordingCards : public COrvoUICardView {
public:
    std::vector<std::string> told;
    std::vector<int> asked;
    CCardDesc description;        // what every card says
    bool closesWhenTold = false;  // destroys the window at the next selection

    std::vector<std::string> TakeTold() { return std::exchange(told, {}); }

protected:
    void GetCardDescription(int index, CCardDesc& card) override {
        EXPECT_TRUE(card.strTitle.IsEmpty() && card.strBody.IsEmpty());
        asked.push_back(index);
        card = description;
    }
    void OnCardSelected(int index, int selected) override {
        Tell(selected != 0 ? "selected" : "deselected", index);
        if (closesWhenTold) DestroyWindow();
    }
    void OnCardLButtonDblClk(int index, CPoint) override { Tell("double", index); }
    void OnCardOnRButtonDown(int index, CPoint point) override {
        Tell("right", index);
        rightPoint = point;
    }
    void OnCardReturnKey() override { told.emplace_back("return"); }

public:
    CPoint rightPoint;

private:
    void Tell(const char* what, int index) {
        told.push_back(std::string(what) + ' ' + std::to_string(index));
    }
};

// Seven cards of the default size, 240 by 160, with the pointers 1 to 7 that point nowhere. In the
// window stand two columns of two cards; the third column has 104 pixels to show. The columns begin
// at 8, 256 and 504, the cards in them at 8 and 176.
class CardFixture : public testing::Test {
protected:
    void SetUp() override {
        cards.Create(0, {0, 0, 608, 400}, nullptr, 1);
        for (int card = 0; card < 7; ++card) cards.InsertCard(card, Data(card + 1), 1);
        cards.SetFocus();
    }

    static void* Data(long number) { return PointerOf<void>(number); }
    std::vector<long> AllData() const {
        std::vector<long> data;
        for (int card = 0; card < cards.GetCardCount(); ++card) {
            data.push_back(LParamOf(cards.GetCardData(card)));
        }
        return data;
    }
    std::vector<int> Selected() const {
        std::vector<int> selected;
        POSITION position = cards.GetFirstSelectedCardPosition();
        while (position) selected.push_back(cards.GetNextSelectedCardIndex(position));
        EXPECT_EQ(cards.GetSelectedCount(), static_cast<int>(selected.size()));
        return selected;
    }
    const Recording& Paint() {
        Peer().ForgetDrawn();
        cards.asked.clear();
        cards.RedrawWindow();
        return Peer().Drawn();
    }
    MemoryListPeer& Peer() { return dynamic_cast<MemoryListPeer&>(*cards.GetPeer()); }

    SystemInForce system;
    RecordingCards cards;
};

}  // namespace orvo
