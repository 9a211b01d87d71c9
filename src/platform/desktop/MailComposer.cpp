// The desktop's own composer, opened with a prepared message.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include <platform/desktop/MailComposer.h>

namespace orvo {
namespace {

struct ResultRow {
    int exitCode;
    ULONG result;
};
// What xdg-email says with its exit code; 126 is its shell's for an argument too long for the
// composer.
constexpr ResultRow kResults[] = {
    {0, SUCCESS_SUCCESS},
    {2, MAPI_E_ATTACHMENT_NOT_FOUND},
    {126, MAPI_E_TEXT_TOO_LARGE},
};

ULONG ResultOf(int exitCode) {
    for (const ResultRow& row : kResults) {
        if (row.exitCode == exitCode) return row.result;
    }
    return MAPI_E_FAILURE;
}

// The exit code; -1 where the program didn't come to its end.
int WaitFor(pid_t process) {
    int status = 0;
    while (::waitpid(process, &status, 0) < 0) {
        if (errno != EINTR) return -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

ULONG OpenComposer(const MailDraft& draft) {
    std::string program = "xdg-email";
    std::string uri = MailUri(draft);
    char* const arguments[] = {program.data(), uri.data(), nullptr};
    pid_t process = 0;
    const int error =
        ::posix_spawnp(&process, program.c_str(), nullptr, nullptr, arguments, environ);
    if (error == E2BIG) return MAPI_E_TEXT_TOO_LARGE;
    return error == 0 ? ResultOf(WaitFor(process)) : MAPI_E_FAILURE;
}

}  // namespace orvo
