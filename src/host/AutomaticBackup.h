// Backups that are made by themselves: one a day, the last seven, in a folder beside the store.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <contracts/StoreEngine.h>

namespace orvo {

constexpr std::size_t kKeptBackups = 7;

// Whether the user wants them, as "Orvo", "AutomaticBackups" of the settings says: at first, yes.
bool AreBackupsAutomatic();
// Returns:  false where the settings can't be written.
bool SetBackupsAutomatic(bool isOn);

// The folder "backups" beside the store's file, whether it is there or not.
std::string BackupFolder(const std::string& store);

// The automatic backups of the store, the newest first: NAME-YYYY-MM-DD with the store's ending.
std::vector<std::string> AutomaticBackups(const std::string& store);

// True where one is wanted, there is none of this day, and the store holds something.
bool IsBackupDue(StoreEngine& engine);

// Makes the backup of this day, and then removes those that are more than the newest seven. No
// other file in the folder is touched. To be called from any thread.
// Returns:  an empty text, also where another program is making it; else why there is none, in one
//           line, and all earlier ones stay.
std::string MakeAutomaticBackup(const std::string& store);

// The newest of them that can be read through and is no damaged store; empty where there is none.
std::string NewestGoodBackup(const std::string& store);

}  // namespace orvo
