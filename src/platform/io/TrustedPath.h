// Whether other users could have put something in the way of a path.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <platform/Export.h>

namespace orvo {

// Whether what lies at `path` is as the user or root made it: it, each folder above it up to the
// root, and each link on the way belong to one of the two, and nobody else may write there. A
// folder in which everybody may write but only their own (a sticky one) counts as closed, as the
// next step is looked at, too; so does one whose group is the user's own and of nobody else.
// Returns:  an empty text where it is so, else one line: what it is, and what is wrong with it.
ORVO_API std::string WhyNotTrusted(const std::string& path);

// Sets `target` to where `path` leads when each link on the way is followed, whether anything is
// there or not. A link that another user has put into a sticky folder isn't followed.
// Returns:  an empty text, else one line: which link, and why it isn't followed.
ORVO_API std::string FollowTrustedLinks(const std::string& path, std::string& target);

}  // namespace orvo
