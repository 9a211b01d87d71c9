// Paths as the URIs by which programs hand files to each other.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace orvo::desktop {

// The URI of a path, which is taken from the present folder where it is relative. Every byte of the
// path comes back by PathOfUri, also those that are no text.
std::string UriOfPath(const std::string& path);

// The path of a URI of this machine; any other text as it is, so that whoever opens it reports that
// there is no such file.
std::string PathOfUri(std::string_view uri);

}  // namespace orvo::desktop
