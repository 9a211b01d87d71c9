// The desktop program's own texts.
// SPDX-License-Identifier: MIT
#include <QCoreApplication>

#include <desktop/Texts.h>

namespace orvo::desktop {

QString Text(const char* english) {
    return QCoreApplication::translate("orvo-desktop", english);
}

}  // namespace orvo::desktop
