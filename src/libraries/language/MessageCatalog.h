// The texts of a language module, which is a file in gettext's binary message form.
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>

namespace orvo {

// Says in one line what is wrong with a file's bytes.
class CatalogError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct MessageCatalog {
    int languageCode = 0;                             // of the header's "X-Orvo-Language-Code"
    std::unordered_map<unsigned, std::string> texts;  // UTF-8, by the message's context
};

// Reads the whole file's bytes, of either byte order. Messages whose context isn't a number are
// passed over.
// Fails:    CatalogError where a byte that is needed is missing, a text isn't UTF-8, or the texts
//           together are longer than the file.
MessageCatalog ReadMessageCatalog(std::string_view bytes);

}  // namespace orvo
