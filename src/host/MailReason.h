// Why the mail program couldn't be opened.
// SPDX-License-Identifier: MIT
#pragma once

namespace orvo {

// What a code of CMapiMailer says, as the end of a sentence.
const char* MailReason(unsigned long code);

}  // namespace orvo
