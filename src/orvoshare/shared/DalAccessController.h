// CDalAccessController: the table of who has which user's data set open.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include <orvoshare/shared/MapFileHelper.h>
#include <platform/Export.h>
#include <platform/text/CString.h>

namespace orvo {

// One row of the table. Its key is the pair of user and creator.
struct CAccessInfo {
    char user[21] = {};  // ended by a zero
    char padding[3] = {};
    std::uint32_t creator = 0;
    char owner[24] = {};  // the application that holds the data set; ended by a zero
};
static_assert(sizeof(CAccessInfo) == 52 && offsetof(CAccessInfo, creator) == 24 &&
              offsetof(CAccessInfo, owner) == 28);

constexpr std::size_t kMostAccessors = 629;

// An application asks by AllowDataAccess before it opens a user's data, and stands in the table
// while it has them open. The table lives as long as some process holds its block. A row whose
// process died stays as long.
//
// Each operation has the table to itself, so that several processes may add and remove at once. One
// that is killed within an operation leaves nothing half done: the next operation finishes it. A
// user is compared without regard to case, by the bytes that a row holds: the first 20, less those
// of a character that doesn't fit. Before Initialize or Attach has returned 1, and where a block
// that somebody else has made is too small, the table is empty and takes no row.
class ORVO_API CDalAccessController : public CMapFileHelper {
public:
    // Makes or opens the block.
    // Returns:  1 when it is there.
    int Initialize();

    // The same, but returns 0 where nobody has the block open, which is then not made.
    int Attach();

    // Returns:  1 when there is such a row, with its owner in `owner`; else 0 with `owner`
    //           untouched.
    int GetOwner(const char* user, unsigned long creator, CString& owner);

    // Returns:  1 when added; 0 where the key stands in the table, whoever owns it, or the table is
    //           full.
    int AddAccessorInfo(const char* user, unsigned long creator, const char* owner);

    // Returns:  1 when removed; 0 where there is no such row. The rows behind it keep their order.
    int RemoveAccessorInfo(const char* user, unsigned long creator);

    // Returns:  1 where nobody holds the data set, or the desktop application does, which sets
    //           `heldByDesktop` to 1 in place of 0; whoever asks. Else 0.
    int AllowDataAccess(const char* user, unsigned long creator, int* heldByDesktop);

    // Sets `rows` to the first row in the block, which others may change at any time.
    // Returns:  1.
    int GetAccessInfoArray(unsigned long* count, CAccessInfo** rows);

    // `count` is at most kMostAccessors.
    void SetAccessorCount(unsigned long count);

    // Lists the table on standard error; does nothing in a release build.
    void Trace();
};

}  // namespace orvo
