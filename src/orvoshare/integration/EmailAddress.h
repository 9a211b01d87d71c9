// CEmailAddress: one recipient of a message.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/text/CString.h>

namespace orvo {

class ORVO_API CEmailAddress {
public:
    CEmailAddress() = default;
    CEmailAddress(const char* name, const char* address) : m_strName(name), m_strAddress(address) {}

    CString m_strName;  // as the recipient is shown
    CString m_strAddress;
};

}  // namespace orvo
