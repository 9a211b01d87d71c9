// The pictures of the buttons that choose a view.
// SPDX-License-Identifier: MIT
#include <desktop/symbols/Symbol.h>
#include <desktop/views/ViewIcons.h>

namespace orvo::desktop {

QIcon IconOf(ViewKind kind) {
    switch (kind) {
        case ViewKind::List:
            return IconOf(Symbol::List);
        case ViewKind::LargeIcons:
            return IconOf(Symbol::LargeIcons);
        case ViewKind::SmallIcons:
            return IconOf(Symbol::SmallIcons);
        case ViewKind::Cards:
            return IconOf(Symbol::Cards);
        case ViewKind::ToDos:
            return IconOf(Symbol::ToDos);
        case ViewKind::Birthdays:
            return IconOf(Symbol::Birthdays);
    }
    return {};
}

}  // namespace orvo::desktop
