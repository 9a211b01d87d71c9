// Following the links of details.
// SPDX-License-Identifier: MIT
#include <QDesktopServices>

#include <desktop/commands/LinkCommands.h>
#include <desktop/commands/Mail.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {

void FollowLink(const CommandContext& context, const QUrl& link) {
    if (link.scheme() == "mailto") {
        context.Refuse(WriteMailTo(link.path(QUrl::FullyDecoded)));
    } else if (!QDesktopServices::openUrl(link)) {
        context.Say(Text("Nothing on this desktop opens %1.").arg(link.toDisplayString()));
    }
}

}  // namespace orvo::desktop
