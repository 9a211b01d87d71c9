// Menus from the resources in reach.
// SPDX-License-Identifier: MIT
#include <platform/module/FindResource.h>
#include <platform/window/dialogs/CMenu.h>
#include <platform/window/dialogs/ResourceWords.h>

namespace orvo {

// A line is "popup <text>", which begins a submenu, or "item <command>"; both are numbers of
// strings in the same module.
BOOL CMenu::LoadMenu(UINT number) {
    const HINSTANCE module = FindResourceModule(ResourceKind::Menu, number);
    if (m_handle || !module) return 0;

    CMenu menu;
    menu.CreatePopupMenu();
    CMenu* popup = nullptr;
    for (const auto& words : SplitLines(module->FindResource(ResourceKind::Menu, number))) {
        const std::optional<int> id = words.size() == 2 ? NumberOf(words[1]) : std::nullopt;
        if (!id || *id <= 0) return 0;
        const auto command = static_cast<UINT>(*id);
        const CString text = StringOf(*module, command);
        if (words[0] == "popup") {
            auto submenu = std::make_unique<CMenu>();
            submenu->CreatePopupMenu();
            popup = submenu.get();
            menu.AppendMenu(std::move(submenu), text);
        } else if (words[0] == "item" && popup) {
            popup->AppendMenu(MF_STRING, command, text);
        } else {
            return 0;
        }
    }
    if (!popup) return 0;
    CreatePopupMenu();
    m_items = std::move(menu.m_items);
    return 1;
}

}  // namespace orvo
