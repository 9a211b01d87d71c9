// Text as wide as it is drawn. Fulfilled by libraries/odcmn.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/text/CString.h>

namespace orvo {

class CDC;

// Shortens the text so that it is at most `width` pixels wide on the device context: whole
// characters go from its end, and with a `flag` that isn't 0 an ellipsis ("...") takes their place
// where it fits. A text that fits is left alone; a width below that of one character leaves
// nothing.
ORVO_API void TruncateText(CString& text, CDC& dc, int width, int flag);

// The width of the text in pixels on the device context.
ORVO_API int GetTextWidth(CString& text, CDC& dc);

}  // namespace orvo
