// Streams of tests, and all that one holds.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <gtest/gtest.h>

#include <platform/com/Stream.h>

namespace orvo {

// On a new empty block of its own where none is given.
inline ComPointer<IStream> StreamOn(HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 0),
                                    bool deletes = true) {
    IStream* stream = nullptr;
    EXPECT_EQ(CreateStreamOnHGlobal(block, deletes ? 1 : 0, &stream), S_OK);
    return ComPointer(stream);
}

}  // namespace orvo
