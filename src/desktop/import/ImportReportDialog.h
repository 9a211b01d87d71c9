// What an import has left out, entry by entry.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <vector>

#include <desktop/import/ImportResult.h>

namespace orvo::desktop {

// Shows the text, which says what was imported, and a list of what was left out, which the user can
// copy or save, until the user closes it.
void ShowImportReport(QWidget* parent, const QString& told,
                      const std::vector<SkippedLine>& skipped);

}  // namespace orvo::desktop
