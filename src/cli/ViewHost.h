// A window in which a view stands as in any host, without a screen.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include <cli/Store.h>
#include <orvoshare/options/DesktopOptions.h>
#include <platform/window/base/CWnd.h>
#include <platform/window/memory/MemoryWindowSystem.h>

namespace orvo::cli {

constexpr CRect kViewPlace{0, 20, 1000, 700};
constexpr UINT kViewId = 2;

// The main window, which hands out the user's options.
class HostWindow : public CWnd {
public:
    explicit HostWindow(const COrvoDesktopOptions& options) : m_options(options) {}

    COrvoDesktopOptions& Options() { return m_options; }

    static const MessageMap& ThisMap();
    const MessageMap& GetMessageMap() const override { return ThisMap(); }

private:
    LRESULT OnGetOptions(WPARAM, LPARAM answer);

    COrvoDesktopOptions m_options;
};

// How a command shows private entries that it was asked to hide or to mask.
Disclosure Narrowed(Disclosure disclosure, bool hidesPrivate, bool masksPrivate);

// The window system in force, and the main window, as long as it lives.
class ViewHost {
public:
    ViewHost(const ViewHost&) = delete;
    ViewHost& operator=(const ViewHost&) = delete;

    MemoryWindowSystem& System() { return m_system; }

    // kSomeSkipped where a damaged record was left out.
    ExitCode Code() const { return m_code; }

protected:
    explicit ViewHost(Store& store);
    ~ViewHost();

    // Runs `fill`, a walk over the table; a damaged record is reported on standard error.
    // Fails:    CommandError where the walk ends early.
    void Watch(CBaseTable& table, const std::function<void()>& fill);

    MemoryWindowSystem m_system;
    HostWindow m_frame;

private:
    ExitCode m_code = kDone;
};

}  // namespace orvo::cli
