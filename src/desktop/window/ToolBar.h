// The tool bar: lookup, category, and a button for each view.
// SPDX-License-Identifier: MIT
#pragma once

#include <QActionGroup>
#include <QToolBar>

#include <desktop/window/CategoryBox.h>

namespace orvo::desktop {

class ToolBar {
public:
    // Context and commands outlive the bar.
    ToolBar(const CommandContext& context, GroupCommands& groups);
    ~ToolBar();
    ToolBar(const ToolBar&) = delete;
    ToolBar& operator=(const ToolBar&) = delete;

    // Adds it to the window. The views have theirs.
    void Make();

    // Where the window is narrow, the boxes are narrower, and go without the words before them, so
    // that all is in reach.
    void FitInto(int width);

    // The commands that show the views, in the order of ViewKind.
    QList<QAction*> ViewActions() const { return m_views.actions(); }
    void CheckView(ViewKind kind);

    CategoryBox& Categories() { return m_categories; }

private:
    void AddLookup(QToolBar& bar);
    void AddCategories(QToolBar& bar);
    void AddViews(QToolBar& bar);
    void SayRefused(const QString& typed) const;

    const CommandContext& m_context;
    CategoryBox m_categories;
    QToolBar* m_bar = nullptr;  // Qt's
    QList<QAction*> m_labels;   // of the boxes
    QActionGroup m_views{nullptr};
};

}  // namespace orvo::desktop
