// MAPI32.DLL: Simple MAPI over the desktop's own composer.
// SPDX-License-Identifier: MIT
#include <filesystem>
#include <unistd.h>

#include <platform/Export.h>
#include <platform/desktop/AttachmentCopies.h>
#include <platform/desktop/MailComposer.h>
#include <platform/io/FileName.h>
#include <platform/module/LoadLibrary.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

// Texts are taken for UTF-8 where the program that has loaded the library says no more.
std::string AsItIs(const char* text) {
    return text ? text : "";
}
TextToUtf8 g_toUtf8 = AsItIs;

ULONG AddRecipients(const MapiMessage& message, MailDraft& draft) {
    for (ULONG i = 0; i < message.nRecipCount; ++i) {
        const MapiRecipDesc& recipient = message.lpRecips[i];
        if (recipient.ulRecipClass != MAPI_TO) return MAPI_E_BAD_RECIPTYPE;
        const std::string address = PlainMailAddress(g_toUtf8(recipient.lpszAddress));
        if (address.empty()) return MAPI_E_UNKNOWN_RECIPIENT;
        draft.to.push_back(address);
    }
    return SUCCESS_SUCCESS;
}

ULONG AddFile(const MapiFileDesc& file, MailDraft& draft) {
    std::error_code error;
    const fs::path path = fs::absolute(g_toUtf8(file.lpszPathName), error);
    if (error || !fs::exists(path, error)) return MAPI_E_ATTACHMENT_NOT_FOUND;
    if (!fs::is_regular_file(path, error) || ::access(path.c_str(), R_OK) != 0) {
        return MAPI_E_ATTACHMENT_OPEN_FAILURE;
    }
    std::string name = g_toUtf8(file.lpszFileName);
    if (name.empty()) name = path.filename().string();
    // Composers take the path apart: some read a quotation mark or a comma as the end of it.
    const bool bearsItsName = name == path.filename() && IsPlainPath(path.string());
    draft.attachments.push_back(bearsItsName ? path.string() : CopyUnderName(path, name));
    return draft.attachments.back().empty() ? MAPI_E_ATTACHMENT_WRITE_FAILURE : SUCCESS_SUCCESS;
}

ULONG SendMail(const MapiMessage* message, ULONG flags) {
    if (!message) return MAPI_E_INVALID_MESSAGE;
    if ((flags & MAPI_DIALOG) == 0) return MAPI_E_NOT_SUPPORTED;
    RemoveOldCopies();
    MailDraft draft;
    draft.subject = g_toUtf8(message->lpszSubject);
    draft.body = g_toUtf8(message->lpszNoteText);
    ULONG result = AddRecipients(*message, draft);
    for (ULONG i = 0; result == SUCCESS_SUCCESS && i < message->nFileCount; ++i) {
        result = AddFile(message->lpFiles[i], draft);
    }
    return result == SUCCESS_SUCCESS ? OpenComposer(draft) : result;
}

}  // namespace
}  // namespace orvo

extern "C" {

ORVO_API void OrvoLibraryAttach(orvo::TextToUtf8 toUtf8) {
    orvo::g_toUtf8 = toUtf8;
}

ORVO_API orvo::ULONG MAPISendMail(std::uintptr_t, std::uintptr_t, orvo::MapiMessage* message,
                                  orvo::ULONG flags, orvo::ULONG) {
    try {
        return orvo::SendMail(message, flags);
    } catch (const std::exception&) {
        return orvo::MAPI_E_FAILURE;
    }
}
}
