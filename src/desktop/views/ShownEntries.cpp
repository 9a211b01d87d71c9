// The entries of one kind, such as addresses or to-dos, in the views that can show them.
// SPDX-License-Identifier: MIT
#include <desktop/views/ShownEntries.h>

namespace orvo::desktop {

void ShownEntries::SetCategory(int category) {
    m_category = category;
    Refill();
}

int EntrySelection::LeftOutOfSelection(WayOut way) {
    return SelectedCount() - static_cast<int>(SelectedRecords(way).size());
}

}  // namespace orvo::desktop
