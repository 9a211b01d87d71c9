// Keys, buttons and characters of Qt's events as messages have them.
// SPDX-License-Identifier: MIT
#include <platform/qt/QtKeys.h>
#include <platform/window/base/KeyInput.h>

namespace orvo {

namespace {

struct KeyRow {
    int qt;
    UINT ours;
};
constexpr KeyRow kKeys[] = {
    {Qt::Key_Backspace, VK_BACK},  {Qt::Key_Tab, VK_TAB},       {Qt::Key_Backtab, VK_TAB},
    {Qt::Key_Return, VK_RETURN},   {Qt::Key_Enter, VK_RETURN},  {Qt::Key_Shift, VK_SHIFT},
    {Qt::Key_Control, VK_CONTROL}, {Qt::Key_Alt, VK_MENU},      {Qt::Key_Escape, VK_ESCAPE},
    {Qt::Key_Space, VK_SPACE},     {Qt::Key_PageUp, VK_PRIOR},  {Qt::Key_PageDown, VK_NEXT},
    {Qt::Key_End, VK_END},         {Qt::Key_Home, VK_HOME},     {Qt::Key_Left, VK_LEFT},
    {Qt::Key_Up, VK_UP},           {Qt::Key_Right, VK_RIGHT},   {Qt::Key_Down, VK_DOWN},
    {Qt::Key_Insert, VK_INSERT},   {Qt::Key_Delete, VK_DELETE}, {Qt::Key_Menu, VK_APPS},
};

bool IsWithin(int key, int first, int last) {
    return key >= first && key <= last;
}

}  // namespace

UINT VirtualKeyOf(int key) {
    for (const KeyRow& row : kKeys) {
        if (row.qt == key) return row.ours;
    }
    if (IsWithin(key, Qt::Key_A, Qt::Key_Z) || IsWithin(key, Qt::Key_0, Qt::Key_9)) {
        return static_cast<UINT>(key);
    }
    if (IsWithin(key, Qt::Key_F1, Qt::Key_F24)) {
        return VK_F1 + static_cast<UINT>(key - Qt::Key_F1);
    }
    return 0;
}

Qt::KeyboardModifier ModifierOf(UINT key) {
    switch (key) {
        case VK_SHIFT:
            return Qt::ShiftModifier;
        case VK_CONTROL:
            return Qt::ControlModifier;
        case VK_MENU:
            return Qt::AltModifier;
        default:
            return Qt::NoModifier;
    }
}

UINT FlagsOf(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons) {
    UINT flags = 0;
    if (buttons.testFlag(Qt::LeftButton)) flags |= MK_LBUTTON;
    if (buttons.testFlag(Qt::RightButton)) flags |= MK_RBUTTON;
    if (modifiers.testFlag(Qt::ShiftModifier)) flags |= MK_SHIFT;
    if (modifiers.testFlag(Qt::ControlModifier)) flags |= MK_CONTROL;
    return flags;
}

void HandleText(HWND window, const QString& text) {
    constexpr char32_t kFirstPrintable = 0x20;
    constexpr char32_t kDelete = 0x7F;
    for (const char32_t character : text.toStdU32String()) {
        if (character >= kFirstPrintable && character != kDelete) {
            HandleCharacter(window, character);
        }
    }
}

}  // namespace orvo
