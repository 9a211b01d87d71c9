// Sets the system's locale for a test and puts the former one back.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <platform/text/SystemLocale.h>

namespace orvo {

class LocaleInForce {
public:
    explicit LocaleInForce(std::string_view tag, unsigned codePage = 0)
        : m_tag(SystemLocale::Tag()), m_codePage(GetACP()) {
        EXPECT_TRUE(SystemLocale::Set(tag, codePage)) << tag;
    }
    ~LocaleInForce() { SystemLocale::Set(m_tag, m_codePage); }
    LocaleInForce(const LocaleInForce&) = delete;
    LocaleInForce& operator=(const LocaleInForce&) = delete;

private:
    std::string m_tag;
    unsigned m_codePage;
};

}  // namespace orvo
