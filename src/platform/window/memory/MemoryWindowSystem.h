// A window system without a screen: exact geometry, scripted answers, input from a script.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <platform/window/base/WindowSystem.h>
#include <platform/window/memory/MemoryFileDialogPeer.h>

namespace orvo {

// A menu that was shown, as it stood then.
struct ShownMenu {
    struct Item {
        UINT command = 0;
        UINT state = 0;
        CString text;
    };

    std::vector<Item> items;
    UINT flags = 0;
    CPoint point;
    CWnd* owner = nullptr;
};

class ORVO_API MemoryWindowSystem : public WindowSystem {
public:
    // What happens at a question for which there is no answer: it is reported to the hook, or where
    // there is none to standard error, and answered as a user who closes it does: no command,
    // IDCANCEL, no day, no file.
    void OnUnexpectedQuestion(std::function<void(const std::string&)> hook);

    // The answers to coming questions, each for one.
    void ChooseCommand(UINT command);  // 0 closes the menu
    void ChooseText(const CString& text);
    void AnswerMessageBox(int answer) { m_boxAnswers.push_back(answer); }
    void AnswerDay(std::optional<CTime> day) { m_days.push_back(day); }
    void UseFileDialog(MemoryFileDialogPeer::User user) {
        m_fileDialogs.push_back(std::move(user));
    }
    bool HasAnswersLeft() const;

    const std::vector<ShownMenu>& Menus() const { return m_menus; }
    const std::vector<CString>& MessageBoxes() const { return m_boxes; }
    const std::vector<HCURSOR>& Cursors() const { return m_cursors; }
    int Beeps() const { return m_beeps; }
    const std::vector<CString>& Sounds() const { return m_sounds; }  // the files, as they began
    bool IsPlaying() const { return m_isPlaying; }                   // until it is stopped
    bool IsAwake() const { return m_isAwake; }                       // a message was posted

    void SetColour(int id, COLORREF colour) { m_colours[id] = colour; }
    void SetPointer(CPoint point) { m_pointer = point; }

    // The user's doing. It reaches the window with the focus, or the given one, as messages do
    // that come from a screen; what it posts is handled before the function returns. A key that
    // stands for a control character is followed by its WM_CHAR, unless PreTranslateMessage took
    // it.
    void PressKey(UINT key, std::initializer_list<UINT> held = {});
    void TypeText(std::string_view utf8);  // WM_CHAR alone
    void Click(CWnd& window, CPoint point, UINT flags = 0);
    void DoubleClick(CWnd& window, CPoint point);
    void RightClick(CWnd& window, CPoint point);
    void MovePointer(CWnd& window, CPoint point);

    // Time goes by: the timers that are due meanwhile tick, each at its moment.
    void PassTime(UINT milliseconds);

    std::unique_ptr<WindowPeer> MakeWindowPeer(const PeerPlace& place) override;
    std::unique_ptr<ListPeer> MakeListPeer(const PeerPlace& place) override;
    std::unique_ptr<EditPeer> MakeEditPeer(const PeerPlace& place) override;
    std::unique_ptr<Canvas> MakeMeasuringCanvas() override;
    std::unique_ptr<FileDialogPeer> MakeFileDialogPeer(const PeerPlace& place,
                                                       const FileDialogSetup& setup) override;
    void WakeUp() override { m_isAwake = true; }
    void StartTimer(HWND window, UINT_PTR id, UINT milliseconds) override;
    bool StopTimer(HWND window, UINT_PTR id) override;
    UINT TrackPopupMenu(CMenu& menu, UINT flags, CPoint point, CWnd* owner) override;
    int ShowMessageBox(CWnd* owner, const CString& text, UINT type) override;
    bool PickDay(CWnd* owner, CTime& day) override;
    void Beep(UINT) override { ++m_beeps; }
    bool PlaySoundFile(const CString& path) override;
    void StopSound() override { m_isPlaying = false; }
    void ShowCursor(HCURSOR cursor) override { m_cursors.push_back(cursor); }
    CPoint PointerPosition() const override { return m_pointer; }
    bool IsKeyDown(UINT key) const override { return m_keysDown.count(key) != 0; }
    COLORREF Colour(int id) const override;
    CString ClipboardText() const override { return m_clipboard; }
    void SetClipboardText(const CString& text) override { m_clipboard = text; }

private:
    using Choice = std::function<UINT(const ShownMenu&)>;

    struct Timer {
        HWND window = nullptr;
        UINT_PTR id = 0;
        UINT milliseconds = 0;
        std::uint64_t due = 0;
    };

    void Complain(const std::string& question) const;
    void Pump();
    void Button(CWnd& window, CPoint point, std::initializer_list<UINT> messages, UINT flags);

    std::function<void(const std::string&)> m_hook;
    std::vector<Timer> m_timers;
    std::uint64_t m_milliseconds = 0;  // passed so far
    std::deque<Choice> m_choices;
    std::deque<int> m_boxAnswers;
    std::deque<std::optional<CTime>> m_days;
    std::deque<MemoryFileDialogPeer::User> m_fileDialogs;
    std::vector<ShownMenu> m_menus;
    std::vector<CString> m_boxes;
    std::vector<HCURSOR> m_cursors;
    std::vector<CString> m_sounds;
    bool m_isPlaying = false;
    int m_beeps = 0;
    bool m_isAwake = false;
    CPoint m_pointer;
    std::set<UINT> m_keysDown;
    std::map<int, COLORREF> m_colours;
    CString m_clipboard;
};

}  // namespace orvo
