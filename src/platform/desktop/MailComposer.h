// The desktop's own composer, opened with a prepared message.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/desktop/MailUri.h>
#include <platform/desktop/SimpleMapi.h>

namespace orvo {

// Opens the composer by the program xdg-email, which no shell starts, and waits until that ends.
// Returns:  SUCCESS_SUCCESS once the composer has the message; nothing says whether it was sent.
//           MAPI_E_ATTACHMENT_NOT_FOUND where a file is missing, MAPI_E_TEXT_TOO_LARGE where the
//           message is longer than a program's argument may be, else MAPI_E_FAILURE.
ULONG OpenComposer(const MailDraft& draft);

}  // namespace orvo
