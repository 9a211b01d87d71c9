// mail: opens the user's mail program with a prepared message.
// SPDX-License-Identifier: MIT
#include <memory>
#include <string>
#include <vector>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/Commands.h>
#include <host/MailReason.h>
#include <orvoshare/integration/MapiMailer.h>
#include <platform/text/SystemText.h>

namespace orvo::cli {
namespace {

struct Mail {
    std::vector<std::string> to;
    std::string subject;
    std::string body;
    std::vector<std::string> attachments;
};

int SendMail(const Mail& mail) {
    std::vector<CEmailAddress> recipients;
    for (const std::string& address : mail.to) recipients.emplace_back("", SystemText(address));
    std::vector<CString> files;
    for (const std::string& path : mail.attachments) files.push_back(SystemText(path));
    CPtrArray paths;
    CPtrArray names;
    std::string ownName;
    for (CString& file : files) {
        paths.Add(file.Bytes().data());
        names.Add(ownName.data());
    }
    CMapiMailer mailer;
    if (!mailer.Initialize()) {
        const std::string untrusted = WhyNotLoaded(kMailLibrary);
        throw CommandError(
            kWrongUse, untrusted.empty()
                           ? fmt::format("mail: the mail library {} isn't installed", kMailLibrary)
                           : fmt::format("mail: the mail library isn't loaded: {}", untrusted));
    }
    const unsigned long code = mailer.SendMultipleMailAttachmentsWithUI(
        nullptr, recipients.size(), recipients.data(), SystemText(mail.subject),
        SystemText(mail.body), &paths, &names);
    if (code != SUCCESS_SUCCESS) {
        throw CommandError(kWrongUse, fmt::format("mail: {}", MailReason(code)));
    }
    return kDone;
}

}  // namespace

void AddMailCommand(CLI::App& app, Invocation& invocation) {
    auto mail = std::make_shared<Mail>();
    CLI::App* command =
        app.add_subcommand("mail", "Open the mail program of the desktop with a message");
    command->add_option("--to", mail->to, "A mail address; may be given several times")
        ->allow_extra_args(false);
    command->add_option("--subject", mail->subject, "The subject");
    command->add_option("--body", mail->body, "The text");
    command->add_option("--attach", mail->attachments, "A file; may be given several times")
        ->allow_extra_args(false);
    command->callback(
        [mail, &invocation] { invocation.command = [mail](Store&) { return SendMail(*mail); }; });
}

}  // namespace orvo::cli
