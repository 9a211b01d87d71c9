// The window system whose peers a test program checks; each program has its own.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include <platform/window/base/WindowSystem.h>

namespace orvo {

std::unique_ptr<WindowSystem> MakeWindowSystem();

// Lets the system's time go by until the condition holds; false where it never does.
bool RunUntil(WindowSystem& system, const std::function<bool()>& isDone);

}  // namespace orvo
