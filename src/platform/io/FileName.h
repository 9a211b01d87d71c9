// Names of files that are made from texts of others.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

// `text`, which is UTF-8, as the name of a file that no shell, address or mail program reads as
// more than a name: letters, digits and marks of any script, blanks, points, dashes and
// underscores. Any others become one underscore, but for characters without a picture, which
// vanish. It begins with neither a blank, a point nor a dash, ends in no blank or point, and is no
// longer than 120 bytes; what is cut keeps its ending. It is never empty.
ORVO_API std::string PlainFileName(std::string_view text);

// Whether `path` has only such characters and slashes, and no part of it begins with a dash.
ORVO_API bool IsPlainPath(std::string_view path);

}  // namespace orvo
