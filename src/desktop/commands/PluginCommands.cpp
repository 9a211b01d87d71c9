// The window as plug-ins see it.
// SPDX-License-Identifier: MIT
#include <utility>

#include <desktop/commands/PluginCommands.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {

void PluginCommands::Load(QMenuBar& bar) {
    Plugins::Services services;
    services.selectedIds = [this] {
        std::vector<std::int64_t> ids;
        for (const CBaseRecord* record :
             m_context.Frame().Entries().SelectedRecords(WayOut::Export)) {
            ids.push_back(record->GetId());
        }
        return ids;
    };
    services.tell = [this](const std::string& line) { m_context.Say(FromUtf8(line)); };
    m_plugins = std::make_unique<Plugins>(bar, std::move(services));
    for (const std::string& problem : m_plugins->Load(PluginFolder())) {
        m_context.ReportProblem(problem);
    }
}

}  // namespace orvo::desktop
