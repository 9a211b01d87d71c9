// Libraries of others that add entries to the menus.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>
#include <QPointer>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <contracts/Plugin.h>
#include <platform/module/LoadLibrary.h>

namespace orvo::desktop {

// Where plug-ins lie: the folder that ORVO_PLUGIN_DIR names, else the installed one.
std::filesystem::path PluginFolder();

class Plugins {
public:
    struct Services {
        std::function<std::vector<std::int64_t>()> selectedIds;
        std::function<void(const std::string&)> tell;  // one line, in UTF-8
    };

    // The bar and what the services use outlive the plug-ins.
    Plugins(QMenuBar& bar, Services services);
    // The entries go.
    ~Plugins();
    Plugins(const Plugins&) = delete;
    Plugins& operator=(const Plugins&) = delete;

    // Starts each library of the folder, in the order of their names.
    // Returns:  a line for each that doesn't work; nothing of it remains.
    std::vector<std::string> Load(const std::filesystem::path& folder);

private:
    // Returns what is wrong, empty for nothing.
    std::string Start(const std::filesystem::path& file);
    void RemoveEntriesFrom(std::size_t first);

    static int AddEntry(void* host, std::uint32_t menu, std::uint32_t before, const char* text,
                        void (*chosen)(void* data), void* data);
    static std::uint32_t SelectedIds(void* host, std::int64_t* ids, std::uint32_t room);
    static void Tell(void* host, const char* text);

    QMenuBar& m_bar;
    Services m_services;
    OrvoPluginHost m_host;
    std::vector<QPointer<QAction>> m_entries;
    std::vector<HMODULE> m_libraries;  // held as long as their functions may be called
};

}  // namespace orvo::desktop
