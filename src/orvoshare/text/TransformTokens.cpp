// Replacing delimited tokens in a text.
// SPDX-License-Identifier: MIT
#include <string_view>

#include <orvoshare/text/TransformTokens.h>

namespace orvo {

int TransformTokens(const char* source, char open, char close, CString& output,
                    TokenCallback callback, long data) {
    output.Empty();
    CString replacement;
    std::string_view rest = source;
    for (;;) {
        const std::size_t tokenBegin = rest.find(open);
        output.Bytes().append(rest.substr(0, tokenBegin));
        if (tokenBegin == std::string_view::npos) return 1;
        rest.remove_prefix(tokenBegin + 1);

        const std::size_t tokenEnd = rest.find(close);
        if (tokenEnd == std::string_view::npos) return 0;
        const CString token(rest.substr(0, tokenEnd));
        rest.remove_prefix(tokenEnd + 1);
        callback(token, replacement, data);
        output += replacement;
    }
}

}  // namespace orvo
