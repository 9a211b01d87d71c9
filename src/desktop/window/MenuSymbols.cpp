// The pictures of the commands in the menus.
// SPDX-License-Identifier: MIT
#include <QAction>
#include <QMenu>

#include <desktop/symbols/Symbol.h>
#include <desktop/window/MenuSymbols.h>

namespace orvo::desktop {
namespace {

struct SymbolOfKey {
    const char* key;
    Symbol symbol;
};
constexpr SymbolOfKey kSymbols[] = {
    {"Ctrl+N", Symbol::NewAddress}, {"Ctrl+Shift+N", Symbol::NewToDo},
    {"Ctrl+I", Symbol::Import},     {"Ctrl+Shift+E", Symbol::Export},
    {"Ctrl+P", Symbol::Print},      {"Ctrl+,", Symbol::Options},
    {"Ctrl+Q", Symbol::Quit},       {"Ctrl+Z", Symbol::Undo},
    {"Ctrl+Shift+Z", Symbol::Redo}, {"Ctrl+O", Symbol::Open},
    {"Ctrl+C", Symbol::Copy},       {"Del", Symbol::Delete},
    {"Ctrl+F", Symbol::Find},       {"Ctrl+M", Symbol::Mail},
    {"Ctrl+L", Symbol::Padlock},    {"F9", Symbol::Details}};

void ShowSymbol(QAction& command) {
    for (const SymbolOfKey& row : kSymbols) {
        if (command.shortcut() == QKeySequence(row.key)) command.setIcon(MenuIconOf(row.symbol));
    }
}

}  // namespace

void ShowSymbols(const QMenuBar& menus) {
    for (const QAction* menu : menus.actions()) {
        if (!menu->menu()) continue;
        for (QAction* command : menu->menu()->actions()) ShowSymbol(*command);
    }
}

}  // namespace orvo::desktop
