// The window in which the views stand: the address views with their lookup box, and the to-dos.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <desktop/store/StoreSession.h>
#include <desktop/views/HeadingSpread.h>
#include <desktop/views/RowKeeper.h>
#include <desktop/views/ViewKind.h>
#include <host/Disclosure.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/DetailViewAddrCard.h>
#include <orvoshare/addressviews/LookupEdit.h>
#include <orvoshare/integration/OrvoOleDropTarget.h>
#include <orvoshare/todo/TodoListbox.h>

namespace orvo::desktop {

// It is the main window of the views: it hands out the options, and hears what they tell. Only the
// view that is shown holds records.
class ViewFrame : public CWnd {
public:
    // The session and the options outlive the frame.
    ViewFrame(StoreSession& session, COrvoDesktopOptions& options);
    ~ViewFrame() override;

    // Makes the windows of the views; none is shown yet.
    // Gives:  false where a window can't be made.
    bool Open();

    ViewKind Shown() const { return m_shown; }
    // Addresses and to-dos each come back with the rows that the user had before him.
    void Show(ViewKind kind);

    // Reads the records of the view that is shown again, with its selection kept.
    void Refill();

    // 16 for all. Of the addresses and of the to-dos there is a category each.
    int Category() const { return IsShowingToDos() ? m_toDoCategory : m_addressCategory; }
    void SetCategory(int category);
    CBaseTable& ShownTable();

    long AddressOrder() const { return m_addressOrder; }
    void SetAddressOrder(long listBy);
    eSortOrder ToDoOrder() const { return m_toDoOrder; }
    void SetToDoOrder(eSortOrder order);

    // From 0, as the user makes cards smaller or larger.
    void SetCardStep(int step);
    int CardStep() const;

    // How often rows have been read: as long as neither this nor their count changes, they are the
    // same.
    int FillCount() const { return m_fillCount; }
    int RowCount();
    int SelectedCount();
    bool IsShowingToDos() const { return m_shown == ViewKind::ToDos; }

    CLookupEdit& LookupBox() { return m_box; }
    // Opens what is selected, unless the lookup has just refused a letter: it isn't what was meant.
    void OpenByReturn();
    // The address view that is shown; while the to-dos are, the list, which is empty then.
    CDetailViewAddrInf& AddressView();
    // The window of the view that is shown, and its columns; null for cards.
    CWnd& ShownWindow();
    COrvoUIListViewCtrl* ShownColumns();
    CTodoListbox& ToDoList() { return *m_toDos; }  // once the window stands

    // Saves headings and the size of the cards.
    void SaveHeadings();

    // The selected records that are told whole on that way out. They are the view's.
    std::vector<CBaseRecord*> SelectedRecords(WayOut way);
    // How many selected ones aren't.
    int LeftOutOfSelection(WayOut way);
    // How many records the view would show if private ones weren't hidden.
    int HiddenCount();
    Disclosure Disclosed() const { return Disclosure(m_options); }
    // Selects the record of that id in the view that is shown, and nothing else.
    void SelectRecord(std::int64_t id);

    // Called where the user asks to open what he has selected: by Return or a double click.
    void SetOpenListener(std::function<void()> listener) { m_opened = std::move(listener); }

    // Called where another program asks the window to close.
    void SetCloseListener(std::function<void()> listener) { m_closed = std::move(listener); }

    // Called with the paths, in UTF-8, of card and calendar files that were dropped on the views.
    void SetDropListener(std::function<void(const std::vector<std::string>&)> listener) {
        m_dropped = std::move(listener);
    }

    // Called after rows, selection or order have changed.
    void SetChangeListener(std::function<void()> listener) { m_changed = std::move(listener); }

    static const MessageMap& ThisMap();
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    LRESULT OnPaint(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetOptions(WPARAM, LPARAM answer);
    LRESULT OnFilesDropped(WPARAM, LPARAM paths);
    void OnClose();
    void OnSize(UINT kind, int width, int height);
    void DoubleClicked(const NMITEMACTIVATE& click);
    void HeadingClicked(int column);
    LRESULT OnReturn(WPARAM, LPARAM);
    void OpenSelected();

    RowKeeper Remember();
    std::optional<RowKeeper>& RowsLeft() { return IsShowingToDos() ? m_toDoRows : m_addressRows; }
    void Empty();
    void Fill();
    void Arrange();
    void SetUpHeadings();
    void Tell();

    StoreSession& m_session;
    COrvoDesktopOptions& m_options;
    ViewKind m_shown = ViewKind::List;
    int m_fillCount = 0;
    int m_addressCategory = kAllCategories;
    int m_toDoCategory = kAllCategories;
    long m_addressOrder = kListByName;
    eSortOrder m_toDoOrder = eSortByPriorityDueDate;
    std::optional<RowKeeper> m_addressRows;  // of the views that aren't shown
    std::optional<RowKeeper> m_toDoRows;
    std::function<void()> m_changed;
    std::function<void()> m_opened;
    std::function<void()> m_closed;
    std::function<void(const std::vector<std::string>&)> m_dropped;
    COrvoOleDropTarget m_dropTarget;
    CCategoryCombo m_categories;  // the lists open no menu of categories without it
    CLookupEdit m_box;
    CDetailViewAddrList m_list;
    CDetailViewAddrCard m_cards;
    std::unique_ptr<CTodoListbox> m_toDos;  // it asks for the options as soon as it is there
    std::optional<HeadingSpread> m_listSpread;
    std::optional<HeadingSpread> m_toDoSpread;
};

}  // namespace orvo::desktop
