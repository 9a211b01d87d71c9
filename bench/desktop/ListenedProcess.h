// A process that is started and listened to line by line.
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <sys/types.h>
#include <utility>
#include <vector>

#include <platform/io/Descriptor.h>

namespace orvo::bench {

class ListenedProcess {
public:
    using Variables = std::vector<std::pair<std::string, std::string>>;
    enum class Complaints { Shown, Hidden };  // what it writes to standard error

    // Starts the program of the first word with these variables beside the environment. It ends
    // with this process. `startVariable`, where it isn't empty, tells it when it was started, in
    // nanoseconds of the steady clock.
    // Fails:  std::system_error.
    ListenedProcess(const std::vector<std::string>& words, const Variables& variables,
                    const std::string& startVariable, Complaints complaints);
    ListenedProcess(const ListenedProcess&) = delete;
    ListenedProcess& operator=(const ListenedProcess&) = delete;
    ~ListenedProcess();  // ends the process

    enum class Read { Line, End, Late };
    // Sets `line` to the next one of its standard output; Late where none has come in time.
    Read ReadLine(std::string& line, std::chrono::milliseconds patience);

    // Waits for its end.
    // Gives:  empty where it went well, else what happened.
    std::string Wait();

private:
    pid_t m_process = -1;
    Descriptor m_output;
    std::string m_read;  // and not yet asked for
};

}  // namespace orvo::bench
