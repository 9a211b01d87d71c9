// Waiting for several descriptors at once, so that one wait serves what all the others wait for.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include <platform/Export.h>

namespace orvo {

// While it lives, `serve` is called by ServeSources whenever the descriptor can be read or has been
// hung up. `serve` must not block, copes with finding nothing, and may end this source or wait
// itself. To be used from the thread of the windows only, or in a program without windows from the
// one that serves.
class ORVO_API WaitSource {
public:
    // Owner:    the caller keeps the descriptor, and closes it after the source has gone.
    WaitSource(int descriptor, std::function<void()> serve);
    ~WaitSource();
    WaitSource(const WaitSource&) = delete;
    WaitSource& operator=(const WaitSource&) = delete;

private:
    int m_descriptor;
};

// A descriptor that can be read while a source is ready: an event loop watches it and then calls
// ServeSources(0).
ORVO_API int WaitDescriptor();

// Waits until a source is ready, but no longer than that many milliseconds (below 0: however long
// that takes), and serves one source.
// Returns:  false where none was ready.
ORVO_API bool ServeSources(int milliseconds);

}  // namespace orvo
