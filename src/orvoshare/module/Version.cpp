// The version of the library.
// SPDX-License-Identifier: MIT
#include <orvoshare/module/Version.h>

namespace orvo {

const char* OrvoShareVersion() {
    return ORVO_VERSION;
}

}  // namespace orvo
