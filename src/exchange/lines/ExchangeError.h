// Why card and calendar files can't be read or written.
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace orvo {

// Why a file as a whole could not be read or written; what() is one line that says what, where and
// why.
class ExchangeError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The import was ended by its progress function.
class ImportCancelled : public ExchangeError {
public:
    ImportCancelled() : ExchangeError("the import was cancelled") {}
};

}  // namespace orvo
