// Where a command gets the user's password from.
// SPDX-License-Identifier: MIT
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <fmt/format.h>

#include <cli/CommandError.h>
#include <cli/PasswordInput.h>
#include <platform/io/Descriptor.h>

namespace orvo::cli {
namespace {

// A longer line is no password, and may be a file without an end.
constexpr std::size_t kLongestLine = 4096;

// The signals by which a terminal or its user ends a program.
constexpr std::array kEndSignals{SIGINT, SIGTERM, SIGHUP, SIGQUIT};

termios g_terminalBefore{};

void RestoreAndEnd(int signal) {
    ::tcsetattr(STDIN_FILENO, TCSANOW, &g_terminalBefore);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

// While it lives, the terminal doesn't show what is typed; a signal that ends the program puts that
// right first.
class SilentTerminal {
public:
    SilentTerminal() {
        ::tcgetattr(STDIN_FILENO, &g_terminalBefore);
        for (std::size_t i = 0; i < kEndSignals.size(); ++i) {
            m_before[i] = std::signal(kEndSignals[i], RestoreAndEnd);
        }
        termios silent = g_terminalBefore;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        silent.c_lflag |= ECHONL;
        // A program that is stopped would leave the user with a terminal that shows nothing.
        silent.c_cc[VSUSP] = _POSIX_VDISABLE;
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }
    ~SilentTerminal() {
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &g_terminalBefore);
        for (std::size_t i = 0; i < kEndSignals.size(); ++i) {
            std::signal(kEndSignals[i], m_before[i]);
        }
    }
    SilentTerminal(const SilentTerminal&) = delete;
    SilentTerminal& operator=(const SilentTerminal&) = delete;

private:
    std::array<void (*)(int), kEndSignals.size()> m_before{};
};

// Byte by byte, so that nothing behind the line is taken from whoever reads on.
std::string ReadLine(int descriptor, const std::string& name) {
    std::string line;
    line.reserve(kLongestLine);  // a string that grew would leave a part behind in memory
    while (line.size() < kLongestLine) {
        char byte = 0;
        const ssize_t count = ::read(descriptor, &byte, 1);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) {
            throw CommandError(kWrongUse, fmt::format("--password-file {}: it can't be read: {}",
                                                      name, std::strerror(errno)));
        }
        if (count == 0 || byte == '\n') break;
        line += byte;
    }
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

}  // namespace

std::string AskForPassword() {
    if (::isatty(STDIN_FILENO) == 0) {
        throw CommandError(kWrongUse,
                           "a password guards private entries: give it by --password-file");
    }
    fmt::print(stderr, "Password of private entries: ");
    const SilentTerminal terminal;
    return ReadLine(STDIN_FILENO, "-");
}

std::string ReadPassword(const std::string& file) {
    if (file == "-") return ReadLine(STDIN_FILENO, file);
    const Descriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    if (!opened.IsOpen()) {
        throw CommandError(kWrongUse, fmt::format("--password-file {}: it can't be opened: {}",
                                                  file, std::strerror(errno)));
    }
    return ReadLine(opened.Number(), file);
}

}  // namespace orvo::cli
