// A window system without a screen: answers and input.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdio>

#include <platform/text/Utf8.h>
#include <platform/window/base/CWnd.h>
#include <platform/window/base/KeyInput.h>
#include <platform/window/base/WindowInput.h>
#include <platform/window/dialogs/CMenu.h>
#include <platform/window/memory/MemoryEditPeer.h>
#include <platform/window/memory/MemoryListPeer.h>
#include <platform/window/memory/MemoryWindowSystem.h>

namespace orvo {

namespace {

struct StandardColour {
    int id;
    COLORREF colour;
};
constexpr StandardColour kColours[] = {
    {COLOR_WINDOW, RGB(255, 255, 255)},
    {COLOR_WINDOWTEXT, RGB(0, 0, 0)},
    {COLOR_PLACEHOLDERTEXT, RGB(112, 112, 112)},
    {COLOR_HIGHLIGHT, RGB(0, 0, 128)},
    {COLOR_HIGHLIGHTTEXT, RGB(255, 255, 255)},
    {COLOR_BTNFACE, RGB(192, 192, 192)},
    {COLOR_BTNSHADOW, RGB(128, 128, 128)},
    {COLOR_GRAYTEXT, RGB(128, 128, 128)},
    {COLOR_BTNTEXT, RGB(0, 0, 0)},
    {COLOR_INFOTEXT, RGB(0, 0, 0)},
    {COLOR_INFOBK, RGB(255, 255, 225)},
    {COLOR_ALTERNATE, RGB(240, 240, 240)},
};

void Collect(const CMenu& menu, std::vector<ShownMenu::Item>& items) {
    for (int position = 0; position < menu.GetMenuItemCount(); ++position) {
        if (const CMenu* submenu = menu.GetSubMenu(position)) {
            Collect(*submenu, items);
            continue;
        }
        const auto number = static_cast<UINT>(position);
        ShownMenu::Item item{
            menu.GetMenuItemID(position), menu.GetMenuState(number, MF_BYPOSITION), {}};
        menu.GetMenuString(number, item.text, MF_BYPOSITION);
        items.push_back(std::move(item));
    }
}

template <class Answer>
std::optional<Answer> TakeFirst(std::deque<Answer>& answers) {
    if (answers.empty()) return std::nullopt;
    std::optional<Answer> answer(std::move(answers.front()));
    answers.pop_front();
    return answer;
}

UINT ChoosableCommand(const ShownMenu& menu,
                      const std::function<bool(const ShownMenu::Item&)>& is) {
    for (const ShownMenu::Item& item : menu.items) {
        const bool isDead = (item.state & (MF_GRAYED | MF_DISABLED | MF_SEPARATOR)) != 0;
        if (!isDead && is(item)) return item.command;
    }
    return 0;
}

}  // namespace

void MemoryWindowSystem::OnUnexpectedQuestion(std::function<void(const std::string&)> hook) {
    m_hook = std::move(hook);
}

void MemoryWindowSystem::Complain(const std::string& question) const {
    if (m_hook) {
        m_hook(question);
    } else {
        std::fprintf(stderr, "window system: %s, and nobody is there to answer\n",
                     question.c_str());
    }
}

void MemoryWindowSystem::ChooseCommand(UINT command) {
    m_choices.emplace_back([this, command](const ShownMenu& menu) {
        const UINT chosen = ChoosableCommand(
            menu, [command](const ShownMenu::Item& item) { return item.command == command; });
        if (chosen != command) {
            Complain("the menu has no command " + std::to_string(command) + " to choose");
        }
        return chosen;
    });
}

void MemoryWindowSystem::ChooseText(const CString& text) {
    m_choices.emplace_back([this, text](const ShownMenu& menu) {
        const UINT chosen = ChoosableCommand(
            menu, [&text](const ShownMenu::Item& item) { return item.text == text; });
        if (chosen == 0) Complain("the menu has no item \"" + text.Bytes() + "\" to choose");
        return chosen;
    });
}

bool MemoryWindowSystem::HasAnswersLeft() const {
    return !m_choices.empty() || !m_boxAnswers.empty() || !m_days.empty() || !m_fileDialogs.empty();
}

UINT MemoryWindowSystem::TrackPopupMenu(CMenu& menu, UINT flags, CPoint point, CWnd* owner) {
    ShownMenu shown{{}, flags, point, owner};
    Collect(menu, shown.items);
    m_menus.push_back(shown);
    const std::optional<Choice> choice = TakeFirst(m_choices);
    if (choice) return (*choice)(shown);
    Complain("a menu was shown");
    return 0;
}

int MemoryWindowSystem::ShowMessageBox(CWnd*, const CString& text, UINT) {
    m_boxes.push_back(text);
    const std::optional<int> answer = TakeFirst(m_boxAnswers);
    if (!answer) Complain("a message box was shown: " + text.Bytes());
    return answer.value_or(IDCANCEL);
}

bool MemoryWindowSystem::PickDay(CWnd*, CTime& day) {
    const std::optional<std::optional<CTime>> answer = TakeFirst(m_days);
    if (!answer) Complain("a day was asked for");
    const bool isChosen = answer && *answer;
    if (isChosen) day = **answer;
    return isChosen;
}

std::unique_ptr<FileDialogPeer> MemoryWindowSystem::MakeFileDialogPeer(
    const PeerPlace& place, const FileDialogSetup& setup) {
    const std::optional<MemoryFileDialogPeer::User> user = TakeFirst(m_fileDialogs);
    if (!user) Complain("a file dialog was shown");
    return std::make_unique<MemoryFileDialogPeer>(place, setup,
                                                  user.value_or(MemoryFileDialogPeer::User()));
}

bool MemoryWindowSystem::PlaySoundFile(const CString& path) {
    m_sounds.push_back(path);
    m_isPlaying = true;
    return true;
}

COLORREF MemoryWindowSystem::Colour(int id) const {
    const auto found = m_colours.find(id);
    if (found != m_colours.end()) return found->second;
    for (const StandardColour& standard : kColours) {
        if (standard.id == id) return standard.colour;
    }
    return RGB(0, 0, 0);
}

void MemoryWindowSystem::Pump() {
    PumpMessages();
    m_isAwake = false;
}

void MemoryWindowSystem::PressKey(UINT key, std::initializer_list<UINT> held) {
    CWnd* window = CWnd::GetFocus();
    if (!window) return;
    const HWND handle = window->GetSafeHwnd();
    m_keysDown.insert(held.begin(), held.end());
    const HeldKeys modifiers{IsKeyDown(VK_MENU), IsKeyDown(VK_CONTROL)};
    HandleKeyDown(handle, key, modifiers);
    Pump();
    HandleKeyUp(handle, key, modifiers);
    for (const UINT each : held) m_keysDown.erase(each);
    Pump();
}

void MemoryWindowSystem::TypeText(std::string_view utf8) {
    while (!utf8.empty()) {
        const CodePoint first = FirstCodePoint(utf8);
        const CWnd* window = CWnd::GetFocus();
        HandleCharacter(window ? window->GetSafeHwnd() : nullptr, first.value);
        Pump();
        utf8.remove_prefix(first.length);
    }
}

void MemoryWindowSystem::Button(CWnd& window, CPoint point, std::initializer_list<UINT> messages,
                                UINT flags) {
    const HWND handle = window.GetSafeHwnd();
    MovePointer(window, point);
    for (const UINT message : messages) {
        HandleInput({handle, message, flags, MAKELPARAM(point.x, point.y)});
        Pump();
    }
}

void MemoryWindowSystem::Click(CWnd& window, CPoint point, UINT flags) {
    Button(window, point, {WM_LBUTTONDOWN, WM_LBUTTONUP}, flags | MK_LBUTTON);
}

void MemoryWindowSystem::DoubleClick(CWnd& window, CPoint point) {
    Button(window, point, {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP},
           MK_LBUTTON);
}

void MemoryWindowSystem::RightClick(CWnd& window, CPoint point) {
    Button(window, point, {WM_RBUTTONDOWN, WM_RBUTTONUP}, MK_RBUTTON);
}

void MemoryWindowSystem::MovePointer(CWnd& window, CPoint point) {
    const HWND handle = window.GetSafeHwnd();
    m_pointer = point;
    window.ClientToScreen(&m_pointer);
    SendMessage(handle, WM_SETCURSOR, WParamOf(handle),
                MAKELPARAM(static_cast<int>(HTCLIENT), static_cast<int>(WM_MOUSEMOVE)));
    HandleInput({handle, WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y)});
    Pump();
}

void MemoryWindowSystem::StartTimer(HWND window, UINT_PTR id, UINT milliseconds) {
    StopTimer(window, id);
    const UINT step = std::max(milliseconds, 1U);
    m_timers.push_back({window, id, step, m_milliseconds + step});
}

bool MemoryWindowSystem::StopTimer(HWND window, UINT_PTR id) {
    return std::erase_if(m_timers, [&](const Timer& timer) {
               return timer.window == window && timer.id == id;
           }) != 0;
}

void MemoryWindowSystem::PassTime(UINT milliseconds) {
    const std::uint64_t end = m_milliseconds + milliseconds;
    while (true) {
        const auto next = std::min_element(
            m_timers.begin(), m_timers.end(),
            [](const Timer& one, const Timer& other) { return one.due < other.due; });
        if (next == m_timers.end() || next->due > end) break;
        m_milliseconds = next->due;
        next->due += next->milliseconds;
        HandleInput({next->window, WM_TIMER, next->id, 0});
        Pump();
    }
    m_milliseconds = end;
}

std::unique_ptr<WindowPeer> MemoryWindowSystem::MakeWindowPeer(const PeerPlace& place) {
    return std::make_unique<MemoryWindowPeer>(place);
}

std::unique_ptr<ListPeer> MemoryWindowSystem::MakeListPeer(const PeerPlace& place) {
    return std::make_unique<MemoryListPeer>(place);
}

std::unique_ptr<EditPeer> MemoryWindowSystem::MakeEditPeer(const PeerPlace& place) {
    return std::make_unique<MemoryEditPeer>(place);
}

std::unique_ptr<Canvas> MemoryWindowSystem::MakeMeasuringCanvas() {
    return std::make_unique<RecordingCanvas>(std::make_shared<Recording>());
}

WindowSystem& DefaultWindowSystem() {
    static MemoryWindowSystem system;
    return system;
}

}  // namespace orvo
