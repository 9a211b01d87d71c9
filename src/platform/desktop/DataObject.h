// What is dragged: its formats, and the lists of files among them.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <platform/Export.h>
#include <platform/text/CString.h>
#include <platform/window/base/Messages.h>

namespace orvo {

using CLIPFORMAT = std::uint16_t;
constexpr CLIPFORMAT CF_TEXT = 1;
constexpr CLIPFORMAT CF_HDROP = 15;

struct FORMATETC {
    CLIPFORMAT cfFormat = 0;
    std::size_t entry = 0;  // which one of the data object
};

// Paths of files, in the system's code page.
using DropList = std::vector<CString>;

// What is dragged in one format, shared by all who hold it: a list of files, or null for anything
// else.
using HDROP = std::shared_ptr<const DropList>;

constexpr UINT MAX_PATH = 260;
constexpr UINT kCountFiles = 0xFFFFFFFF;

// Copies the path of that number, from 0, cut to `size` with its ending zero byte.
// Returns:  the bytes of the path without the zero byte, those copied where `buffer` isn't null;
//           with kCountFiles the number of files; 0 where there is no such file.
ORVO_API UINT DragQueryFileA(const HDROP& drop, UINT file, char* buffer, UINT size);

class ORVO_API COleDataObject {
public:
    // Adds an entry. Data that isn't a list of files comes with null.
    void Add(CLIPFORMAT format, HDROP data);

    // The entries in their order; GetNextFormat returns 0 after the last one.
    void BeginEnumFormats() { m_next = 0; }
    BOOL GetNextFormat(FORMATETC* format);

    // Returns:  the data of the entry that `entry` names, else of the first one of that format;
    //           null where there is none.
    HDROP GetGlobalData(CLIPFORMAT format, const FORMATETC* entry = nullptr) const;

private:
    struct Entry {
        CLIPFORMAT format;
        HDROP data;
    };

    std::vector<Entry> m_entries;
    std::size_t m_next = 0;
};

}  // namespace orvo
