// The icons of files in dialogs, by their names.
// SPDX-License-Identifier: MIT
#include <QMimeDatabase>

#include <platform/qt/QtFileIcons.h>

namespace orvo {
namespace {

QMimeType TypeOf(const QFileInfo& file) {
    return QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension);
}

}  // namespace

QIcon QtFileIcons::icon(const QFileInfo& file) const {
    if (file.isDir()) return icon(Folder);
    return QIcon::fromTheme(TypeOf(file).iconName(), icon(File));
}

QString QtFileIcons::type(const QFileInfo& file) const {
    return TypeOf(file).comment();
}

}  // namespace orvo
