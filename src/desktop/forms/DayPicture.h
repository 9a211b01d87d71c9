// How dates are written in fields.
// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>

namespace orvo::desktop {

// As the user's country writes it, with all digits of the year: "dd.MM.yyyy".
inline QString DayPicture() {
    QString picture = QLocale().dateFormat(QLocale::ShortFormat);
    if (!picture.contains("yyyy")) picture.replace("yy", "yyyy");
    return picture;
}

}  // namespace orvo::desktop
