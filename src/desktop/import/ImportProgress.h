// The window that shows how far an import is, and ends it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include <desktop/import/ImportResult.h>

namespace orvo::desktop {

// Runs the import behind a window that is shown once it takes longer than a moment. Until then no
// event is handled, and none of the user's but for that window afterwards; timers run. The import
// is ended by the user, or where the parent was shown and is closed.
ImportResult RunImport(QWidget* parent, const std::vector<std::string>& files,
                       const std::function<ImportResult(const FileProgress&)>& import);

}  // namespace orvo::desktop
