// The desktop program's own texts.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>

namespace orvo::desktop {

// The text in the language of the user, by its English form.
QString Text(const char* english);

// Bytes as they come from files and stores.
inline QString FromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace orvo::desktop
