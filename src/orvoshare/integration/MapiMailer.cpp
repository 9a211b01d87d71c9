// CMapiMailer: opens the user's mail program with a prepared message.
// SPDX-License-Identifier: MIT
#include <cstddef>
#include <vector>

#include <orvoshare/integration/MapiMailer.h>

namespace orvo {
namespace {

constexpr const char* kSendFunction = "MAPISendMail";

MapiFileDesc FileOf(const char* path, const char* name) {
    MapiFileDesc file;
    file.nPosition = MAPI_NO_POSITION;
    file.lpszPathName = path;
    file.lpszFileName = name;
    return file;
}

const char* TextAt(const CPtrArray& texts, int position) {
    return static_cast<const char*>(texts[position]);
}

}  // namespace

int CMapiMailer::Initialize() {
    const std::shared_ptr<LoadedLibrary> library(LoadLibraryA(kMailLibrary), FreeLibrary);
    const auto send = reinterpret_cast<MapiSendMail>(GetProcAddress(library.get(), kSendFunction));
    if (!send) return 0;
    m_hMapiLibrary = library;
    m_pfnSendMail = send;
    return 1;
}

unsigned long CMapiMailer::SendMailWithUI(HWND parent, const char* subject, unsigned long count,
                                          CEmailAddress* recipients) {
    MapiMessage message;
    message.lpszSubject = subject;
    return Send(parent, count, recipients, message);
}

unsigned long CMapiMailer::SendMailAttachmentWithUI(HWND parent, unsigned long count,
                                                    CEmailAddress* recipients, const char* subject,
                                                    const char* body, const char* path,
                                                    const char* name) {
    MapiFileDesc file = FileOf(path, name);
    MapiMessage message;
    message.lpszSubject = subject;
    message.lpszNoteText = body;
    message.nFileCount = 1;
    message.lpFiles = &file;
    return Send(parent, count, recipients, message);
}

unsigned long CMapiMailer::SendMultipleMailAttachmentsWithUI(HWND parent, unsigned long count,
                                                             CEmailAddress* recipients,
                                                             const char* subject, const char* body,
                                                             CPtrArray* paths, CPtrArray* names) {
    std::vector<MapiFileDesc> files(static_cast<std::size_t>(paths->GetSize()));
    int position = 0;
    for (MapiFileDesc& file : files) {
        file = FileOf(TextAt(*paths, position), TextAt(*names, position));
        ++position;
    }
    MapiMessage message;
    message.lpszSubject = subject;
    message.lpszNoteText = body;
    message.nFileCount = static_cast<ULONG>(files.size());
    message.lpFiles = files.empty() ? nullptr : files.data();
    return Send(parent, count, recipients, message);
}

int CMapiMailer::BuildMapiDescriptors(MapiRecipDesc* target, unsigned long count,
                                      CEmailAddress* recipients) {
    for (unsigned long i = 0; i < count; ++i) {
        target[i] = {};
        target[i].ulRecipClass = MAPI_TO;
        target[i].lpszName = recipients[i].m_strName;
        target[i].lpszAddress = recipients[i].m_strAddress;
    }
    return 1;
}

unsigned long CMapiMailer::Send(HWND parent, unsigned long count, CEmailAddress* recipients,
                                MapiMessage& message) {
    if (!m_pfnSendMail) return MAPI_E_FAILURE;
    std::vector<MapiRecipDesc> descriptors(count);
    if (count != 0) {
        BuildMapiDescriptors(descriptors.data(), count, recipients);
        message.nRecipCount = static_cast<ULONG>(count);
        message.lpRecips = descriptors.data();
    }
    const unsigned long result = m_pfnSendMail(0, reinterpret_cast<std::uintptr_t>(parent),
                                               &message, MAPI_LOGON_UI | MAPI_DIALOG, 0);
    // That the user cancels isn't an error.
    return result == MAPI_USER_ABORT ? SUCCESS_SUCCESS : result;
}

}  // namespace orvo
