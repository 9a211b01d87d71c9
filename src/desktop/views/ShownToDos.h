// To-dos as a list.
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <memory>
#include <vector>

#include <desktop/views/HeadingSpread.h>
#include <desktop/views/ShownRows.h>
#include <orvoshare/todo/TodoListbox.h>
#include <people/FindReader.h>

namespace orvo::desktop {

// The record behind the data word of a row of the list, which owns it; null where that is 0.
inline CToDoRecord* ToDoOf(DWORD data) {
    return reinterpret_cast<CToDoRecord*>(data);
}

class ShownToDos : public ShownRows {
public:
    ShownToDos(StoreSession& session, const COrvoDesktopOptions& options,
               std::function<void()> changed);
    ~ShownToDos() override { m_session.SetRecordListener(this, nullptr); }

    // Makes the window of the list inside of the parent; the combo outlives it.
    // Returns:  false where that can't be done.
    // Requires: the parent hands out the options already.
    bool Create(CWnd& parent, CCategoryCombo& categories);

    CTodoListbox& List() { return *m_list; }  // once it is made

    eSortOrder Order() const { return m_order; }
    void SetOrder(eSortOrder order);

    // Whether a click into that column, by its place, changes the to-do.
    bool IsChangedByClick(int column) const;

    // The room for columns, in pixels.
    void FillWidth(int width) { m_spread->FillWidth(width); }
    void SaveHeadings();

    QString Name() const override;
    QString CountedText(int count) const override;
    EntryFile File() const override;
    CToDoTable& Table() override { return m_session.ToDos(); }
    CWnd& Window() override { return *m_list; }
    COrvoUIListViewCtrl* Columns() override { return m_list.get(); }
    void SortByColumn(int id) override;
    int RowCount() override { return m_list->GetItemCount(); }
    int SelectedCount() override { return m_list->GetSelectedCount(); }
    int HiddenCount() override;
    void TakeChanges(const std::vector<std::int64_t>& ids) override;
    CToDoRecord* RecordOf(DWORD data) const override { return ToDoOf(data); }

protected:
    void Fill(const Disclosure& disclosure) override;
    void Empty() override { m_list->DeleteAll(); }
    void Append(DWORD data) override { m_list->InsertRecord(RowCount(), RecordOf(data), 0); }
    FindIndex& Texts() override { return m_session.FindTexts(TableKind::ToDo); }
    FindText TextOf(DWORD data) const override { return FindTextOf(*RecordOf(data)); }
    std::unique_ptr<CBaseRecord> NewRecord() override {
        return std::make_unique<CToDoRecord>(Table());
    }
    ListRow NewRow(CBaseRecord& record) const override {
        return {reinterpret_cast<DWORD>(&record), {}, 0};
    }
    bool BelongsIn(CBaseRecord& record) override {
        return m_list->PassThruFilter(&static_cast<CToDoRecord&>(record)) != 0;
    }
    int Compare(const CBaseRecord& left, const CBaseRecord& right) override;
    RecordIndex& Records() override { return m_list->Records(); }
    void Lose(const CBaseRecord& record) override { m_list->ForgetMenuOf(&record); }

private:
    void NoteOwnChange(std::int64_t id);
    void TakeOwnChanges();
    void WaitForStart();

    eSortOrder m_order = eSortByPriorityDueDate;
    std::unique_ptr<CTodoListbox> m_list;  // it asks for the options as soon as it is there
    std::optional<HeadingSpread> m_spread;
    // A change in the window can have changed or added other to-dos than the one it was made in.
    std::vector<std::int64_t> m_ownChanges;
    QTimer m_ownChangeTimer;
    QTimer m_startTimer;  // until the next to-do begins
};

}  // namespace orvo::desktop
