// Copies of a store that are kept, and the way back to one.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <libraries/quire/StoreCounts.h>
#include <platform/Export.h>

namespace orvo {

// Copies the store, while others may write to it, into the file `target`, for its owner alone. What
// lies there keeps its place until the copy is on the disk and has been read through; only an
// earlier backup is replaced, where that is allowed.
// Returns:  how much the copy holds in `counts`.
// Fails:    false, with one line in `error`, and nothing is changed.
ORVO_API bool BackUpStore(const std::string& store, const std::string& target, bool mayReplace,
                          StoreCounts& counts, std::string& error);

// Reads through a file that is to be restored.
// Returns:  how much it holds in `counts`.
// Fails:    false, with one line in `error`, where it is damaged, or no store that this program
//           knows.
ORVO_API bool CheckBackup(const std::string& backup, StoreCounts& counts, std::string& error);

struct RestoreReport {
    StoreCounts counts;  // of what was restored
    std::string kept;    // the store as it was before, beside it; empty where there was none
    // The store was damaged, and another file lies in its place: who has it open must open it anew.
    bool isNewFile = false;
};

// Makes the store what the backup holds, in one transaction, which other programs that have it open
// see as a change. All of the store as it is before is kept beside it, under its name and
// ".before-restore", and a number from the second on; restoring that is the way back. Where the
// store is damaged or isn't there, the restored file takes its place. Whenever the program dies the
// store is the old or the new one as a whole. No id is given again for another record.
// Fails:    false, with one line in `error`, and nothing is changed.
ORVO_API bool RestoreStore(const std::string& store, const std::string& backup,
                           RestoreReport& report, std::string& error);

}  // namespace orvo
