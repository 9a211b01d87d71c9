// What a program for tests does that has a window for other processes.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <unistd.h>

#include <platform/ipc/Waiting.h>
#include <platform/window/base/CWnd.h>
#include <platform/window/base/ForeignWindow.h>

namespace orvo {

// Publishes the window under the name, says "ready" or "failed" in one line, and serves what other
// processes send until the program's input ends.
inline void ServeWindow(const CWnd& window, const char* name) {
    const PublishedWindow published(name, window.GetSafeHwnd());
    std::puts(published.IsPublished() ? "ready" : "failed");
    std::fflush(stdout);
    bool isOver = false;
    const WaitSource input(STDIN_FILENO, [&] {
        char byte = 0;
        isOver = ::read(STDIN_FILENO, &byte, 1) <= 0;
    });
    while (!isOver) ServeSources(-1);
}

}  // namespace orvo
