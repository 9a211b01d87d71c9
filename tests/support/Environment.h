// Variables of the environment that are set for a test and put back after it.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace orvo {

class Environment {
public:
    Environment() = default;
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() {
        for (const auto& [name, value] : m_before) Put(name, value);
    }

    void Set(const std::string& name, const std::optional<std::string>& value) {
        const char* before = std::getenv(name.c_str());
        m_before.emplace(name, before ? std::optional<std::string>(before) : std::nullopt);
        Put(name, value);
    }

private:
    static void Put(const std::string& name, const std::optional<std::string>& value) {
        if (value) {
            ::setenv(name.c_str(), value->c_str(), 1);
        } else {
            ::unsetenv(name.c_str());
        }
    }

    std::map<std::string, std::optional<std::string>> m_before;
};

}  // namespace orvo
