// What the program is, and what it is made of, as a page.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace orvo::desktop {

// Version, licence, and the libraries in use with the versions that they tell, in HTML.
QString HtmlOfProgram();

}  // namespace orvo::desktop
