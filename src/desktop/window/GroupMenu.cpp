// The commands of a menu that put the selected people into groups, and take them out.
// SPDX-License-Identifier: MIT
#include <desktop/texts/Texts.h>
#include <desktop/window/GroupMenu.h>

namespace orvo::desktop {

void GroupMenu::PutInto(QMenu& menu) {
    m_addToGroup = menu.addMenu(Text("Add to g&roup"));
    QObject::connect(m_addToGroup, &QMenu::aboutToShow, m_addToGroup,
                     [this] { m_groups.FillMenu(*m_addToGroup); });
    m_takeOut = menu.addAction(Text("Ta&ke out of the group"));
    QObject::connect(m_takeOut, &QAction::triggered, m_takeOut,
                     [this] { m_groups.TakeSelectedOut(); });
}

std::vector<QAction*> GroupMenu::Actions() const {
    std::vector<QAction*> actions{m_addToGroup->menuAction()};
    if (m_groups.CanTakeOut()) actions.push_back(m_takeOut);
    return actions;
}

void GroupMenu::Enable(bool arePeopleSelected) {
    m_addToGroup->menuAction()->setEnabled(arePeopleSelected);
    m_takeOut->setEnabled(arePeopleSelected && m_groups.CanTakeOut());
}

}  // namespace orvo::desktop
