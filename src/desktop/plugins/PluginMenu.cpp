// Where entries of plug-ins stand in the menus.
// SPDX-License-Identifier: MIT
#include <QMenu>
#include <QVariant>
#include <memory>
#include <utility>

#include <desktop/plugins/PluginMenu.h>
#include <orvoshare/integration/MenuItemLocater.h>

namespace orvo::desktop {
namespace {

constexpr const char* kLocator = "orvoLocator";  // a property of actions

// Gives the items of a menu the locators of Qt's actions.
class ActionLocater : public CMenuItemLocater {
public:
    explicit ActionLocater(QList<QAction*> actions) : m_actions(std::move(actions)) {}

    int InitializeMenuPositions(HMENU menu) override {
        for (int i = 0; i < m_actions.size(); ++i) {
            SetMenuLocator(menu, static_cast<unsigned>(i),
                           m_actions[i]->property(kLocator).toUInt());
        }
        return 1;
    }

private:
    QList<QAction*> m_actions;
};

// The same menus as the bar's, one level deep.
std::unique_ptr<CMenu> MenuOf(const QList<QAction*>& actions, bool hasSubmenus) {
    auto menu = std::make_unique<CMenu>();
    menu->CreatePopupMenu();
    for (const QAction* action : actions) {
        if (hasSubmenus && action->menu()) {
            menu->AppendMenu(MenuOf(action->menu()->actions(), false), {});
        } else {
            menu->AppendMenu(0);
        }
    }
    ActionLocater(actions).InitializeMenuPositions(menu->GetSafeHmenu());
    return menu;
}

}  // namespace

void SetLocator(QAction& action, std::uint32_t locator) {
    action.setProperty(kLocator, locator);
}

QAction* InsertEntry(QMenuBar& bar, std::uint32_t menu, std::uint32_t before, const QString& text) {
    const QList<QAction*> menus = bar.actions();
    const std::unique_ptr<CMenu> mirror = MenuOf(menus, true);
    CMenuItemLocater locater;
    unsigned place = 0;
    // Items without a locator have 0.
    if (menu == 0 || !locater.GetMenuPosition(mirror->GetSafeHmenu(), menu, &place)) return nullptr;
    QMenu* found = menus[static_cast<int>(place)]->menu();
    if (!found) return nullptr;
    const QList<QAction*> items = found->actions();
    unsigned item = 0;
    const bool isThere =
        before != 0 && locater.GetMenuItemPosition(mirror->GetSafeHmenu(), menu, before, &item);
    auto* entry = new QAction(text, found);
    found->insertAction(isThere ? items[static_cast<int>(item)] : nullptr, entry);
    return entry;
}

}  // namespace orvo::desktop
