// The desktop program's own texts.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvo::desktop {

// From now on the texts are in that language, such as "de", as far as there are such texts; else in
// English. They are taken from the message files of gettext's domain "orvo-desktop" in the folder
// that ORVO_LOCALE_DIR names, else in share/locale of the program's prefix. Qt's own texts go
// along.
// Requires: the application object is there.
void UseLanguage(const std::string& language);

// The text in the language of the user, by its English form.
QString Text(const char* english);

// Marks a text that Text is given later, such as one of a table, for scripts/texts.
constexpr const char* Untranslated(const char* english) {
    return english;
}

// The text for that many things, in which the number, as the user's country writes it, stands for
// %1.
QString CountText(const char* one, const char* many, std::int64_t count);

// Bytes as they come from files and stores.
inline QString FromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace orvo::desktop
