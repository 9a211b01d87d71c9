// Categories by name, and the way from one table's categories to another's.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/Category.h>
#include <contracts/RecordStore.h>
#include <platform/Export.h>

namespace orvo {

// What CreateCategoryHelper returns, as numbers of 32 bits without a sign.
enum CategoryResult : long {
    kCategoryMade = 0,
    kTooManyCategories = 0x8000600F,
    kCategoryNameTaken = 0x80006010,
    kCategoryNameEmpty = 0x80006013,
    kCategoryRefused = 0x8000FFFF  // the manager didn't add it
};

// Adds a category by the start of the name that CutCategoryName returns. A null name counts as
// empty.
// Returns:  a CategoryResult; a manager that holds 16 categories is reported before the faults of a
//           name.
// Owner:    the manager has the new category.
ORVO_API long CreateCategoryHelper(CCategoryMgr* manager, const char* name);

// Returns:  the index of the category of that name, 16 for "All" in any case, even where a category
//           has that name, or -1.
// Requires: `name` is UTF-16, ended by a zero.
ORVO_API int GetCategoryIndexHelper(CCategoryMgr* manager, const unsigned short* name);

// Fills `map`, which has 16 entries, with the index in `target` for each category index of
// `source`. A `category` other than 16 is the answer for all of them, and the tables aren't looked
// at. For 16, categories match by name; one that `target` lacks gives 0.
// Returns:  1.
ORVO_API int AdjustCategoryIndices(int category, CBaseTable* target, CBaseTable* source, int* map);

// 1 for a record that is neither archived nor deleted; 0 for any other, and for null.
ORVO_API int IsRecordValid(CBaseRecord* record);

}  // namespace orvo
