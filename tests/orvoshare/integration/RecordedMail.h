// What the mail library of the tests was given last, and what it is to answer.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <platform/desktop/SimpleMapi.h>

namespace orvo {

// Texts come with "null" where there was no text.
struct RecordedMail {
    ULONG answer = 0;
    int calls = 0;
    std::uintptr_t session = 0;
    std::uintptr_t window = 0;
    ULONG flags = 0;
    ULONG reserved = 0;
    std::string subject;
    std::string body;
    bool isRestEmpty = false;  // no sender, dates, flags and so on
    bool hasRecipients = false;
    bool hasFiles = false;
    std::vector<std::string> recipients;  // "class name <address>"
    std::vector<std::string> files;       // "position path name"
};

}  // namespace orvo
