// Typed message maps: which member function of a window handles which message.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <initializer_list>
#include <type_traits>
#include <vector>

#include <platform/Export.h>
#include <platform/window/list/ListMessages.h>

namespace orvo {

class CWnd;

// Returns the window of a handle, or null.
ORVO_API CWnd* WindowFromHandle(HWND window);

struct MessageMapEntry {
    enum class Kind { Message, Command, Control, ControlReflect, Notify, NotifyReflect };
    // Returns false where the handler leaves the message to those that follow.
    using Call = std::function<bool(CWnd&, WPARAM, LPARAM, LRESULT&)>;

    Kind kind;
    UINT code;         // of the message or notification
    UINT first, last;  // of the commands or controls
    Call call;
};

// The entries of one class, and the map of its base. Maps are static: one lives as long as the
// process.
class ORVO_API MessageMap {
public:
    explicit MessageMap(std::initializer_list<MessageMapEntry> entries) : m_entries(entries) {}
    MessageMap(const MessageMap& base, std::initializer_list<MessageMapEntry> entries)
        : m_base(&base), m_entries(entries) {}

    // Calls the first entry that fits, those of a class before those of its base.
    // Returns:  true when one handled the message; `result` is its answer.
    bool Dispatch(MessageMapEntry::Kind kind, UINT code, UINT id, CWnd& window, WPARAM wParam,
                  LPARAM lParam, LRESULT& result) const;

private:
    const MessageMap* m_base = nullptr;
    std::vector<MessageMapEntry> m_entries;
};

// How the arguments of a message become those of a handler: one struct a signature.
namespace cracker {

struct Nothing {
    template <class Class>
    using Handler = void (Class::*)();
    template <class Class>
    static LRESULT Call(Class& window, Handler<Class> handler, WPARAM, LPARAM) {
        (window.*handler)();
        return 0;
    }
};

struct Key {
    template <class Class>
    using Handler = void (Class::*)(UINT key, UINT repeat, UINT flags);
    template <class Class>
    static LRESULT Call(Class& window, Handler<Class> handler, WPARAM wParam, LPARAM lParam) {
        const auto bits = static_cast<unsigned long>(lParam);
        (window.*handler)(static_cast<UINT>(wParam), LOWORD(bits), HIWORD(bits));
        return 0;
    }
};

struct Mouse {
    template <class Class>
    using Handler = void (Class::*)(UINT flags, CPoint point);
    template <class Class>
    static LRESULT Call(Class& window, Handler<Class> handler, WPARAM wParam, LPARAM lParam) {
        (window.*handler)(static_cast<UINT>(wParam), PointOf(lParam));
        return 0;
    }
};

struct OtherWindow {
    template <class Class>
    using Handler = void (Class::*)(CWnd* other);
    template <class Class>
    static LRESULT Call(Class& window, Handler<Class> handler, WPARAM wParam, LPARAM) {
        (window.*handler)(WindowFromHandle(WindowOf(wParam)));
        return 0;
    }
};

struct Cursor {
    template <class Class>
    using Handler = BOOL (Class::*)(CWnd* window, UINT hitCode, UINT message);
    template <class Class>
    static LRESULT Call(Class& window, Handler<Class> handler, WPARAM wParam, LPARAM lParam) {
        const auto bits = static_cast<unsigned long>(lParam);
        return (window.*handler)(WindowFromHandle(WindowOf(wParam)), LOWORD(bits), HIWORD(bits));
    }
};

struct Creation {
    template <class Class>
    using Handler = int (Class::*)(CREATESTRUCT* creation);
    template <class Class>
    static LRESULT Call(Class& window, Handler<Class> handler, WPARAM, LPARAM lParam) {
        return (window.*handler)(PointerOf<CREATESTRUCT>(lParam));
    }
};

struct Size {
    template <class Class>
    using Handler = void (Class::*)(UINT kind, int width, int height);
    template <class Class>
    static LRESULT Call(Class& window, Handler<Class> handler, WPARAM wParam, LPARAM lParam) {
        const CPoint size = PointOf(lParam);
        (window.*handler)(static_cast<UINT>(wParam), size.x, size.y);
        return 0;
    }
};

struct Timer {
    template <class Class>
    using Handler = void (Class::*)(UINT_PTR id);
    template <class Class>
    static LRESULT Call(Class& window, Handler<Class> handler, WPARAM wParam, LPARAM) {
        (window.*handler)(wParam);
        return 0;
    }
};

struct Raw {
    template <class Class>
    using Handler = LRESULT (Class::*)(WPARAM, LPARAM);
    template <class Class>
    static LRESULT Call(Class& window, Handler<Class> handler, WPARAM wParam, LPARAM lParam) {
        return (window.*handler)(wParam, lParam);
    }
};

template <UINT... Messages>
struct AnyOf {
    static constexpr bool Has(UINT message) { return ((message == Messages) || ...); }
};
using KeyMessages = AnyOf<WM_CHAR, WM_KEYDOWN, WM_KEYUP, WM_SYSCHAR, WM_SYSKEYDOWN, WM_SYSKEYUP>;
using MouseMessages = AnyOf<WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK,
                            WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK>;
using NothingMessages =
    AnyOf<WM_DESTROY, WM_CLOSE, WM_SYSCOLORCHANGE, WM_CUT, WM_COPY, WM_PASTE, WM_CLEAR>;

template <UINT Message>
constexpr auto Choose() {
    if constexpr (KeyMessages::Has(Message))
        return Key{};
    else if constexpr (MouseMessages::Has(Message))
        return Mouse{};
    else if constexpr (NothingMessages::Has(Message))
        return Nothing{};
    else if constexpr (Message == WM_SETFOCUS || Message == WM_KILLFOCUS)
        return OtherWindow{};
    else if constexpr (Message == WM_SETCURSOR)
        return Cursor{};
    else if constexpr (Message == WM_CREATE)
        return Creation{};
    else if constexpr (Message == WM_SIZE)
        return Size{};
    else if constexpr (Message == WM_TIMER)
        return Timer{};
    else
        return Raw{};
}

template <class Member>
struct ClassOf;
template <class Result, class Class, class... Arguments>
struct ClassOf<Result (Class::*)(Arguments...)> {
    using Type = Class;
};

}  // namespace cracker

// A message. The handler's signature is the one of the message in namespace cracker; messages that
// aren't named there take LRESULT (WPARAM, LPARAM).
template <UINT Message, class Member>
MessageMapEntry On(Member handler) {
    using Class = typename cracker::ClassOf<Member>::Type;
    using Cracker = decltype(cracker::Choose<Message>());
    static_assert(std::is_same_v<Member, typename Cracker::template Handler<Class>>,
                  "the handler's signature isn't the one of this message");
    return {MessageMapEntry::Kind::Message, Message, 0, 0,
            [handler](CWnd& window, WPARAM wParam, LPARAM lParam, LRESULT& result) {
                result = Cracker::Call(static_cast<Class&>(window), handler, wParam, lParam);
                return true;
            }};
}

// A command: WM_COMMAND with that id and no control.
template <class Class>
MessageMapEntry OnCommand(UINT id, void (Class::*handler)()) {
    return {MessageMapEntry::Kind::Command, 0, id, id,
            [handler](CWnd& window, WPARAM, LPARAM, LRESULT&) {
                (static_cast<Class&>(window).*handler)();
                return true;
            }};
}

// All commands from `first` to `last`; the handler learns which.
template <class Class>
MessageMapEntry OnCommandRange(UINT first, UINT last, void (Class::*handler)(UINT id)) {
    return {MessageMapEntry::Kind::Command, 0, first, last,
            [handler](CWnd& window, WPARAM wParam, LPARAM, LRESULT&) {
                (static_cast<Class&>(window).*handler)(LOWORD(wParam));
                return true;
            }};
}

// What the child control `id` reports in WM_COMMAND, at its parent.
template <UINT Code, class Class>
MessageMapEntry OnControl(UINT id, void (Class::*handler)()) {
    return {MessageMapEntry::Kind::Control, Code, id, id,
            [handler](CWnd& window, WPARAM, LPARAM, LRESULT&) {
                (static_cast<Class&>(window).*handler)();
                return true;
            }};
}

// The same, at the control itself.
template <UINT Code, class Class>
MessageMapEntry OnControlReflect(void (Class::*handler)()) {
    MessageMapEntry entry = OnControl<Code>(0, handler);
    entry.kind = MessageMapEntry::Kind::ControlReflect;
    return entry;
}

// A notification of the child control `id`, at its parent.
template <UINT Code, class Class>
MessageMapEntry OnNotifyFrom(UINT id, void (Class::*handler)(NMHDR*, LRESULT*)) {
    return {MessageMapEntry::Kind::Notify, Code, id, id,
            [handler](CWnd& window, WPARAM, LPARAM lParam, LRESULT& result) {
                (static_cast<Class&>(window).*handler)(PointerOf<NMHDR>(lParam), &result);
                return true;
            }};
}

// A notification of the control's own, reflected to it before its parent handles it.
template <UINT Code, class Class>
MessageMapEntry OnNotifyReflect(void (Class::*handler)(NMHDR*, LRESULT*)) {
    MessageMapEntry entry = OnNotifyFrom<Code>(0, handler);
    entry.kind = MessageMapEntry::Kind::NotifyReflect;
    return entry;
}

}  // namespace orvo
