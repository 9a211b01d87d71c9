// Another process of a test, with a line to it.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

namespace orvo {

// One end of the line between a child and its parent.
class Line {
public:
    Line() = default;
    Line(int in, int out) : m_in(in), m_out(out) {}
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;
    ~Line() {
        close(m_in);
        close(m_out);
    }

    void Tell() const { EXPECT_EQ(write(m_out, ".", 1), 1); }

    // Waits for what the other side tells; false where it has ended instead.
    bool Await() const {
        char told = 0;
        return read(m_in, &told, 1) == 1;
    }

private:
    int m_in = -1;
    int m_out = -1;
};

// Begin it while no store is open in this process: SQLite's knowledge of locks goes through a fork.
class ChildProcess {
public:
    // `work` runs in the child; its result is the exit code.
    explicit ChildProcess(const std::function<int(const Line&)>& work) {
        int up[2] = {-1, -1};
        int down[2] = {-1, -1};
        EXPECT_EQ(pipe(up), 0);
        EXPECT_EQ(pipe(down), 0);
        m_process = fork();
        if (m_process == 0) {
            close(up[0]);
            close(down[1]);
            const Line line(down[0], up[1]);
            const int result = work(line);
            _exit(result);
        }
        close(up[1]);
        close(down[0]);
        m_line = std::make_unique<Line>(up[0], down[1]);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess() {
        if (m_process > 0) {
            kill(m_process, SIGKILL);
            waitpid(m_process, nullptr, 0);
        }
    }

    void Tell() const { m_line->Tell(); }
    bool Await() const { return m_line->Await(); }

    void Kill() const { kill(m_process, SIGKILL); }

    // Waits for the end; the exit code, or -1 after a kill.
    int Wait() {
        int status = 0;
        EXPECT_EQ(waitpid(m_process, &status, 0), m_process);
        m_process = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t m_process = -1;
    std::unique_ptr<Line> m_line;
};

// Runs the work in so many processes, which begin at once; each gives 0 where all went well.
inline void RunAtOnce(int count, const std::function<int(int)>& work) {
    std::vector<std::unique_ptr<ChildProcess>> children;
    for (int i = 0; i < count; ++i) {
        children.push_back(std::make_unique<ChildProcess>(
            [&, i](const Line& parent) { return parent.Await() ? work(i) : -1; }));
    }
    for (const auto& child : children) child->Tell();
    for (const auto& child : children) EXPECT_EQ(child->Wait(), 0);
}

// Runs what the work expects in a process without rights of its own: permissions mean nothing to
// an administrator.
inline void RunAsNobody(const std::function<void()>& work) {
    ChildProcess child([&](const Line&) {
        constexpr uid_t kNobody = 65534;
        EXPECT_TRUE(geteuid() != 0 || setuid(kNobody) == 0);
        work();
        return testing::Test::HasFailure() ? 1 : 0;
    });
    EXPECT_EQ(child.Wait(), 0);
}

}  // namespace orvo
