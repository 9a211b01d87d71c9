// CMapFileHelper: a named block of memory with a header, shared by processes.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include <platform/Export.h>
#include <platform/ipc/FileMapping.h>
#include <platform/text/CString.h>

namespace orvo {

// How a block begins; behind it lies the data area.
struct CMapFileHeader {
    std::uint32_t firstValue;
    std::uint32_t secondValue;
    std::uint32_t reserved;  // never written
    std::uint32_t dataSize;  // in bytes
    std::uint32_t reservedToo[2];
};
static_assert(sizeof(CMapFileHeader) == 24);

// The order of calls is CreateOrOpenMap, MapView, then the data, and UnmapView and CloseMap or the
// destructor. Copies share handle and view, so that only one of them may keep its auto close on.
// Not to be used from several threads at once. Nothing here orders what several processes write.
// GetLastError says why the platform refused.
class ORVO_API CMapFileHelper {
public:
    CMapFileHelper() = default;
    CMapFileHelper(const CMapFileHelper&) = default;
    CMapFileHelper& operator=(const CMapFileHelper&) = default;
    // With auto close, closes view and handle; without, both stay open for the life of the process.
    virtual ~CMapFileHelper();

    // Returns:  1 when a block of that name is there.
    int DoesMapExist(const char* name);

    // Makes the block, which must not be there yet, or with `create` 0 opens the one that is there.
    // `size` is that of the block in bytes, the header included, and the same for all who open it.
    // The two values go into the header of a new block.
    // Returns:  1 when the object holds a block afterwards: a failed call leaves an older one
    //           alone.
    int CreateOrOpenMap(int create, const char* name, unsigned long size, unsigned long firstValue,
                        unsigned long secondValue);

    // Maps the block; whoever has made it writes its header, too.
    // Returns:  1 on success.
    int MapView();

    // Each returns 1 when there is none any more.
    int UnmapView();
    int CloseMap();

    // Copies `length` bytes to the data area and keeps the length in the header.
    // Returns:  1.
    // Requires: a view, and a length of at most the size of the block less the header.
    // Fails:    with 0, and nothing written, where this isn't so.
    int SetData(void* data, unsigned long length);

    // 0 and null without a view.
    unsigned long GetDataSize();
    void* GetDataBuffer();

    void SetAutoClose(int autoClose) { m_autoClose = autoClose; }

private:
    HANDLE m_mapping = nullptr;
    CMapFileHeader* m_view = nullptr;
    CString m_name;
    int m_isCreated = 0;
    unsigned long m_size = 0;
    unsigned long m_firstValue = 0;
    unsigned long m_secondValue = 0;
    int m_autoClose = 1;
};

}  // namespace orvo
