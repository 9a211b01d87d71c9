// What the mail library of the tests was given last, and what it is to answer.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <platform/desktop/SimpleMapi.h>

namespace orvo {

// Lines as "subject Hi", "to Ann <ann@example.org>" and "file /x/a a.vcf".
struct RecordedMail {
    ULONG answer = 0;
    std::uintptr_t window = 0;
    ULONG flags = 0;
    std::vector<std::string> lines;
};

}  // namespace orvo
