// What goes wrong, on standard error and in messages.
// SPDX-License-Identifier: MIT
#include <cstdio>

#include <fmt/format.h>

#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>
#include <libraries/quire/StoreFault.h>

namespace orvo::desktop {

void PrintProblem(std::string_view problem) {
    fmt::print(stderr, "orvo-desktop: {}\n", problem);
}

QString ProblemText(std::string_view problem) {
    const std::optional<StoreFault> fault = FaultOfLine(problem);
    if (!fault) return FromUtf8(problem);
    const std::string_view text = FaultText(*fault);
    return FromUtf8(problem.substr(0, problem.size() - text.size())) + Text(text.data());
}

}  // namespace orvo::desktop
