// Why the mail program couldn't be opened.
// SPDX-License-Identifier: MIT
#include <host/MailReason.h>
#include <platform/desktop/SimpleMapi.h>

namespace orvo {
namespace {

struct ReasonRow {
    unsigned long code;
    const char* reason;
};
constexpr ReasonRow kReasons[] = {
    {MAPI_E_ATTACHMENT_NOT_FOUND, "a file to attach isn't there"},
    {MAPI_E_ATTACHMENT_OPEN_FAILURE, "a file to attach can't be read"},
    {MAPI_E_UNKNOWN_RECIPIENT, "a recipient isn't one mail address"},
    {MAPI_E_TEXT_TOO_LARGE, "the message is longer than the mail program can be given"},
};

}  // namespace

const char* MailReason(unsigned long code) {
    for (const ReasonRow& row : kReasons) {
        if (row.code == code) return row.reason;
    }
    return "no mail program can be opened on this desktop";
}

}  // namespace orvo
