// Following the links of details.
// SPDX-License-Identifier: MIT
#include <QDesktopServices>

#include <desktop/commands/LinkCommands.h>
#include <desktop/commands/Mail.h>
#include <desktop/details/DetailsPage.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {

namespace {

void ShowEntry(const CommandContext& context, std::int64_t id) {
    ShownEntries& entries = context.Frame().Entries();
    entries.SelectRecord(id);
    if (entries.SelectedCount() == 0) context.Say(Text("The entry isn't among those that show."));
}

}  // namespace

void FollowLink(const CommandContext& context, const QUrl& link) {
    if (link.scheme() == kEntryScheme) {
        ShowEntry(context, link.path().toLongLong());
    } else if (link.scheme() == "mailto") {
        context.Refuse(SendMailTo({link.path(QUrl::FullyDecoded)}));
    } else if (!QDesktopServices::openUrl(link)) {
        context.Say(Text("Nothing on this desktop opens %1.").arg(link.toDisplayString()));
    }
}

}  // namespace orvo::desktop
