// A library that is no plug-in.
// SPDX-License-Identifier: MIT
extern "C" __attribute__((visibility("default"))) int AnotherFunction() {
    return 1;
}
