// The entries of one kind in a list, whose rows hold their records.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <utility>

#include <desktop/views/RowKeeper.h>
#include <desktop/views/ShownEntries.h>
#include <desktop/views/ShownFind.h>

namespace orvo::desktop {

class ShownRows : public ShownEntries, public ExchangeableRows {
public:
    ShownRows(StoreSession& session, const COrvoDesktopOptions& options,
              std::function<void()> changed);

    CWnd& Window() override = 0;

    void SetFind(const FindQuery& query) override { m_find.Set(query); }
    bool IsFinding() const override { return m_find.IsOn(); }
    bool IsLooking() const override { return m_find.IsLooking(); }
    // The same for rows that the filter chooses; all show for an empty one.
    void SetFilter(RowFilter filter) { m_find.SetFilter(std::move(filter)); }
    bool IsWhole() const override { return m_find.IsWhole(); }
    void ReadOn() override { m_find.ReadOn(); }
    int CountOfAll() override { return m_find.CountOfAll(); }

    bool IsEmpty() override;
    void Refill() override;
    void TakeChanges(const std::vector<std::int64_t>& ids) override;
    void Enter(bool isFilled) override;
    void Leave() override;

    std::vector<CBaseRecord*> SelectedRecords(WayOut way) override;
    void SelectRecord(std::int64_t id) override;
    void SelectAll() override;
    void GoToFirst() override;
    bool FocusPlace(CRect& place) override;

protected:
    virtual void Fill(const Disclosure& disclosure) = 0;

private:
    ListPeer* Rows();
    std::function<std::int64_t(DWORD)> IdOf() const;
    void FillFound();

    ShownFind m_find;
    std::optional<RowKeeper> m_rowsLeft;
};

}  // namespace orvo::desktop
