// Libraries of others that add entries to the menus.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include <desktop/plugins/PluginMenu.h>
#include <desktop/plugins/Plugins.h>
#include <platform/module/InstalledFolder.h>
#include <platform/qt/QtConvert.h>

namespace orvo::desktop {
namespace {

namespace fs = std::filesystem;

constexpr const char* kStart = "OrvoPluginStart";

std::vector<fs::path> LibrariesOf(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (entry->path().extension() == ".so") files.push_back(fs::absolute(entry->path()));
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

fs::path PluginFolder() {
    return InstalledFolder("ORVO_PLUGIN_DIR", ORVO_PLUGIN_FOLDER);
}

Plugins::Plugins(QMenuBar& bar, Services services)
    : m_bar(bar),
      m_services(std::move(services)),
      m_host{ORVO_PLUGIN_VERSION, this, &AddEntry, &SelectedIds, &Tell} {}

Plugins::~Plugins() {
    RemoveEntriesFrom(0);
    for (const HMODULE library : m_libraries) FreeLibrary(library);
}

std::vector<std::string> Plugins::Load(const fs::path& folder) {
    std::vector<std::string> problems;
    for (const fs::path& file : LibrariesOf(folder)) {
        const std::string problem = Start(file);
        if (!problem.empty()) problems.push_back(fmt::format("{}: {}", file.string(), problem));
    }
    return problems;
}

std::string Plugins::Start(const fs::path& file) {
    const std::string untrusted = WhyNotLoaded(file.c_str());
    if (!untrusted.empty()) return "the plug-in isn't loaded: " + untrusted;
    const HMODULE library = LoadLibraryA(file.c_str());
    if (!library) return "the plug-in is no library that can be loaded";
    const auto start = reinterpret_cast<OrvoPluginStartFunction>(GetProcAddress(library, kStart));
    const std::size_t entries = m_entries.size();
    const std::uint32_t version = start ? start(&m_host) : 0;
    if (version == ORVO_PLUGIN_VERSION) {
        m_libraries.push_back(library);
        return {};
    }
    RemoveEntriesFrom(entries);
    FreeLibrary(library);
    if (!start) return fmt::format("the plug-in has no function {}", kStart);
    if (version == 0) return "the plug-in can't work here";
    return fmt::format("the plug-in is made for version {} of the menus, this is version {}",
                       version, ORVO_PLUGIN_VERSION);
}

void Plugins::RemoveEntriesFrom(std::size_t first) {
    for (std::size_t i = first; i < m_entries.size(); ++i) delete m_entries[i];
    m_entries.resize(first);
}

int Plugins::AddEntry(void* host, std::uint32_t menu, std::uint32_t before, const char* text,
                      void (*chosen)(void* data), void* data) {
    auto& plugins = *static_cast<Plugins*>(host);
    if (!text || !chosen) return 0;
    QAction* entry = InsertEntry(plugins.m_bar, menu, before, QString::fromUtf8(text));
    if (!entry) return 0;
    QObject::connect(entry, &QAction::triggered, entry, [chosen, data] { chosen(data); });
    plugins.m_entries.emplace_back(entry);
    return 1;
}

std::uint32_t Plugins::SelectedIds(void* host, std::int64_t* ids, std::uint32_t room) {
    const std::vector<std::int64_t> selected =
        static_cast<Plugins*>(host)->m_services.selectedIds();
    const std::size_t count = ids ? std::min<std::size_t>(room, selected.size()) : 0;
    std::copy_n(selected.begin(), count, ids);
    return static_cast<std::uint32_t>(selected.size());
}

void Plugins::Tell(void* host, const char* text) {
    if (text) static_cast<Plugins*>(host)->m_services.tell(QString::fromUtf8(text).toStdString());
}

}  // namespace orvo::desktop
