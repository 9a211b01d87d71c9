// Where the details of a person lead.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <people/Person.h>

namespace orvo {

// The address that calls, writes, opens or shows on the map: one of the schemes "tel:" (RFC 3966),
// "mailto:" (RFC 6068), "http:", "https:" and "geo:" (RFC 5870). Empty for a detail that leads
// nowhere, and for one of any other scheme, which may run a program or read a file.
std::string LinkOf(const Detail& detail);

}  // namespace orvo
