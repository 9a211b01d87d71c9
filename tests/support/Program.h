// Another program that a test runs, line by line.
// SPDX-License-Identifier: MIT
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

namespace orvo {

// Ended with the object at the latest.
class Program {
public:
    Program(const std::string& path, std::vector<std::string> arguments) {
        int in[2] = {-1, -1};
        int out[2] = {-1, -1};
        EXPECT_EQ(::pipe2(in, O_CLOEXEC), 0);
        EXPECT_EQ(::pipe2(out, O_CLOEXEC), 0);
        arguments.insert(arguments.begin(), path);
        std::vector<char*> pointers;
        for (std::string& argument : arguments) pointers.push_back(argument.data());
        pointers.push_back(nullptr);
        m_process = ::fork();
        if (m_process == 0) {
            ::dup2(in[0], STDIN_FILENO);
            ::dup2(out[1], STDOUT_FILENO);
            ::execv(path.c_str(), pointers.data());
            ::_exit(127);
        }
        ::close(in[0]);
        ::close(out[1]);
        m_in = in[1];
        m_out = out[0];
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() {
        if (m_process > 0) {
            Kill();
            Wait();
        }
        ::close(m_out);
    }

    // The next line, without its end; empty where the program has ended.
    std::string Line() {
        for (;;) {
            const std::size_t end = m_read.find('\n');
            if (end != std::string::npos) {
                std::string line = m_read.substr(0, end);
                m_read.erase(0, end + 1);
                return line;
            }
            char bytes[4096];
            const ssize_t count = ::read(m_out, bytes, sizeof bytes);
            if (count <= 0) return {};
            m_read.append(bytes, static_cast<std::size_t>(count));
        }
    }

    void Write(const std::string& bytes) const {
        EXPECT_EQ(::write(m_in, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }

    // Lets the program see the end of its input.
    void EndInput() {
        if (m_in >= 0) ::close(m_in);
        m_in = -1;
    }

    void Signal(int number) const { ::kill(m_process, number); }
    void Kill() const { Signal(SIGKILL); }

    // Ends the input and waits; the exit code, or -1 after a kill.
    int Wait() {
        EndInput();
        int status = 0;
        EXPECT_EQ(::waitpid(m_process, &status, 0), m_process);
        m_process = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t m_process = -1;
    int m_in = -1;
    int m_out = -1;
    std::string m_read;
};

}  // namespace orvo
