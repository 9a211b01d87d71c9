// A window in which a view stands as in any host, without a screen.
// SPDX-License-Identifier: MIT
#include <cli/Output.h>
#include <cli/ViewHost.h>

namespace orvo::cli {
namespace {

constexpr CRect kFrame{0, 0, 1000, 700};

}  // namespace

const MessageMap& HostWindow::ThisMap() {
    static const MessageMap map{CWnd::ThisMap(),
                                {On<WM_GET_DESKTOP_OPTIONS>(&HostWindow::OnGetOptions)}};
    return map;
}

LRESULT HostWindow::OnGetOptions(WPARAM, LPARAM answer) {
    *PointerOf<COrvoDesktopOptions*>(answer) = &m_options;
    return 1;
}

Disclosure Narrowed(Disclosure disclosure, bool hidesPrivate, bool masksPrivate) {
    return disclosure.AtLeast(hidesPrivate   ? Privacy::Hide
                              : masksPrivate ? Privacy::Mask
                                             : Privacy::Show);
}

ViewHost::ViewHost(Store& store) : m_frame(store.Guard().Options()) {
    // Nobody is there to answer; whoever asked for the change reports why it wasn't made.
    m_system.OnUnexpectedQuestion([](const std::string&) {});
    WindowSystem::SetCurrent(&m_system);
    m_frame.Create(WS_VISIBLE, kFrame, nullptr, 0);
    AfxSetMainWnd(&m_frame);
}

ViewHost::~ViewHost() {
    AfxSetMainWnd(nullptr);
    m_frame.DestroyWindow();
    WindowSystem::SetCurrent(nullptr);
}

void ViewHost::Watch(CBaseTable& table, const std::function<void()>& fill) {
    std::string failure;
    table.SetFailureListener([&](const std::string& reason, bool isOver) {
        if (isOver) {
            failure = reason;
        } else {
            PrintError(reason);
            m_code = kSomeSkipped;
        }
    });
    fill();
    table.SetFailureListener(nullptr);
    if (!failure.empty()) throw CommandError(kWrongUse, failure);
}

}  // namespace orvo::cli
