// Named blocks of memory that the processes of one user share.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include <platform/Export.h>
#include <platform/io/SystemErrors.h>

namespace orvo {

using HANDLE = void*;

inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(-1);

constexpr std::uint32_t PAGE_READWRITE = 4;
constexpr std::uint32_t FILE_MAP_ALL_ACCESS = 0xF001F;

// A block lives as long as any process has a handle or a view of it open. A process that ends in
// any way, killed included, has none any more; the next creator starts with zeros. A name may hold
// any bytes, as many as it likes; its case counts. May be used from several threads at once. A
// forked child that doesn't start another program holds what its parent had open.

// Makes a block of that size, or opens the one that is there, which keeps its size. `file` is
// INVALID_HANDLE_VALUE, `security` null, `protection` PAGE_READWRITE.
// Returns:  a handle, which the caller closes with CloseHandle. GetLastError is ERROR_SUCCESS, or
//           ERROR_ALREADY_EXISTS where the block was there.
// Fails:    with null, and GetLastError says why; a size of 0 and an empty name are refused.
ORVO_API HANDLE CreateFileMappingA(HANDLE file, const void* security, std::uint32_t protection,
                                   std::uint32_t sizeHigh, std::uint32_t sizeLow, const char* name);

// The same for a block that is there; ERROR_FILE_NOT_FOUND where it isn't. `access` is
// FILE_MAP_ALL_ACCESS; handles are never inherited.
ORVO_API HANDLE OpenFileMappingA(std::uint32_t access, int inherit, const char* name);

// Maps the first `length` bytes of the block, or all of it where `length` is 0. `access` is
// FILE_MAP_ALL_ACCESS, the offset 0, `address` null. Each call makes a view of its own.
// Returns:  the address; null on failure, ERROR_ACCESS_DENIED where the block is shorter.
// Owner:    the caller, who gives it back with UnmapViewOfFile.
ORVO_API void* MapViewOfFileEx(HANDLE mapping, std::uint32_t access, std::uint32_t offsetHigh,
                               std::uint32_t offsetLow, std::size_t length, void* address);

// Returns:  non-zero on success; 0 for an address or a handle that isn't open.
ORVO_API int UnmapViewOfFile(const void* address);
ORVO_API int CloseHandle(HANDLE handle);

// What the last of these functions that this thread called has set; success leaves it alone, but
// for CreateFileMappingA.
ORVO_API long GetLastError();
ORVO_API void SetLastError(long error);

}  // namespace orvo
