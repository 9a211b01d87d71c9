// A session bus of its own for each test, and one runtime folder for the program.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include <platform/io/TempFolder.h>
#include <support/Environment.h>
#include <support/Program.h>

namespace orvo {

// Windows are reached by way of it as long as the process lives.
struct ScratchRuntime {
    ScratchRuntime() { ::setenv("XDG_RUNTIME_DIR", Folder().c_str(), 1); }

    const std::filesystem::path& Folder() const { return m_place.Path(); }

    static const ScratchRuntime& Get() {
        static const ScratchRuntime runtime;
        return runtime;
    }

private:
    const TempFolder m_place;
};

struct SessionBus {
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
