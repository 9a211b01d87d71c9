// How the category and the labels of a new store are shown.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <contracts/DefaultTexts.h>

namespace orvo {

std::string ShownText(StoreEngine::TextKind kind, int number, const std::string& stored) {
    const auto* const usual =
        std::find_if(kDefaultTexts.begin(), kDefaultTexts.end(), [&](const DefaultText& text) {
            return text.kind == kind && text.number == number && text.text == stored;
        });
    const ModuleTexts texts = ShownDefaults();
    if (usual == kDefaultTexts.end() || texts == nullptr) {
        return stored;
    }
    std::string shown = texts(usual->shown);
    return shown.empty() ? stored : shown;
}

}  // namespace orvo
