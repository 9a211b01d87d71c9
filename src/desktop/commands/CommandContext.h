// What commands work with, and how they say what became of them.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <functional>
#include <string>
#include <utility>

#include <desktop/views/ViewFrame.h>

namespace orvo::desktop {

class CommandContext {
public:
    // What the window around the views does for commands.
    struct Services {
        std::function<void()> fillCategories;
        std::function<void()> showCounts;
        std::function<void(ViewKind)> showView;
        std::function<void()> reopen;
    };

    // All of it outlives the context.
    CommandContext(QMainWindow& window, StoreSession& session, COrvoDesktopOptions& options,
                   ViewFrame& frame, Services services)
        : m_window(window),
          m_session(session),
          m_options(options),
          m_frame(frame),
          m_services(std::move(services)) {}

    QMainWindow& Window() const { return m_window; }
    StoreSession& Session() const { return m_session; }
    COrvoDesktopOptions& Options() const { return m_options; }
    ViewFrame& Frame() const { return m_frame; }

    // While the user works in the window. Else it is only drawn, and nobody can be asked.
    bool IsInUse() const { return m_isInUse; }
    void SetInUse(bool isInUse) { m_isInUse = isInUse; }

    // A message box; nothing for an empty text.
    void Refuse(const QString& refusal) const;
    // One line in the status bar, for a while.
    void Say(const QString& line) const;
    // Says how many private entries didn't go out; nothing where all did.
    void SayLeftOut(int count) const;
    // Says why nothing can be done with what is selected, where only masked rows are.
    void SayMasked() const;
    // One line, in UTF-8, for standard error and the status bar.
    void ReportProblem(const std::string& problem) const;
    // Returns false for the status of a record that was looked for and is gone, and says so.
    bool IsFound(long status) const;

    // Brings the window, or the one that asks in front of it, to the front. `token` is the
    // desktop's leave for that; may be empty.
    void ComeToFront(const std::string& token) const;

    // Shows categories and rows as they are in the store now.
    void Refresh() const;
    // Counts rows and what is selected at once, rather than when all is done.
    void ShowCounts() const { m_services.showCounts(); }
    // Closes the window, and opens another one with what lies in the place of the store.
    void Reopen() const { m_services.reopen(); }
    void ShowView(ViewKind kind) const { m_services.showView(kind); }

private:
    QMainWindow& m_window;
    StoreSession& m_session;
    COrvoDesktopOptions& m_options;
    ViewFrame& m_frame;
    Services m_services;
    bool m_isInUse = false;
};

}  // namespace orvo::desktop
