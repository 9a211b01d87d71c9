// Replacing delimited tokens in a text.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/text/CString.h>

namespace orvo {

// Asked for the text that replaces `token`; its result isn't looked at. `replacement` still holds
// what the token before left in it, so that a callback which doesn't touch it repeats that text.
using TokenCallback = int (*)(const char* token, CString& replacement, long data);

// Writes `source` to `output` with each token, from an `open` byte to the next `close` byte,
// replaced by what the callback returns. Bytes are compared singly: a trail byte equal to `open`
// opens a token. Tokens don't nest.
// Returns:  1 when the whole text was processed; 0 when it ended inside a token, and `output` then
//           holds what stood before it.
ORVO_API int TransformTokens(const char* source, char open, char close, CString& output,
                             TokenCallback callback, long data);

}  // namespace orvo
