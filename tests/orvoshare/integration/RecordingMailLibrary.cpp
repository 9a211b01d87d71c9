// A mail library that writes down what it is given.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <orvoshare/integration/RecordedMail.h>
#include <platform/Export.h>

namespace {

std::string TextOf(const char* text) {
    return text ? text : "null";
}

}  // namespace

extern "C" {

ORVO_API orvo::RecordedMail* Recorded() {
    static orvo::RecordedMail recorded;
    return &recorded;
}

ORVO_API orvo::ULONG MAPISendMail(std::uintptr_t session, std::uintptr_t window,
                                  orvo::MapiMessage* message, orvo::ULONG flags,
                                  orvo::ULONG reserved) {
    orvo::RecordedMail& mail = *Recorded();
    ++mail.calls;
    mail.session = session;
    mail.window = window;
    mail.flags = flags;
    mail.reserved = reserved;
    mail.subject = TextOf(message->lpszSubject);
    mail.body = TextOf(message->lpszNoteText);
    mail.isRestEmpty = message->ulReserved == 0 && !message->lpszMessageType &&
                       !message->lpszDateReceived && !message->lpszConversationID &&
                       message->flFlags == 0 && !message->lpOriginator;
    mail.hasRecipients = message->lpRecips != nullptr;
    mail.hasFiles = message->lpFiles != nullptr;
    mail.recipients.clear();
    for (orvo::ULONG i = 0; i < message->nRecipCount; ++i) {
        const orvo::MapiRecipDesc& each = message->lpRecips[i];
        mail.recipients.push_back(fmt::format("{} {} <{}>", each.ulRecipClass,
                                              TextOf(each.lpszName), TextOf(each.lpszAddress)));
    }
    mail.files.clear();
    for (orvo::ULONG i = 0; i < message->nFileCount; ++i) {
        const orvo::MapiFileDesc& each = message->lpFiles[i];
        mail.files.push_back(fmt::format("{:X} {} {}", each.nPosition, TextOf(each.lpszPathName),
                                         TextOf(each.lpszFileName)));
    }
    return mail.answer;
}
}
