// The tool bar: lookup, category, and a button for each view.
// SPDX-License-Identifier: MIT
#pragma once

#include <QActionGroup>
#include <QComboBox>
#include <QToolBar>

#include <desktop/commands/CommandContext.h>

namespace orvo::desktop {

class ToolBar {
public:
    // The context outlives the bar.
    explicit ToolBar(const CommandContext& context);
    ~ToolBar();
    ToolBar(const ToolBar&) = delete;
    ToolBar& operator=(const ToolBar&) = delete;

    // Adds it to the window. The views have theirs.
    void Make();

    // The commands that show the views, in the order of ViewKind.
    QList<QAction*> ViewActions() const { return m_views.actions(); }
    void CheckView(ViewKind kind);

    // Offers the categories of the entries that are shown. Where the one chosen is gone, all are
    // shown.
    void FillCategories();

private:
    void AddLookup(QToolBar& bar);
    void AddCategories(QToolBar& bar);
    void AddViews(QToolBar& bar);
    void SayRefused(const QString& typed) const;

    const CommandContext& m_context;
    QComboBox m_categories;
    QActionGroup m_views{nullptr};
};

}  // namespace orvo::desktop
