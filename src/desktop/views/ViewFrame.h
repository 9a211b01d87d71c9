// The window in which the views stand: the address views with their lookup box, to-dos, birthdays.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <desktop/views/ShownAddresses.h>
#include <desktop/views/ShownBirthdays.h>
#include <desktop/views/ShownToDos.h>
#include <orvoshare/integration/OrvoOleDropTarget.h>

namespace orvo::desktop {

// Called for what happens in the views; each may be empty.
struct ViewListeners {
    std::function<void()> changed;  // rows, selection or order have changed
    std::function<void()> opened;   // the user asks to open, by Return or a double click
    std::function<void()> closed;   // another program asks the window to close
    // Card and calendar files, paths in UTF-8, were dropped on the views.
    std::function<void(const std::vector<std::string>&)> dropped;
};

// It is the main window of the views: it hands out the options, and gets their messages. Only the
// view that is shown holds records.
class ViewFrame : public CWnd {
public:
    // The session and the options outlive the frame.
    ViewFrame(StoreSession& session, COrvoDesktopOptions& options);
    ~ViewFrame() override;

    // Makes the windows of the views; none is shown yet.
    // Returns:  false where a window can't be made.
    bool Open();

    ViewKind Shown() const { return m_shown; }
    bool IsShowingAddresses() const { return !IsShowingToDos() && m_shown != ViewKind::Birthdays; }
    bool IsShowingToDos() const { return m_shown == ViewKind::ToDos; }
    // Addresses and to-dos each come back with the rows that the user had before him.
    void Show(ViewKind kind);

    // Those of the view that is shown.
    ShownEntries& Entries();
    ShownAddresses& Addresses() { return m_addresses; }
    ShownToDos& ToDos() { return m_toDos; }
    ShownBirthdays& Birthdays() { return m_birthdays; }

    // Only what holds it shows, whatever the view.
    void SetFind(const FindQuery& query);

    CLookupEdit& LookupBox() { return m_box; }
    // Opens what is selected, unless the lookup has just refused a letter: it isn't what was meant.
    void OpenByReturn();

    // Saves headings and the size of the cards.
    void SaveHeadings();

    ViewListeners& Listeners() { return m_listeners; }

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
    LRESULT OnReturn(WPARAM, LPARAM);
    void OpenSelected();

    void Arrange();
    void Tell();

    COrvoDesktopOptions& m_options;
    ViewKind m_shown = ViewKind::List;
    bool m_isOpen = false;
    ViewListeners m_listeners;
    COrvoOleDropTarget m_dropTarget;
    CCategoryCombo m_categories;  // the lists open no menu of categories without it
    CLookupEdit m_box;
    ShownAddresses m_addresses;
    ShownToDos m_toDos;
    ShownBirthdays m_birthdays;
};

}  // namespace orvo::desktop
