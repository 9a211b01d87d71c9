// Where the details of a person lead.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <people/Person.h>

namespace orvo {

// The address that calls, writes, opens or shows on the map: one of the schemes "tel:" (RFC 3966),
// "mailto:" (RFC 6068), "http:", "https:" and "geo:" (RFC 5870). Empty for a detail that leads
// nowhere, and for one of any other scheme, which may run a program or read a file.
std::string LinkOf(const Detail& detail);

// Whether a text can lead to a map: an address of the scheme "http:" or "https:" that names a host
// and, behind that, has "%1" for a place.
bool IsMapAddress(std::string_view text);

// The address that shows a postal address on the map to which `mapAddress` leads, by its text.
// Empty for any other detail, and where that isn't one of IsMapAddress.
std::string MapLinkOf(const Detail& detail, std::string_view mapAddress);

}  // namespace orvo
