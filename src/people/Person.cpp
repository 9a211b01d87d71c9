// All that is known of a person.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <fmt/format.h>

#include <people/Person.h>

namespace orvo {
std::string TitleOf(const Detail& detail, const TranslateName& translate) {
    std::string heading = detail.label;
    for (const DetailWord word : detail.words) {
        if (!heading.empty()) heading += ", ";
        heading += translate(NameOf(word));
    }
    if (detail.kind == DetailKind::Fact) return heading;
    if (detail.kind == DetailKind::Other) {
        return detail.label.empty() ? detail.property : detail.label;
    }
    const bool hasService = detail.kind == DetailKind::Messenger && !detail.service.empty();
    const std::string title = hasService ? detail.service : translate(NameOf(detail.kind));
    return heading.empty() ? title : fmt::format("{} ({})", title, heading);
}

std::string TextOf(const Detail& detail, const TranslateName& translate) {
    return detail.isName ? translate(detail.text.c_str()) : detail.text;
}

const Detail* Person::First(DetailKind kind) const {
    const auto found = std::find_if(details.begin(), details.end(),
                                    [&](const Detail& detail) { return detail.kind == kind; });
    return found == details.end() ? nullptr : &*found;
}

}  // namespace orvo
