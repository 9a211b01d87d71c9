// Windows of other processes of the user: how they are found, and what can be sent to them.
// SPDX-License-Identifier: MIT
#include <array>
#include <charconv>
#include <cstdint>
#include <unistd.h>

#include <fmt/format.h>

#include <platform/ipc/FileMapping.h>
#include <platform/ipc/MessageSocket.h>
#include <platform/ipc/RuntimeFolder.h>
#include <platform/window/base/CWnd.h>
#include <platform/window/base/ForeignWindow.h>

namespace orvo {
namespace {

constexpr unsigned kWindowBits = 32;
constexpr UINT kLastOfApplication = 0xBFFF;

int timeLimit = kNoTimeLimit;

std::uint64_t NumberOf(HWND window) {
    return reinterpret_cast<std::uint64_t>(window);
}
std::uint32_t ProcessOf(HWND window) {
    return static_cast<std::uint32_t>(NumberOf(window) >> kWindowBits);
}
HWND LocalHandle(std::uint32_t window) {
    return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(window));
}

// The arguments of others may be addresses, which mean nothing elsewhere.
bool HasPlainArguments(UINT message) {
    return message == WM_NULL || message == WM_CLOSE ||
           (message >= WM_APP && message <= kLastOfApplication);
}

bool Handle(const ProcessMessage& sent, std::int64_t& result) {
    const HWND window = LocalHandle(sent.window);
    if (!IsWindow(window)) return false;
    if (sent.message == WM_COPYDATA) {
        COPYDATASTRUCT data{sent.tag, sent.block.size(),
                            sent.block.empty() ? nullptr : const_cast<char*>(sent.block.data())};
        result = SendMessage(window, WM_COPYDATA, sent.wParam, LParamOf(&data));
        return true;
    }
    if (!HasPlainArguments(sent.message)) return false;
    result = SendMessage(window, sent.message, sent.wParam, sent.lParam);
    return true;
}

// This process's number; 0 where it can't be reached.
std::uint32_t OwnProcess() {
    static MessageListener listener(Handle);
    std::string error;
    if (listener.Process() == 0 && !listener.Open(error)) fmt::print(stderr, "{}\n", error);
    return listener.Process();
}

LRESULT Fail(long error) {
    SetLastError(error);
    return 0;
}

LRESULT Send(std::uint32_t process, const ProcessMessage& message) {
    std::int64_t result = 0;
    switch (SendToProcess(process, message, timeLimit, result)) {
        case SendOutcome::Handled:
            return result;
        case SendOutcome::TimedOut:
            return Fail(ERROR_TIMEOUT);
        default:
            return Fail(ERROR_INVALID_WINDOW_HANDLE);
    }
}

std::string PathOfName(std::string_view name) {
    std::string error;
    const std::string folder = RuntimeFolder(error);
    return folder.empty() ? folder : fmt::format("{}/{}.name", folder, FileNameOf(name));
}

std::string ReadLink(const std::string& path) {
    std::array<char, 32> text{};
    const ssize_t count = ::readlink(path.c_str(), text.data(), text.size());
    return count < 0 ? std::string() : std::string(text.data(), static_cast<std::size_t>(count));
}

}  // namespace

HWND GlobalHandleOf(HWND window) {
    if (!IsWindow(window)) return nullptr;
    const std::uint64_t process = OwnProcess();
    return process == 0 ? nullptr
                        : reinterpret_cast<HWND>(process << kWindowBits | NumberOf(window));
}

// The name is a symbolic link to nothing, which is made and read in one step.
PublishedWindow::PublishedWindow(std::string_view name, HWND window) {
    const HWND handle = GlobalHandleOf(window);
    const std::string path = PathOfName(name);
    if (handle == nullptr || path.empty()) return;
    m_handle = fmt::format("{:016x}", NumberOf(handle));
    const std::string fresh = fmt::format("{}.{}", path, m_handle);
    if (::symlink(m_handle.c_str(), fresh.c_str()) != 0) return;
    if (::rename(fresh.c_str(), path.c_str()) == 0) {
        m_path = path;
    } else {
        ::unlink(fresh.c_str());
    }
}

PublishedWindow::~PublishedWindow() {
    if (IsPublished() && ReadLink(m_path) == m_handle) ::unlink(m_path.c_str());
}

HWND FindPublishedWindow(std::string_view name) {
    const std::string text = ReadLink(PathOfName(name));
    std::uint64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number, 16);
    const HWND window = reinterpret_cast<HWND>(number);
    return ProcessOf(window) != 0 && IsListening(ProcessOf(window)) ? window : nullptr;
}

void SetMessageTimeLimit(int milliseconds) {
    timeLimit = milliseconds;
}

LRESULT SendToForeignWindow(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const std::uint32_t process = ProcessOf(window);
    if (process == 0) return 0;
    const auto local = static_cast<std::uint32_t>(NumberOf(window));
    if (process == OwnProcess()) return SendMessage(LocalHandle(local), message, wParam, lParam);
    if (HasPlainArguments(message)) return Send(process, {local, message, wParam, lParam, 0, {}});
    const auto* data = PointerOf<const COPYDATASTRUCT>(lParam);
    if (message != WM_COPYDATA || data == nullptr || (!data->lpData && data->cbData != 0)) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    const HWND sender = WindowOf(wParam);
    return Send(process, {local,
                          message,
                          IsWindow(sender) ? WParamOf(GlobalHandleOf(sender)) : wParam,
                          0,
                          data->dwData,
                          {static_cast<const char*>(data->lpData), data->cbData}});
}

}  // namespace orvo
