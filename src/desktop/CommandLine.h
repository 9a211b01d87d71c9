// The command line of orvo-desktop.
// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <desktop/options/DesktopPreferences.h>
#include <desktop/views/ViewKind.h>

namespace orvo::desktop {

struct CommandLine {
    std::string store;  // empty for the user's own
    std::string locale;
    unsigned codePage = 0;
    std::string now;
    std::string picture;  // a file to render the window into
    std::string pdf;      // a file to print the view into
    std::optional<ViewKind> view;
    std::optional<QSize> size;
    std::optional<Colours> colours;  // else those that the user prefers
    std::vector<std::string> files;  // to import

    std::int64_t toDo = 0;     // to be opened
    bool isService = false;    // reminds without a window
    bool hasOwnNotes = false;  // the service shows reminders itself

    // Files are written, and no window is shown.
    bool IsOffScreen() const { return !picture.empty() || !pdf.empty(); }
};

// What is wrong with the command line, in one line.
class CommandLineError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Returns:  nothing where the user asked for help or the version, which is printed then.
// Fails:    CommandLineError.
std::optional<CommandLine> ReadCommandLine(int count, char** arguments);

}  // namespace orvo::desktop
