// Dialog templates from the resources in reach.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <span>

#include <platform/module/FindResource.h>
#include <platform/window/dialogs/DialogTemplate.h>
#include <platform/window/dialogs/ResourceWords.h>

namespace orvo {
namespace {

using Words = std::span<const std::string_view>;

struct KindWord {
    std::string_view word;
    ControlKind kind;
};
constexpr KindWord kKinds[] = {
    {"static", ControlKind::Static},
    {"radio-button", ControlKind::RadioButton},
    {"push-button", ControlKind::PushButton},
    {"bitmap-button", ControlKind::BitmapButton},
};

struct MarkWord {
    std::string_view word;
    bool DialogControl::*mark;
};
constexpr MarkWord kMarks[] = {
    {"group", &DialogControl::startsGroup},
    {"disabled", &DialogControl::disabled},
    {"hidden-text", &DialogControl::hiddenText},
};

// All words as numbers; nothing where one isn't, or there are more or fewer.
template <std::size_t Count>
std::optional<std::array<int, Count>> NumbersOf(Words words) {
    std::array<int, Count> numbers{};
    if (words.size() != Count) return std::nullopt;
    for (std::size_t i = 0; i < Count; ++i) {
        const std::optional<int> number = NumberOf(words[i]);
        if (!number) return std::nullopt;
        numbers[i] = *number;
    }
    return numbers;
}

// "size <width> <height>"
bool ReadSize(Words words, DialogTemplate& dialog) {
    const auto numbers = NumbersOf<2>(words.subspan(1));
    if (!numbers) return false;
    dialog.size = {(*numbers)[0], (*numbers)[1]};
    return dialog.size.cx > 0 && dialog.size.cy > 0;
}

// "font <points> <face>"; the face may be several words.
bool ReadFont(Words words, DialogTemplate& dialog) {
    if (words.size() < 3) return false;
    dialog.fontHeight = NumberOf(words[1]).value_or(0);
    dialog.fontFace = CString(words[2]);
    for (const std::string_view word : words.subspan(3)) {
        dialog.fontFace += ' ';
        dialog.fontFace += CString(word);
    }
    return dialog.fontHeight > 0;
}

// "<kind> <id> <left> <top> <width> <height> <text> <mark>..."; the text is the number of a string.
bool ReadControl(Words words, const Module& module, DialogTemplate& dialog) {
    constexpr std::size_t kNumbers = 6;
    const auto* const kind = std::ranges::find(kKinds, words[0], &KindWord::word);
    if (kind == std::end(kKinds) || words.size() <= kNumbers) return false;
    const auto numbers = NumbersOf<kNumbers>(words.subspan(1, kNumbers));
    if (!numbers) return false;
    const auto [id, left, top, width, height, text] = *numbers;
    const auto isCoordinate = [](int value) { return value >= 0 && value <= 0x7FFF; };
    if (!std::ranges::all_of(std::array{left, top, width, height}, isCoordinate)) return false;

    DialogControl control;
    control.id = id;
    control.kind = kind->kind;
    control.rectangle = {left, top, left + width, top + height};
    control.text = StringOf(module, static_cast<unsigned>(text));
    for (const std::string_view word : words.subspan(1 + kNumbers)) {
        const auto* const mark = std::ranges::find(kMarks, word, &MarkWord::word);
        if (mark == std::end(kMarks)) return false;
        control.*mark->mark = true;
    }
    dialog.controls.push_back(std::move(control));
    return true;
}

}  // namespace

std::optional<DialogTemplate> LoadDialogTemplate(unsigned number) {
    const HINSTANCE module = FindResourceModule(ResourceKind::Dialog, number);
    if (!module) return std::nullopt;
    DialogTemplate dialog;
    for (const auto& words : SplitLines(module->FindResource(ResourceKind::Dialog, number))) {
        const bool read = words[0] == "size"   ? ReadSize(words, dialog)
                          : words[0] == "font" ? ReadFont(words, dialog)
                                               : ReadControl(words, *module, dialog);
        if (!read) return std::nullopt;
    }
    if (dialog.size == CSize() || dialog.fontFace.IsEmpty()) return std::nullopt;
    return dialog;
}

}  // namespace orvo
