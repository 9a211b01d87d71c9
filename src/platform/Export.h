// Marks what liborvoshare shows to programs that link it; everything else stays inside the library.
// SPDX-License-Identifier: MIT
#pragma once

#define ORVO_API __attribute__((visibility("default")))
