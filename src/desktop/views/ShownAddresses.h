// Addresses as a list, as icons or as cards.
// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/views/HeadingSpread.h>
#include <desktop/views/RowFaces.h>
#include <desktop/views/ShownRows.h>
#include <desktop/views/ViewKind.h>
#include <orvoshare/addressviews/DetailViewAddrCard.h>
#include <orvoshare/addressviews/LookupEdit.h>
#include <people/FindReader.h>

namespace orvo::desktop {

class ShownAddresses : public ShownRows {
public:
    using ShownRows::ShownRows;
    ~ShownAddresses() override { m_session.SetRecordListener(this, nullptr); }
    ShownAddresses(const ShownAddresses&) = delete;
    ShownAddresses& operator=(const ShownAddresses&) = delete;

    // Makes the windows of the views inside of the parent; the box leads through them, and with the
    // combo outlives them.
    // Returns:  false where a window can't be made.
    bool Create(CWnd& parent, CLookupEdit& box, CCategoryCombo& categories);

    // True for the list and its icons, which are one window.
    static bool IsOfList(ViewKind kind);
    // Uses the view of that kind; for to-dos the list, which is empty then.
    void Use(ViewKind kind);
    CDetailViewAddrInf& View();

    // False while photos are still to come.
    bool HasAllPhotos() const { return m_faces.IsWhole(); }

    long Order() const { return m_order; }
    void SetOrder(long listBy);

    // From 0, as the user makes cards smaller or larger.
    void SetCardStep(int step);
    int CardStep() const;

    // Whether cards are scrolled down, which is kept.
    void ScrollCardsDown(bool isDown);
    bool AreCardsScrolledDown() const { return m_cards.GetCardFlow() == CardFlow::Lines; }

    // The room for columns, in pixels.
    void FillWidth(int width) { m_spread->FillWidth(width); }
    // Saves headings and the size of the cards.
    void SaveHeadings();

    QString Name() const override;
    QString CountedText(int count) const override;
    EntryFile File() const override;
    CAddressTable& Table() override { return m_session.Addresses(); }
    CWnd& Window() override;
    COrvoUIListViewCtrl* Columns() override;
    void SortByColumn(int id) override;
    int RowCount() override { return View().DV_GetItemCount(); }
    int SelectedCount() override { return static_cast<int>(View().DV_GetSelectedCount()); }
    int HiddenCount() override;
    CAddressRecord* RecordOf(DWORD data) const override;

protected:
    void Fill(const Disclosure& disclosure) override;
    void Empty() override { View().DV_DeleteAll(); }
    void Append(DWORD data) override { View().DV_InsertRecord(RowCount(), RecordOf(data), 0); }
    FindIndex& Texts() override { return m_session.FindTexts(TableKind::Address); }
    FindText TextOf(DWORD data) const override { return FindTextOf(*RecordOf(data)); }
    std::unique_ptr<CBaseRecord> NewRecord() override {
        return std::make_unique<CAddressRecord>(Table());
    }
    ListRow NewRow(CBaseRecord& record) const override;
    bool BelongsIn(CBaseRecord& record) override;
    int Compare(const CBaseRecord& left, const CBaseRecord& right) override;
    RecordIndex& Records() override {
        return m_kind == ViewKind::Cards ? m_cards.Records() : m_list.Records();
    }
    void Lose(const CBaseRecord& record) override { m_list.ForgetMenuOf(&record); }

private:
    ViewKind m_kind = ViewKind::List;
    long m_order = kListByName;
    RowFaces m_faces{m_session.Addresses(), [this] { Window().Invalidate(); }};
    CDetailViewAddrList m_list;
    CDetailViewAddrCard m_cards;
    std::optional<HeadingSpread> m_spread;  // once the windows stand
};

}  // namespace orvo::desktop
