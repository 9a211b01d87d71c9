// A program with a window that tells what it gets: ForeignPeer NAME. It ends with its input.
// SPDX-License-Identifier: MIT
#include <platform/window/BouncingWindow.h>
#include <support/ServedWindow.h>

int main(int count, char** arguments) {
    if (count != 2) return 2;
    const orvo::BouncingWindow window;
    orvo::ServeWindow(window, arguments[1]);
    return 0;
}
