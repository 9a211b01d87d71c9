// The icons of files in dialogs, by their names.
// SPDX-License-Identifier: MIT
#pragma once

#include <QFileIconProvider>

namespace orvo {

// Qt's own opens each file to learn its kind. A process that has opened a store and closes it a
// second time loses all of its locks on it, so that the next program to leave the store takes its
// log away.
class QtFileIcons : public QFileIconProvider {
public:
    QIcon icon(const QFileInfo& file) const override;
    QIcon icon(IconType type) const override { return QFileIconProvider::icon(type); }
    QString type(const QFileInfo& file) const override;
};

}  // namespace orvo
