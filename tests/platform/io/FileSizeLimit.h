// A full disk, as a limit to the size of every file that a process writes.
// SPDX-License-Identifier: MIT
#pragma once

#include <signal.h>
#include <sys/resource.h>

#include <gtest/gtest.h>

namespace orvo {

// While it lives no file of this process may grow beyond `bytes`: the write fails, or, where it
// `kills`, the process ends.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes, bool kills = false)
        : m_handler(signal(SIGXFSZ, kills ? SIG_DFL : SIG_IGN)) {
        constexpr rlimit kNoCore{0, 0};
        if (kills) setrlimit(RLIMIT_CORE, &kNoCore);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

}  // namespace orvo
