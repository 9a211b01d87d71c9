// A mail library that writes down what it is given.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <orvoshare/integration/RecordedMail.h>
#include <platform/Export.h>

extern "C" {

ORVO_API orvo::RecordedMail* Recorded() {
    static orvo::RecordedMail recorded;
    return &recorded;
}

ORVO_API orvo::ULONG MAPISendMail(std::uintptr_t session, std::uintptr_t window,
                                  orvo::MapiMessage* message, orvo::ULONG flags,
                                  orvo::ULONG reserved) {
    orvo::RecordedMail& mail = *Recorded();
    mail.window = window;
    mail.flags = flags;
    mail.lines.clear();
    mail.lines.push_back(fmt::format("subject {}", message->lpszSubject));
    if (message->lpszNoteText) mail.lines.push_back(fmt::format("body {}", message->lpszNoteText));
    for (orvo::ULONG i = 0; i < message->nRecipCount; ++i) {
        const orvo::MapiRecipDesc& each = message->lpRecips[i];
        const char* kind = each.ulRecipClass == orvo::MAPI_TO ? "to" : "not to";
        mail.lines.push_back(fmt::format("{} {} <{}>", kind, each.lpszName, each.lpszAddress));
    }
    for (orvo::ULONG i = 0; i < message->nFileCount; ++i) {
        const orvo::MapiFileDesc& each = message->lpFiles[i];
        const char* kind = each.nPosition == orvo::MAPI_NO_POSITION ? "file" : "placed file";
        mail.lines.push_back(fmt::format("{} {} {}", kind, each.lpszPathName, each.lpszFileName));
    }
    const bool isRestEmpty =
        session == 0 && reserved == 0 && message->ulReserved == 0 && !message->lpszMessageType &&
        !message->lpszDateReceived && !message->lpszConversationID && message->flFlags == 0 &&
        !message->lpOriginator && (message->nRecipCount != 0 || !message->lpRecips) &&
        (message->nFileCount != 0 || !message->lpFiles);
    if (!isRestEmpty) mail.lines.emplace_back("and more");
    return mail.answer;
}
}
