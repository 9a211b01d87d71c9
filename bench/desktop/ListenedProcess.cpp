// A process that is started and listened to line by line.
// SPDX-License-Identifier: MIT
#include "ListenedProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

#include <fmt/format.h>

namespace orvo::bench {
namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void Fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

// In the new process, which has one thread only.
[[noreturn]] void Become(const std::vector<std::string>& words,
                         const ListenedProcess::Variables& variables,
                         const std::string& startVariable) {
    std::vector<char*> arguments;
    std::vector<std::string> texts = words;
    arguments.reserve(texts.size() + 1);
    for (std::string& text : texts) arguments.push_back(text.data());
    arguments.push_back(nullptr);
    for (const auto& [name, value] : variables) setenv(name.c_str(), value.c_str(), 1);
    if (!startVariable.empty()) {
        const auto start = fmt::format("{}", Clock::now().time_since_epoch().count());
        setenv(startVariable.c_str(), start.c_str(), 1);
    }
    execvp(arguments[0], arguments.data());
    fmt::print(stderr, "{} can't be run: {}\n", words[0], std::generic_category().message(errno));
    constexpr int kNotFound = 127;
    _exit(kNotFound);
}

}  // namespace

ListenedProcess::ListenedProcess(const std::vector<std::string>& words, const Variables& variables,
                                 const std::string& startVariable, Complaints complaints) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) Fail("pipe");
    m_output.Reset(ends[0]);
    const Descriptor otherEnd(ends[1]);
    m_process = fork();
    if (m_process < 0) Fail("fork");
    if (m_process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(otherEnd.Number(), STDOUT_FILENO);
        if (complaints == Complaints::Hidden) {
            dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
        }
        Become(words, variables, startVariable);
    }
}

ListenedProcess::~ListenedProcess() {
    if (m_process < 0) return;
    kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
}

ListenedProcess::Read ListenedProcess::ReadLine(std::string& line,
                                                std::chrono::milliseconds patience) {
    const auto end = Clock::now() + patience;
    for (;;) {
        if (const auto length = m_read.find('\n'); length != std::string::npos) {
            line = m_read.substr(0, length);
            m_read.erase(0, length + 1);
            return Read::Line;
        }
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd waiting{m_output.Number(), POLLIN, 0};
        const int ready = poll(&waiting, 1, static_cast<int>(std::max<long>(left, 0)));
        if (ready < 0 && errno == EINTR) continue;
        if (ready < 0) Fail("poll");
        if (ready == 0) return Read::Late;
        std::array<char, 4096> bytes{};
        const ssize_t count = read(m_output.Number(), bytes.data(), bytes.size());
        if (count < 0) Fail("read");
        if (count == 0) return Read::End;
        m_read.append(bytes.data(), static_cast<std::size_t>(count));
    }
}

std::string ListenedProcess::Wait() {
    int status = 0;
    while (waitpid(m_process, &status, 0) < 0) {
        if (errno != EINTR) Fail("waitpid");
    }
    m_process = -1;
    if (WIFSIGNALED(status)) return fmt::format("it was ended by signal {}", WTERMSIG(status));
    if (WEXITSTATUS(status) != 0) return fmt::format("it gave {}", WEXITSTATUS(status));
    return {};
}

}  // namespace orvo::bench
