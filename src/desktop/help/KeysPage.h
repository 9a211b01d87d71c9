// All keys of the program as a page.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>
#include <QString>

namespace orvo::desktop {

// Those of the entries that the menus show now, menu by menu, and those that the views and forms
// know besides; in HTML.
QString HtmlOfKeys(const QMenuBar& bar);

}  // namespace orvo::desktop
