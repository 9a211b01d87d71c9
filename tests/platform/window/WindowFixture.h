// A window system for one test: a question that nobody expects fails the test.
// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>

#include <platform/window/base/CWnd.h>
#include <platform/window/memory/MemoryWindowSystem.h>

namespace orvo {

using testing::ElementsAre;
using testing::IsEmpty;

struct SystemInForce : MemoryWindowSystem {
    SystemInForce() {
        OnUnexpectedQuestion([](const std::string& question) { ADD_FAILURE() << question; });
        WindowSystem::SetCurrent(this);
    }
    ~SystemInForce() override {
        EXPECT_FALSE(HasAnswersLeft()) << "a question wasn't asked";
        WindowSystem::SetCurrent(nullptr);
    }
};

}  // namespace orvo
