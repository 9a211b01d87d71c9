// A program with a window that tells what it gets: ForeignPeer NAME. It ends with its input.
// SPDX-License-Identifier: MIT
#include <numeric>

#include <platform/window/BouncingWindow.h>
#include <support/ServedWindow.h>

namespace orvo {
namespace {

// Adds up the bytes of what it is sent.
class PeerWindow : public BouncingWindow {
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_COPYDATA) return BouncingWindow::WindowProc(message, wParam, lParam);
        const auto& data = *PointerOf<COPYDATASTRUCT>(lParam);
        const auto* bytes = static_cast<const unsigned char*>(data.lpData);
        return std::accumulate(bytes, bytes + data.cbData, static_cast<LRESULT>(data.dwData));
    }
};

int Run(const char* name) {
    PeerWindow window;
    ServeWindow(window, name);
    return 0;
}

}  // namespace
}  // namespace orvo

int main(int count, char** arguments) {
    return count == 2 ? orvo::Run(arguments[1]) : 2;
}
