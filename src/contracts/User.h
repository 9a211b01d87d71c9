// A user of the installation.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/text/CString.h>

namespace orvo {

class CUser {
public:
    explicit CUser(const CString& directory) : m_directory(directory) {}

    // The directory of the user's own data, below the data directory.
    CString& GetDirectory() { return m_directory; }

private:
    CString m_directory;
};

}  // namespace orvo
