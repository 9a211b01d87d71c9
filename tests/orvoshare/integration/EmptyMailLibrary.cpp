// A library without the functions that are looked for.
// SPDX-License-Identifier: MIT
#include <platform/Export.h>

extern "C" ORVO_API int SomethingElse() {
    return 1;
}
