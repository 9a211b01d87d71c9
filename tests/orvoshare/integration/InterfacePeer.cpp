// A program with a window, which passes an interface and takes one: InterfacePeer NAME. It does
// what messages tell it, and ends with its input.
// SPDX-License-Identifier: MIT

#include <support/ServedWindow.h>

#include "PeerMessages.h"

namespace orvo {
namespace {

class PeerWindow : public CWnd {
public:
    PeerWindow() : m_counter(new Counter) { Create(0, {0, 0, 10, 10}, nullptr, 0); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case WM_COPYDATA:
                return TakeInterface(Counter::Partner(), lParam);
            case kSendInterface:
                return Send(WindowOf(wParam));
            case kCountObjects:
                return Counter::Living();
            case kCountExports:
                return static_cast<LRESULT>(ExportedInterfaceCount());
            case kCountBlocks:
                return static_cast<LRESULT>(GlobalBlockCount());
            case kDropPartner:
                Counter::Partner() = {};
                return 0;
            case kBouncePartner: {
                std::int64_t depth = -1;
                return m_counter->Bounce(lParam, depth) == S_OK ? depth : -1;
            }
            default:
                return CWnd::WindowProc(message, wParam, lParam);
        }
    }

private:
    LRESULT Send(HWND receiver) {
        HGLOBAL block = nullptr;
        DWORD size = 0;
        const HRESULT result =
            MarshalInterfaceIntoHandle(IID_ICounter, m_counter.Get(), &block, &size);
        if (result != S_OK) return result;
        const LRESULT sent =
            SendInterfaceToHwnd(WParamOf(GetSafeHwnd()), receiver, kTag, block, size);
        GlobalFree(block);
        return sent;
    }

    ComPointer<ICounter> m_counter;
};

int Run(const char* name) {
    RegisterCounter();
    if (CoInitialize(nullptr) != S_OK) return 1;
    PeerWindow window;
    ServeWindow(window, name);
    Counter::Partner() = {};
    CoUninitialize();
    return 0;
}

}  // namespace
}  // namespace orvo

int main(int count, char** arguments) {
    return count == 2 ? orvo::Run(arguments[1]) : 2;
}
