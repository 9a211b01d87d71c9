// A stream of bytes, and the one that lies on a block of memory.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/com/GlobalMemory.h>
#include <platform/com/Unknown.h>

namespace orvo {

constexpr IID IID_IStream{0x0000000C, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

constexpr ULONG STREAM_SEEK_SET = 0;
constexpr ULONG STREAM_SEEK_CUR = 1;
constexpr ULONG STREAM_SEEK_END = 2;

class IStream : public IUnknown {
public:
    // Returns:  S_FALSE where fewer bytes are left; `done`, which may be null, is set to how many
    //           came.
    virtual HRESULT Read(void* bytes, ULONG count, ULONG* done) = 0;

    // Writes over what is there and behind its end.
    // Fails:    with STG_E_MEDIUMFULL, nothing written.
    virtual HRESULT Write(const void* bytes, ULONG count, ULONG* done) = 0;

    // Places behind the end are allowed; those before the start fail with E_INVALIDARG. `place`,
    // which may be null, is set to the new one.
    virtual HRESULT Seek(std::int64_t distance, ULONG origin, std::uint64_t* place) = 0;

protected:
    ~IStream() = default;
};

// Makes a stream at the start of the block, which it frees with its last reference where
// `deleteOnRelease` is not 0.
// Fails:    with E_INVALIDARG where there is no such block.
ORVO_API HRESULT CreateStreamOnHGlobal(HGLOBAL block, int deleteOnRelease, IStream** stream);

}  // namespace orvo
