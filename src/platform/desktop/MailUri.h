// A message as an address of the kind "mailto:", by which desktops open a composer.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvo {

// A message to be composed; its texts are UTF-8.
struct MailDraft {
    std::vector<std::string> to;
    std::string subject;
    std::string body;
    std::vector<std::string> attachments;  // whole paths
};

// The one person whom `address` names, without a leading "SMTP:" and without control characters.
// Returns:  an empty text where it names none, or may name several.
std::string PlainMailAddress(std::string_view address);

// The address of the message. It has ASCII letters, digits and "%/:?&=@,.-_~" only, so that no
// shell on the way to the composer sees anything else. A control character or line end in the
// subject becomes a blank; in the body a line end becomes CR LF, and other control characters but
// the tab become a blank.
std::string MailUri(const MailDraft& draft);

}  // namespace orvo
