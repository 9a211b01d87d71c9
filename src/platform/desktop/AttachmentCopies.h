// Copies of files under the names that they bear in a message.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace orvo {

// Copies the file under `name`, as PlainFileName makes it, into a new folder of the user alone. The
// copy stays, as a composer reads it at a time that nobody knows; RemoveOldCopies takes it away.
// Returns:  the path of the copy, or an empty text where it can't be made; nothing is left then.
std::string CopyUnderName(const std::string& path, const std::string& name);

// Removes the user's folders of copies that are older than a day.
void RemoveOldCopies();

}  // namespace orvo
