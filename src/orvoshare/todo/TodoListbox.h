// CTodoListbox: the list of to-dos, edited in place.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <utility>

#include <contracts/Dates.h>
#include <contracts/ListWidget.h>
#include <contracts/RecordStore.h>
#include <orvoshare/text/RecordIndex.h>
#include <orvoshare/todo/TodoParts.h>
#include <platform/Export.h>
#include <platform/window/base/Cursor.h>

namespace orvo {

// The orders; the placement of the records decides among equals.
enum eSortOrder : int {
    eSortByPriorityDueDate = 0,
    eSortByDueDatePriority = 1,
    eSortByCategoryDueDate = 2,
    eSortByCategoryPriority = 3
};

// The ids of the columns.
struct TodoColumn {
    enum : int {
        Description = 0,
        Priority = 1,
        DueDate = 2,
        Category = 3,
        Note = 4,
        Private = 5,
        Completed = 6
    };
};

// The commands of the pop-ups.
constexpr UINT ID_TODO_DATE_FIRST = 9147;  // today, tomorrow, one week later, none, choose
constexpr UINT ID_TODO_DATE_LAST = 9151;
constexpr UINT ID_TODO_PRIORITY_FIRST = 9154;  // 1 to 5
constexpr UINT ID_TODO_PRIORITY_LAST = 9158;
constexpr UINT ID_TODO_CATEGORY_FIRST = 1574;  // an index below 16 is added
constexpr UINT ID_TODO_CATEGORY_LAST = 1591;

// Posted to the owner window, as WM_COMMAND, when a record was changed: its row left the view, or
// stays.
constexpr UINT ID_TODO_ROW_REMOVED = 1526;
constexpr UINT ID_TODO_ROW_CHANGED = 1527;
// Posted to the owner window when Return is pressed in the list.
constexpr UINT WM_TODO_RETURN = 48843;

// What a cell shows.
struct TodoCell {
    CString text;
    CBitmap* picture = nullptr;  // the view's own, in place of a text
    bool opensPopup = false;
    bool isOverdue = false;
};

// A row's data word is the address of its CToDoRecord, which the view owns: a record is freed
// exactly when its row goes. The flags and the order change no row until the host fills the view
// again or sorts it. The table and the box of categories outlive the rows.
class ORVO_API CTodoListbox : public COrvoUIListViewCtrl {
public:
    // Asks the main window for the desktop options (COrvoDesktopOptions); without an answer private
    // records are shown.
    CTodoListbox();
    ~CTodoListbox() override;

    // Prepares heading pictures, columns and colours, after the window has been made.
    // Returns:  1.
    int Initialize();

    // The heading, as of ReadHeading and WriteHeading, under the key "ToDoHeading".
    int ReadHeaderColumnInfo(const char* section, int);
    int WriteHeaderColumnInfo(const char* section);
    void ShowDefaultHeading();

    void ShowDueItemsOnly(int on) { m_bShowDueOnly = on; }
    int IsShowingDueItemsOnly() const { return m_bShowDueOnly; }
    void HideCompletedItems(int on) { m_bHideCompleted = on; }
    int IsHidingCompletedItems() const { return m_bHideCompleted; }
    void HidePrivateItems(int on) { m_bHidePrivate = on; }
    int IsHidingPrivateItems() const { return m_bHidePrivate; }
    // To-dos whose start lies in the future are greyed, or left out.
    void HideUnstartedItems(int on) { m_bHideUnstarted = on; }
    int IsHidingUnstartedItems() const { return m_bHideUnstarted; }
    void SetCategoryShown(int category) { m_nCategoryShown = category; }
    int GetCategoryShown() const { return m_nCategoryShown; }
    void SetMarkCompletionDate(int on) { m_bMarkCompletionDate = on; }
    int IsMarkingCompletionDate() const { return m_bMarkCompletionDate; }
    // Asked before a click or a key completes a record; false leaves it as it is. Without it all
    // are completed. While it asks, the rows may change.
    void SetCompletionQuestion(std::function<bool(const CToDoRecord&)> question) {
        m_mayComplete = std::move(question);
    }
    // Gives the tip of a row, which is empty for none; without it no row has one.
    void SetTipWriter(std::function<CString(const CToDoRecord&)> writer) {
        m_tipOf = std::move(writer);
    }
    void SetCategoryCombo(CCategoryCombo* combo) { m_pCategoryCombo = combo; }

    // 1 where the record belongs into the view by its flags, its category and because it isn't
    // archived, else 0. A record without a date counts as due.
    int PassThruFilter(CToDoRecord* record);
    int IsDueTodayOrEarlier(long date);
    // The next moment at which a to-do of the table begins, as of the last filling and of what was
    // noted since; kMaxDate for none. Then its row looks different.
    long NextStart() const { return m_nextStart; }
    int IsRecordPrivate(DWORD data) override;
    int IsPrivateRecordSelected();

    // Adds the table's records that pass the filter, and sorts all rows. Rows that are there stay.
    void AddAllItemData(CToDoTable* table);
    // Frees all records and removes all rows.
    void DeleteAll();
    // Empties the view and fills it, with the waiting cursor and without painting in between.
    void RefreshAllItemData(CToDoTable* table);

    // Tells the widget the column and stores the order; the rows stay.
    void SetSortOrder(eSortOrder order);
    eSortOrder GetSortOrder() const { return m_eSortOrder; }

    // Sorts all rows.
    // Returns:  non-zero on success.
    int Resort();

    // Checks a row whose record the host has changed: one that no longer passes the filter goes,
    // and its record with it; where it is out of place, all rows are sorted and it is selected.
    // Returns:  the row now, or of a removed one the row at its place; -1 for none.
    int ReSort(int row);

    // The same, but takes the row out and puts it in again at its place.
    int ReSortSingleItem(int row);

    // 1 where the row stands in order between its neighbours, else 0.
    int VerifyCurrentOrder(int row);
    unsigned long GetIndexToInsert(CToDoRecord* record);

    // Adds a row, with `sorted` at its place.
    // Returns:  the row; -1 for null or on failure.
    // Owner:    the view, from the call on, also where the row couldn't be added.
    int InsertRecord(int row, CToDoRecord* record, int sorted);

    // Which of the table's to-dos are parts of which, as of the last filling. Who learns of other
    // changes notes them with NoteChange, and of a record that is deleted or gone with Forget.
    TodoParts* Parts() { return m_parts ? &*m_parts : nullptr; }
    void NoteChange(const CToDoRecord& record);

    // The records of the rows. Who exchanges rows past the view does it here, too.
    RecordIndex& Records() { return m_records; }
    // The record goes: a menu or a question that is open for it does nothing any more.
    void ForgetMenuOf(const CBaseRecord* record) {
        if (record == m_pMenuRecord) m_pMenuRecord = nullptr;
    }

    // The category's name; empty where the table doesn't know it.
    void GetCategoryName(CString& name, int index);

    static void BuildDateString(long date, CString& text, int withYear);
    long ParseDateString(CString& text);
    long GetMeADate(int item, long current);

    // The title for the note of a row's record: first line, priority and date; empty for no row.
    CString GetNoteTitle(int row);

    // What the column of that id shows of a record, masked or not, in a row that is selected or
    // not.
    TodoCell GetCell(CToDoRecord* record, int nId, bool isSelected);

    BOOL PreTranslateMessage(MSG* message) override;

    static const MessageMap& ThisMap();
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

protected:
    int InitializeColumns();

    // Adds the passing records category by category, each at its sorted place.
    void AddByCategory(CToDoIterator& iterator, CToDoTable& table);

    void DrawColumn(CDC* dc, int nColumn, DWORD dwItemData, CRect& rcCell, UINT nTextFlags,
                    int nReserved, int bSelectedRow) override;
    bool IsPlaceholder(int nColumn, DWORD dwItemData) override;

    // Draws a line through the row's text; with `animate` piece by piece, for 300 milliseconds or
    // more by the clock of GetTickCount.
    void StrikeOutEntry(CToDoRecord* record, CRect& rect, int animate);

    BOOL OnSetCursor(CWnd* window, UINT hitCode, UINT message);
    void OnDestroy();
    void OnSysColorChange();
    void MakeSelectedCheck();
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnClick(NMHDR* header, LRESULT* result);
    void OnGetInfoTip(NMHDR* header, LRESULT* result);
    void OnPriorityChange(UINT command);
    void OnDateChange(UINT command);
    void OnCategoryChange(UINT command);

private:
    std::optional<bool> IsChecked(int row, int column) override;
    bool IsOverdue(int row, int column) override;
    void NoteNew(const CToDoRecord& record);
    void NoteStart(const CToDoRecord& record);
    CString Remark(const CToDoRecord& record);
    CString PartsRemark(const CToDoRecord& record);
    CToDoRecord* RecordAt(int row) const;
    void RemoveRow(int row);  // and frees its record
    int RemoveFiltered(int row);
    void SelectNear(int row);
    void PostToOwner(UINT command);
    CToDoRecord* MenuRecord();
    void OpenPopup(int row, int nId, CPoint point);
    CToDoRecord* RecordToToggle(int row);
    void ToggleByClick(int row);
    void PlaceMovedSeries(int row);
    bool StrikeOutRow(int row);  // false where its text isn't shown

    int m_bShowDueOnly = 0;
    int m_bHideCompleted = 0;
    int m_bHidePrivate = 0;
    int m_bHideUnstarted = 0;
    int m_bMarkCompletionDate = 0;
    int m_nCategoryShown = kAllCategories;
    eSortOrder m_eSortOrder = eSortByPriorityDueDate;
    int m_nMenuRow = -1;  // on which a pop-up was opened last
    CBitmap m_bmpCheck;
    CBitmap m_bmpCheckSelected;  // in the colour of the selected text
    CBitmap m_bmpNote;
    CBitmap m_bmpPrivate;
    CImageList m_imageList;
    int m_nBitmapHeight = 0;
    HCURSOR m_hHandCursor = nullptr;
    CToDoTable* m_pTable = nullptr;
    RecordIndex m_records;
    std::optional<TodoParts> m_parts;  // of the table
    long m_nextStart = kMaxDate;
    CCategoryCombo* m_pCategoryCombo = nullptr;
    const CToDoRecord* m_pMenuRecord = nullptr;  // that is asked about; null once it may be freed
    std::function<bool(const CToDoRecord&)> m_mayComplete;
    std::function<CString(const CToDoRecord&)> m_tipOf;
};

// The comparison behind the orders: -1, 0 or 1 for two records of a view; 0 where one is null.
ORVO_API int TodoCompareRecords(long record1, long record2, long view);
// The same for the record of a row and a record.
ORVO_API int TodoCompareRowToRecord(long row, long record, long view);

// From now on lists of to-dos sort their rows by keys that give the order of TodoCompareRecords.
// May be called again.
ORVO_API void RegisterTodoSortKeys();

}  // namespace orvo
