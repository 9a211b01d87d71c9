// DataSetClaim: a host's hold on a store in the table of who has which data set open.
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

#include <orvoshare/shared/DalAccessController.h>
#include <platform/Export.h>
#include <platform/io/LockFile.h>
#include <platform/text/CString.h>

namespace orvo {

// The names of the hosts in the table.
constexpr const char* kDesktopOwner = "Orvo Desktop";
constexpr const char* kTerminalOwner = "orvo";

// The key of a store in the table: as its user 16 hexadecimal digits that stand for the path of its
// file, whichever way that is named, and this creator.
ORVO_API std::string DataSetUser(const std::string& storePath);
constexpr unsigned long kStoreCreator = 1;

// Returns:  the path of the store that somebody claims under that key; empty where nobody does.
ORVO_API std::string ClaimedStore(const std::string& user);

// How a host may go on.
enum class DataSetAccess {
    Own,          // nobody else has the data set; this host stands in the table
    WithDesktop,  // the desktop application has it, beside which others may work on it
    Refused,      // another application has it
    Unguarded,    // there can be no table, or no row, so that nobody knows
};

// Claims a data set from the construction to the end, where the row goes. The row of a claim whose
// process was killed is removed by the next claim. Not to be used from several threads at once.
class ORVO_API DataSetClaim {
public:
    // Waits up to `patience` for another application that has the data set. `owner` has at most 23
    // bytes.
    DataSetClaim(const std::string& storePath, const char* owner,
                 std::chrono::milliseconds patience);
    DataSetClaim(const DataSetClaim&) = delete;
    DataSetClaim& operator=(const DataSetClaim&) = delete;
    ~DataSetClaim();

    DataSetAccess Access() const { return m_access; }

    // Who has the data set, where this is another application.
    const CString& Holder() const { return m_holder; }

private:
    DataSetAccess Ask(const char* owner);
    DataSetAccess Enter(const char* owner);
    DataSetAccess AskTable();
    void RemoveRowOfTheDead();

    std::string m_storePath;
    std::string m_user;
    CDalAccessController m_table;
    // Held while the claim lives; names the owner, so that the row of a dead one can be known, and
    // the path, which no key gives back.
    LockFile m_life;
    std::string m_lifePath;
    CString m_holder;
    DataSetAccess m_access = DataSetAccess::Unguarded;
};

}  // namespace orvo
