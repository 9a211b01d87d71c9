// What goes wrong, on standard error and in messages.
// SPDX-License-Identifier: MIT
#include <algorithm>
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

QString ProblemLines(const std::vector<std::string>& lines) {
    constexpr std::size_t kMostTold = 12;
    QString text;
    const std::size_t told = std::min(lines.size(), kMostTold);
    for (std::size_t i = 0; i < told; ++i) text += '\n' + FromUtf8(lines[i]);
    if (told < lines.size()) {
        const auto more = static_cast<std::int64_t>(lines.size() - told);
        text += '\n' + CountText("and %1 more", "and %1 more", more);
    }
    return text;
}

}  // namespace orvo::desktop
