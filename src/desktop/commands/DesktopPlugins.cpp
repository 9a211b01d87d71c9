// The main window as plug-ins see it.
// SPDX-License-Identifier: MIT
#include <QStatusBar>
#include <utility>

#include <desktop/plugins/PluginMenu.h>
#include <desktop/texts/Texts.h>
#include <desktop/window/DesktopWindow.h>

namespace orvo::desktop {

void DesktopWindow::LoadPlugins() {
    SetLocator(*m_addressActions.front(), ORVO_ITEM_SEND_MAIL);
    Plugins::Services services;
    services.selectedIds = [this] {
        std::vector<std::int64_t> ids;
        for (const CBaseRecord* record : m_frame.SelectedRecords(WayOut::Export)) {
            ids.push_back(record->GetId());
        }
        return ids;
    };
    services.tell = [this](const std::string& line) {
        statusBar()->showMessage(FromUtf8(line), kMessageTime);
    };
    m_plugins = std::make_unique<Plugins>(*menuBar(), std::move(services));
    for (const std::string& problem : m_plugins->Load(PluginFolder())) TellProblem(problem);
}

}  // namespace orvo::desktop
