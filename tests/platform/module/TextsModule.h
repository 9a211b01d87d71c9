// A module that holds a few texts and resources.
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <utility>

#include <platform/module/Module.h>

namespace orvo {

// A resource of any kind is the text of its number among the resources.
class TextsModule : public Module {
public:
    using Texts = std::map<unsigned, std::string>;

    explicit TextsModule(Texts texts, Texts resources = {})
        : m_texts(std::move(texts)), m_resources(std::move(resources)) {}

    bool FindString(unsigned number, std::string& utf8) const override {
        const auto found = m_texts.find(number);
        if (found != m_texts.end()) utf8 = found->second;
        return found != m_texts.end();
    }
    std::string_view FindResource(ResourceKind, unsigned number) const override {
        const auto found = m_resources.find(number);
        return found != m_resources.end() ? std::string_view(found->second) : std::string_view();
    }

private:
    Texts m_texts;
    Texts m_resources;
};

}  // namespace orvo
