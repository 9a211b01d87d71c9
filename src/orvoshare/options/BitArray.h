// CBitArrayHelper: a fixed number of bits that an archive can store.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include <platform/Export.h>
#include <platform/io/CObject.h>

namespace orvo {

// Bit n lies in byte n / 8, counted from its least significant bit.
class ORVO_API CBitArrayHelper : public CObject {
public:
    static const CRuntimeClass classCBitArrayHelper;

    const CRuntimeClass* GetRuntimeClass() const override;

    // The number of bits and the number of bytes, 4 bytes each, then the bytes.
    // Fails:    with CArchiveException, and the array as it was, where the archive ends early or
    //           the two numbers don't fit each other; nothing is allocated for bytes that aren't
    //           there.
    void Serialize(CArchive& archive) override;

    // Makes the array `count` bits long, all of them 0.
    // Returns:  1.
    int Initialize(unsigned long count);

    // Returns:  1; 0, with the array as it was, for an index outside the array.
    int SetValue(unsigned long index, int value);

    // Returns:  the bit; 0 for an index outside the array. `error`, which may be null, is set to 1
    //           then, else to 0.
    int GetValue(unsigned long index, int* error) const;

    // Copies all bytes to `target`, which has room for GetArraySize bytes.
    // Returns:  1; 0 where the array has no bytes.
    int GetByteArray(unsigned char* target) const;

    unsigned long GetNofElements() const { return m_count; }
    unsigned long GetArraySize() const { return m_bytes.size(); }

private:
    std::vector<std::uint8_t> m_bytes;
    unsigned long m_count = 0;
};

}  // namespace orvo
