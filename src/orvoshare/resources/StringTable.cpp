// The module's own texts, English, by their numbers.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <orvoshare/resources/ResourceTable.h>
#include <orvoshare/resources/StringTable.h>

namespace orvo {
namespace {

constexpr NumberedString kEnglish[] = {
#include <EnglishStrings.inc>
};
static_assert(std::ranges::is_sorted(kEnglish, std::ranges::less_equal(), &NumberedString::number),
              "lang/en.po: a number stands twice, or out of order");

class EnglishModule : public Module {
public:
    bool FindString(unsigned number, std::string& utf8) const override {
        const auto* row = std::ranges::lower_bound(kEnglish, number, {}, &NumberedString::number);
        if (row == std::end(kEnglish) || row->number != number) return false;
        utf8 = row->text;
        return true;
    }

    std::string_view FindResource(ResourceKind kind, unsigned number) const override {
        const std::span<const ResourceFile> files = ResourceFiles();
        const auto found = std::ranges::find_if(files, [&](const ResourceFile& file) {
            return file.kind == kind && file.number == number;
        });
        return found == files.end() ? std::string_view() : found->text;
    }
};

}  // namespace

std::span<const NumberedString> EnglishStrings() {
    return kEnglish;
}

HINSTANCE OwnModule() {
    static const EnglishModule module;
    return &module;
}

}  // namespace orvo
