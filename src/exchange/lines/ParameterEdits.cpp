// Edits on the parameters of a line.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <fmt/core.h>

#include <exchange/lines/ParameterEdits.h>

namespace orvo {

Parameter TakeApart(const std::string& source) {
    ParameterWalk walk(source);
    Parameter parameter;
    walk.Next(parameter);
    return parameter;
}

void RemoveTypes(std::vector<std::string>& parameters, std::span<const std::string_view> words) {
    const auto isOne = [&](std::string_view item) {
        return std::any_of(words.begin(), words.end(),
                           [&](std::string_view word) { return EqualsIgnoringCase(word, item); });
    };
    for (std::string& source : parameters) {
        const Parameter parameter = TakeApart(source);
        if (!parameter.name.empty() && !EqualsIgnoringCase(parameter.name, "TYPE")) continue;
        std::string_view list = Unquoted(parameter.value);
        const bool isQuoted = list.size() != parameter.value.size();
        std::string left;
        std::string_view item;
        bool found = false;
        while (NextListItem(list, item)) {
            found = found || isOne(item);
            if (!isOne(item)) left.append(left.empty() ? "" : ",").append(item);
        }
        if (!found) continue;
        if (left.empty()) {
            source.clear();
        } else {
            const std::string_view quote = isQuoted ? "\"" : "";
            source = fmt::format("{}{}{}{}{}", parameter.name, parameter.name.empty() ? "" : "=",
                                 quote, left, quote);
        }
    }
    std::erase(parameters, std::string());
}

void AddType(std::vector<std::string>& parameters, std::string_view word, Dialect dialect) {
    parameters.push_back((dialect == Dialect::Card21 ? "" : "TYPE=") + std::string(word));
}

void RemoveParameter(std::vector<std::string>& parameters, std::string_view name) {
    std::erase_if(parameters, [&](const std::string& source) {
        return EqualsIgnoringCase(TakeApart(source).name, name);
    });
}

}  // namespace orvo
