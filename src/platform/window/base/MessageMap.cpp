// Typed message maps: the search for a handler.
// SPDX-License-Identifier: MIT
#include <platform/window/base/MessageMap.h>

namespace orvo {

bool MessageMap::Dispatch(MessageMapEntry::Kind kind, UINT code, UINT id, CWnd& window,
                          WPARAM wParam, LPARAM lParam, LRESULT& result) const {
    for (const MessageMap* map = this; map; map = map->m_base) {
        for (const MessageMapEntry& entry : map->m_entries) {
            if (entry.kind == kind && entry.code == code && id >= entry.first && id <= entry.last &&
                entry.call(window, wParam, lParam, result)) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace orvo
