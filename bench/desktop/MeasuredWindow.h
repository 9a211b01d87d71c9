// What the measuring asks of a window with a list of addresses.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

class QLineEdit;
class QWidget;

namespace orvo::bench {

enum class ViewMode { Report, LargeIcons, SmallIcons, Cards };

class MeasuredWindow {
public:
    MeasuredWindow() = default;
    MeasuredWindow(const MeasuredWindow&) = delete;
    MeasuredWindow& operator=(const MeasuredWindow&) = delete;
    virtual ~MeasuredWindow() = default;

    // Makes the window, fills it from the store file and shows it, in report mode.
    // Fails:  std::runtime_error.
    virtual void Open(const std::string& store) = 0;

    // The widget that is typed into to look somebody up.
    virtual QWidget& KeyTarget() = 0;

    // Forgets what was typed, and selects and shows the first row.
    virtual void StartOver() = 0;

    // The widget in which rows are painted now; null as long as there are none.
    virtual QWidget* Viewport() = 0;

    // Shows all that is known of the selected row beside the rows; the widget in which that is
    // painted. Null for a window that has none.
    virtual QWidget* ShowDetails() { return nullptr; }
    virtual void HideDetails() {}
    // The widget that is typed into so that only rows that hold the text show; null for none.
    virtual QLineEdit* OpenFind() { return nullptr; }
    // False while the texts of rows are still being read for it.
    virtual bool IsFindReady() { return true; }

    // Shows what other programs change in its store.
    virtual bool SeesForeignEdits() const { return false; }

    virtual bool HasMode(ViewMode mode) const = 0;
    virtual void SetMode(ViewMode mode) = 0;
};

// This project's window. A QApplication is there.
std::unique_ptr<MeasuredWindow> MakeOurWindow();

// A window as Qt programs usually have it: a model of items behind a sorting proxy.
std::unique_ptr<MeasuredWindow> MakePlainWindow();

}  // namespace orvo::bench
