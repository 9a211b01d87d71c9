// A program with a window that tells what it gets: ForeignPeer NAME. It ends with its input.
// SPDX-License-Identifier: MIT
#include <numeric>

#include <platform/window/CWnd.h>
#include <platform/window/ForeignWindow.h>
#include <support/ServedWindow.h>

namespace orvo {
namespace {

class PeerWindow : public CWnd {
public:
    PeerWindow() { Create(0, {0, 0, 10, 10}, nullptr, 0); }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        // Sends back as often as the argument says, and adds one each time.
        if (message == WM_APP) {
            if (lParam == 0) return 0;
            const WPARAM self = WParamOf(GlobalHandleOf(GetSafeHwnd()));
            return 1 + orvo::SendMessage(WindowOf(wParam), WM_APP, self, lParam - 1);
        }
        if (message != WM_COPYDATA) return CWnd::WindowProc(message, wParam, lParam);
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
