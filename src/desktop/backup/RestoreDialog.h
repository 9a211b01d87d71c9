// Choosing the backup that a store is to be restored from.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

class QString;
class QWidget;

namespace orvo::desktop {

// Shows the automatic backups of the store, with what they hold, and the way to any other file,
// which begins in `folder`.
// Returns:  the backup; nothing where the user gives it up.
std::optional<std::string> ChooseBackup(QWidget* parent, const std::string& store,
                                        const std::string& folder);

// When the backup was made, as the user's country writes it.
QString BackupTime(const std::string& backup);

// Asks for the file into which a store is to be backed up; a name is proposed.
std::optional<std::string> ChooseBackupFile(QWidget* parent, const std::string& store,
                                            const std::string& folder);

}  // namespace orvo::desktop
