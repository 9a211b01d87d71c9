// Blocks of memory that have a handle and are locked to be read or written.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#include <platform/Export.h>

namespace orvo {

using HGLOBAL = void*;

constexpr unsigned GMEM_MOVEABLE = 0x0002;
constexpr unsigned GMEM_ZEROINIT = 0x0040;

// May be used from several threads at once.

// Makes a block; its bytes are undefined unless GMEM_ZEROINIT is given. GMEM_MOVEABLE must be.
// Returns:  null where there isn't so much memory or GMEM_MOVEABLE is missing.
// Owner:    the caller, who gives it back with GlobalFree.
ORVO_API HGLOBAL GlobalAlloc(unsigned flags, std::size_t size);

// Changes the size; bytes that were there stay.
// Returns:  the same handle; null where the block is locked, isn't there, or can't grow.
ORVO_API HGLOBAL GlobalReAlloc(HGLOBAL block, std::size_t size);

// Returns:  the address of the bytes until the matching GlobalUnlock; null where there is no such
//           block. Locks nest.
ORVO_API void* GlobalLock(HGLOBAL block);

// Returns:  non-zero while other locks hold the block.
ORVO_API int GlobalUnlock(HGLOBAL block);

// Returns:  0 where there is no such block.
ORVO_API std::size_t GlobalSize(HGLOBAL block);

// Returns:  null; the handle where there is no such block.
ORVO_API HGLOBAL GlobalFree(HGLOBAL block);

// How many blocks there are.
ORVO_API std::size_t GlobalBlockCount();

}  // namespace orvo
