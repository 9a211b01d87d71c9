// The pages of the dialog of options.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>
#include <vector>

#include <desktop/options/OptionsPage.h>

namespace orvo::desktop {

struct PageRow {
    QString title;
    OptionsPage* page;  // Qt's, once it stands in the dialog
};
// In the order in which they are shown. `store` is the file that is open.
std::vector<PageRow> MakeOptionsPages(const COrvoDesktopOptions& options, const std::string& store);

}  // namespace orvo::desktop
