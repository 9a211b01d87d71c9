// The words and numbers of which resources in text form consist.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>

#include <platform/text/SystemText.h>
#include <platform/window/dialogs/ResourceWords.h>

namespace orvo {
namespace {

// Takes the characters up to the first of `ends`, and that one, from the start of `rest`.
std::string_view TakeUpTo(std::string_view& rest, std::string_view ends) {
    const std::string_view taken = rest.substr(0, rest.find_first_of(ends));
    rest.remove_prefix(std::min(taken.size() + 1, rest.size()));
    return taken;
}

}  // namespace

std::vector<std::string_view> SplitWords(std::string_view line) {
    std::vector<std::string_view> words;
    while (!line.empty()) {
        const std::string_view word = TakeUpTo(line, " \t\r");
        if (!word.empty()) words.push_back(word);
    }
    return words;
}

std::vector<std::vector<std::string_view>> SplitLines(std::string_view text) {
    std::vector<std::vector<std::string_view>> lines;
    while (!text.empty()) {
        std::vector<std::string_view> words = SplitWords(TakeUpTo(text, "\n"));
        if (!words.empty() && !words.front().starts_with('#')) lines.push_back(std::move(words));
    }
    return lines;
}

std::optional<int> NumberOf(std::string_view word) {
    int number = 0;
    const char* const end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

CString StringOf(const Module& module, unsigned number) {
    std::string utf8;
    return module.FindString(number, utf8) ? SystemText(utf8) : CString();
}

}  // namespace orvo
