// A session bus of its own for each test, and one runtime folder for the program.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include <support/Environment.h>
#include <support/Program.h>

namespace orvo {

// Windows are reached by way of it as long as the process lives.
class ScratchRuntime {
public:
    ScratchRuntime() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "orvo-session-XXXXXX").string();
        if (::mkdtemp(pattern.data()) != nullptr) m_folder = pattern;
        ::setenv("XDG_RUNTIME_DIR", m_folder.c_str(), 1);
    }
    ScratchRuntime(const ScratchRuntime&) = delete;
    ScratchRuntime& operator=(const ScratchRuntime&) = delete;
    ~ScratchRuntime() { std::filesystem::remove_all(m_folder); }

    const std::filesystem::path& Folder() const { return m_folder; }

    static const ScratchRuntime& Get() {
        static const ScratchRuntime runtime;
        return runtime;
    }

private:
    std::filesystem::path m_folder;
};

class SessionBus {
public:
    SessionBus()
        : m_daemon("/usr/bin/dbus-daemon",
                   {"--config-file=" ORVO_TEST_BUS, "--nofork", "--print-address"}) {
        ScratchRuntime::Get();
        const std::string address = m_daemon.Line();
        EXPECT_NE(address, "") << "dbus-daemon doesn't start";
        m_environment.Set("DBUS_SESSION_BUS_ADDRESS", address);
    }

    void Kill() const { m_daemon.Kill(); }

private:
    Environment m_environment;
    Program m_daemon;
};

}  // namespace orvo
