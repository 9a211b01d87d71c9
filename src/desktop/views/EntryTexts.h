// How entries read outside of their views: in one line, and for other programs.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include <contracts/RecordStore.h>

class QMimeData;

namespace orvo::desktop {

// A person's or company's name, or the first line of what is to be done.
QString EntryName(CBaseRecord& record);

// Addresses as text and as vCards; to-dos as text, a line each. The records are of one table.
std::unique_ptr<QMimeData> EntriesAsMimeData(const std::vector<CBaseRecord*>& records);

// How many private entries didn't go out, as a sentence.
QString LeftOutText(std::int64_t count);

}  // namespace orvo::desktop
