// The commands by which the user prints what the view shows.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <desktop/commands/CommandContext.h>

namespace orvo::desktop {

// Each asks the user, does it with a progress that he can cancel, and says what went wrong.
void PrintView(const CommandContext& context);
void PreviewView(const CommandContext& context);
void SaveViewAsPdf(const CommandContext& context);

// Paper, orientation and margins of all that is printed from now on.
void SetUpPages(QWidget& window);

// Writes all rows of the view into a PDF file, and asks nothing. Hidden entries are left out.
// Returns:  what went wrong, in one line; empty where nothing did.
std::string WriteViewAsPdf(ViewFrame& frame, const std::string& file);

}  // namespace orvo::desktop
