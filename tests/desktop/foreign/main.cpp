// A program that sends a message to a published window: null, close, or data from its input.
// SPDX-License-Identifier: MIT
#include <iostream>
#include <iterator>
#include <string>

#include <platform/ipc/FileMapping.h>
#include <platform/window/base/CWnd.h>
#include <platform/window/base/ForeignWindow.h>

namespace {

constexpr int kUsage = 2;

}  // namespace

// Prints the result, then what GetLastError tells of it: 0 for a message that came through.
int main(int count, char** arguments) {
    using namespace orvo;
    if (count != 3) return kUsage;
    HWND window = FindPublishedWindow(arguments[1]);
    if (window == nullptr) {
        std::cout << "no window\n";
        return 0;
    }
    const std::string message = arguments[2];
    LRESULT result = 0;
    if (message == "data") {
        std::string bytes{std::istreambuf_iterator<char>(std::cin), {}};
        COPYDATASTRUCT data{1, static_cast<DWORD>(bytes.size()), bytes.data()};
        result = SendMessage(window, WM_COPYDATA, 0, LParamOf(&data));
    } else {
        result = SendMessage(window, message == "close" ? WM_CLOSE : WM_NULL, 0, 0);
    }
    std::cout << result << ' ' << GetLastError() << '\n';
}
