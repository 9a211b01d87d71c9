// The views among which the user chooses.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace orvo::desktop {

enum class ViewKind { List, LargeIcons, SmallIcons, Cards, ToDos, Birthdays };

// Each view's name on the command line and in the settings.
struct ViewName {
    ViewKind kind;
    const char* name;
};
constexpr std::array<ViewName, 6> kViewNames{{{ViewKind::List, "list"},
                                              {ViewKind::LargeIcons, "large-icons"},
                                              {ViewKind::SmallIcons, "small-icons"},
                                              {ViewKind::Cards, "cards"},
                                              {ViewKind::ToDos, "todos"},
                                              {ViewKind::Birthdays, "birthdays"}}};

}  // namespace orvo::desktop
