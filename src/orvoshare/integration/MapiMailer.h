// CMapiMailer: opens the user's mail program with a prepared message.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <orvoshare/integration/EmailAddress.h>
#include <platform/Export.h>
#include <platform/desktop/SimpleMapi.h>
#include <platform/module/LoadLibrary.h>
#include <platform/text/Arrays.h>
#include <platform/window/base/Messages.h>

namespace orvo {

constexpr const char* kMailLibrary = "MAPI32.DLL";

// Each send comes back when the compose window is closed, as far as the mail program reports that.
// It returns 0 when the message was sent or the user cancelled, else the code of the mail library,
// or MAPI_E_FAILURE before Initialize has succeeded. Recipients are an array of `count`. Texts may
// be null for none. Nothing is shown but the mail program's own windows. Not to be used from
// several threads at once.
class ORVO_API CMapiMailer {
public:
    // Loads the mail library.
    // Returns:  1 when mail can be sent; else 0, and the object is as it was.
    int Initialize();

    unsigned long SendMailWithUI(HWND parent, const char* subject, unsigned long count,
                                 CEmailAddress* recipients);

    // `name` is what the attachment is called in the message.
    unsigned long SendMailAttachmentWithUI(HWND parent, unsigned long count,
                                           CEmailAddress* recipients, const char* subject,
                                           const char* body, const char* path, const char* name);

    // `paths` and `names` hold texts (const char*). There must be a name for each path.
    unsigned long SendMultipleMailAttachmentsWithUI(HWND parent, unsigned long count,
                                                    CEmailAddress* recipients, const char* subject,
                                                    const char* body, CPtrArray* paths,
                                                    CPtrArray* names);

protected:
    // Fills `count` records of `target`, whose texts then are those of `recipients`.
    // Returns:  1.
    int BuildMapiDescriptors(MapiRecipDesc* target, unsigned long count, CEmailAddress* recipients);

private:
    unsigned long Send(HWND parent, unsigned long count, CEmailAddress* recipients,
                       MapiMessage& message);

    // Copies hold the library together: the last one frees it.
    std::shared_ptr<LoadedLibrary> m_hMapiLibrary;
    MapiSendMail m_pfnSendMail = nullptr;
};

}  // namespace orvo
