// What is dragged: its formats, and the lists of files among them.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include <platform/desktop/DataObject.h>

namespace orvo {

UINT DragQueryFileA(const HDROP& drop, UINT file, char* buffer, UINT size) {
    if (!drop) return 0;
    if (file == kCountFiles) return static_cast<UINT>(drop->size());
    if (file >= drop->size()) return 0;
    const std::string& path = (*drop)[file].Bytes();
    if (!buffer) return static_cast<UINT>(path.size());
    if (size == 0) return 0;
    const std::size_t copied = std::min<std::size_t>(path.size(), size - 1);
    *std::copy_n(path.begin(), copied, buffer) = '\0';
    return static_cast<UINT>(copied);
}

void COleDataObject::Add(CLIPFORMAT format, HDROP data) {
    m_entries.push_back({format, std::move(data)});
}

BOOL COleDataObject::GetNextFormat(FORMATETC* format) {
    if (m_next >= m_entries.size()) return 0;
    *format = {m_entries[m_next].format, m_next};
    ++m_next;
    return 1;
}

HDROP COleDataObject::GetGlobalData(CLIPFORMAT format, const FORMATETC* entry) const {
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        if (m_entries[i].format == format && (!entry || entry->entry == i)) {
            return m_entries[i].data;
        }
    }
    return nullptr;
}

}  // namespace orvo
